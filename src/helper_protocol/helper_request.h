// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

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

// What follows the helper's path on its command line: `--expected-size N --size M`.
std::vector<std::string> requestArguments(std::size_t expectedSize, std::size_t size);

// Reads the arguments above and then exactly N + M bytes from `fd`, which must end there. The new
// text must be UTF-8 and within the write limit.
std::optional<HelperRefusal> readRequest(int argc, const char* const* argv, int fd,
                                         HelperRequest& request);
