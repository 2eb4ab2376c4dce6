// SPDX-License-Identifier: MIT
#include "tray_presence.h"

namespace TrayPresence {

// The menu bar is always there.
Kind current() {
    return Kind::StatusNotifier;
}

bool statusNotifierItemShown() {
    return true;
}

bool embeddedInTray(WId) {
    return false;
}

std::optional<QColor> xembedTrayBackground() {
    return std::nullopt; // the menu bar tints the template icon itself
}

} // namespace TrayPresence
