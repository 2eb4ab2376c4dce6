// SPDX-License-Identifier: MIT
#pragma once

#include "hosts_store.h"

#include <optional>
#include <string>

// Replaces a hosts file that the store cannot load (it is not UTF-8, or it is missing and
// `before` is empty) with `text`, as restore does: a backup of the file first, if there is one,
// then the root helper, which writes only while the file still holds `before`, byte for byte. Waits
// for the write. Returns nothing when written, otherwise why not (a dismissed prompt's message
// carries HelperProtocol::cancelMarker).
std::optional<std::string> replaceUnloadable(const std::string& text, const std::string& before,
                                             const HostsStore::Environment& environment);
