// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace pinecove::test {

struct ProcessResult {
    int exitCode = -1; // -1 when the process did not exit normally
    std::string out;
    std::string err;
};

// Runs a program with arguments (no shell), feeding `input` to its standard input.
ProcessResult runProcess(const std::string& program, const std::vector<std::string>& arguments,
                         const std::string& input = {});

} // namespace pinecove::test
