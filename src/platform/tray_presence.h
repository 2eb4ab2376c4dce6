// SPDX-License-Identifier: MIT
#pragma once

// Which status area the desktop offers right now. Asked afresh on every call, so a tray that
// starts after Pinecove (autostart at login) or goes away is noticed.
//
// Qt decides once per process whether to use a StatusNotifierItem host, the first time anything
// asks it about trays; asked before the host is up, it never uses one. So Pinecove answers this
// itself and makes its tray icon only once a status area is there.
namespace TrayPresence {

enum class Kind { None, StatusNotifier, XEmbed };

Kind current();

} // namespace TrayPresence
