// SPDX-License-Identifier: MIT
#pragma once

#include "helper_request.h"

#include <optional>
#include <string>
#include <string_view>

// The lock file in `etc` that every helper holds while it checks and replaces the hosts file.
inline constexpr std::string_view lockFileName = "pinecove-hosts.lock";

// Replaces `etc`/hosts with the request's text, only while it still holds the expected text,
// holding the lock file from the check to the rename (waiting for any other helper), and first
// removing the temporary files that a killed helper left:
// a new temporary file in the same folder (created exclusively, so never through a symlink),
// mode 644 and owner root:root, every byte written and synced, renamed over the file, the folder
// synced. The temporary file is removed on every failure.
std::optional<HelperRefusal> replaceHostsFile(const std::string& etc, const HelperRequest& request);

// Asks systemd-resolved and nscd, where present, to forget cached names. Run by absolute path,
// without a shell; a missing or failing one is no failure of the write.
void flushNameCaches();
