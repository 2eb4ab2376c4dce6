// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>

// What the root helper is asked to do: replace /etc/hosts with `text`, but only while the file
// still holds `expected` (the text the app loaded). Both arrive on standard input, in that order,
// with their sizes named on the command line; nothing else is accepted.
struct HelperRequest {
    std::string expected;
    std::string text;
};

struct HelperRefusal {
    int status;
    std::string message;
};

// Exit statuses, clear of pkexec's own 126 (dismissed) and 127 (not authorised).
namespace HelperStatus {
inline constexpr int usage = 2;
inline constexpr int refusedInput = 3;
inline constexpr int changedOnDisk = 4;
inline constexpr int writeFailed = 5;
} // namespace HelperStatus

// The hosts file the app loaded may be larger than what may be written (a user thinning a block
// list), but not without bound.
inline constexpr std::size_t maxExpectedBytes = 64u << 20;

// Reads `--expected-size N --size M` and then exactly N + M bytes from `fd`, which must end
// there. The new text must be UTF-8 and within the write limit.
std::optional<HelperRefusal> readRequest(int argc, const char* const* argv, int fd,
                                         HelperRequest& request);
