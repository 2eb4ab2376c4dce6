// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace pinecove::inspect {

struct ReadResult {
    std::optional<std::string> text; // absent on failure
    std::string error;               // one line, naming the file
};

// Reads FILE ("-" for standard input) as UTF-8 text, refusing anything that is not.
ReadResult readUtf8Text(const std::string& path);

} // namespace pinecove::inspect
