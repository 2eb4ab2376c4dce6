// SPDX-License-Identifier: MIT
#include "hosts_document.h"
#include "model_invariants.h"
#include "utf8.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <sstream>

using namespace pinecove;
namespace fs = std::filesystem;

namespace {

std::string readBytes(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}

std::vector<fs::path> hostsFilesIn(const fs::path& dir) {
    std::vector<fs::path> files;
    for (const auto& item : fs::directory_iterator(dir))
        if (item.path().extension() == ".hosts")
            files.push_back(item.path());
    return files;
}

void expectByteForByte(const std::vector<fs::path>& files) {
    for (const fs::path& file : files) {
        SCOPED_TRACE(file.filename().string());
        const std::string text = readBytes(file);
        ASSERT_TRUE(isValidUtf8(text));
        const auto failure = test::checkModelInvariants(text);
        EXPECT_FALSE(failure) << *failure;
    }
}

// The project's own sample files and a block list from its generator.
TEST(CorpusRoundTripTest, OwnSamplesSurviveByteForByte) {
    std::vector<fs::path> files = hostsFilesIn(PINECOVE_TEST_DATA_DIR);
    ASSERT_GE(files.size(), 6u);
    files.push_back(PINECOVE_GENERATED_HOSTS);
    expectByteForByte(files);
}

// Real-world files kept beside the clone, where there are any: reported as skipped otherwise.
TEST(CorpusRoundTripTest, ExtraCorpusSurvivesByteForByte) {
    const fs::path dir = PINECOVE_CORPUS_DIR;
    const std::vector<fs::path> files =
        fs::is_directory(dir) ? hostsFilesIn(dir) : std::vector<fs::path>{};
    if (files.empty())
        GTEST_SKIP() << "no extra corpus at " << dir << ": only the project's own files ran";
    std::cout << "extra corpus: " << files.size() << " files from " << dir << '\n';
    expectByteForByte(files);
}

} // namespace
