// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <stdexcept>
#include <stdlib.h>
#include <string>

namespace pinecove::test {

// A new folder of the test's own (mkdtemp: a fresh name, mode 700), removed with the object,
// also when an assertion ends the test early.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = std::filesystem::temp_directory_path() / "pinecove-XXXXXX";
        if (!::mkdtemp(name.data()))
            throw std::runtime_error("mkdtemp failed");
        path_ = name;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

} // namespace pinecove::test
