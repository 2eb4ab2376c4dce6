#include "hosts_document.h"
#include "model_invariants.h"
#include "utf8.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
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

std::vector<fs::path> corpusFiles() {
    std::vector<fs::path> files{PINECOVE_GENERATED_HOSTS};
    const fs::path dir = PINECOVE_CORPUS_DIR;
    if (fs::is_directory(dir))
        for (const auto& item : fs::directory_iterator(dir))
            if (item.path().extension() == ".hosts")
                files.push_back(item.path());
    return files;
}

// The shared corpus of real files, plus a block list made by the shared generator.
TEST(CorpusRoundTripTest, EveryRealFileSurvivesByteForByte) {
    const std::vector<fs::path> files = corpusFiles();
    if (files.size() == 1)
        GTEST_SKIP() << "no hosts files found in " << PINECOVE_CORPUS_DIR
                     << " (set PINECOVE_CORPUS_DIR to the shared corpus)";
    for (const fs::path& file : files) {
        SCOPED_TRACE(file.filename().string());
        const std::string text = readBytes(file);
        ASSERT_TRUE(isValidUtf8(text));
        EXPECT_EQ(serialized(parseHostsText(text)), test::expectedRoundTrip(text));
        const auto failure = test::checkModelInvariants(text);
        EXPECT_FALSE(failure) << *failure;
    }
}

} // namespace
