// SPDX-License-Identifier: MIT
// The model's promises over many texts: random ones built from the pieces parsers get wrong, the
// project's sample files and any real-world corpus beside the clone; and the entry table against a
// plain map under random edits.
#include "entry_table.h"
#include "hosts_document.h"
#include "model_invariants.h"
#include "utf8.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <random>
#include <sstream>
#include <unordered_map>

using namespace pinecove;
using namespace pinecove::test;
namespace fs = std::filesystem;

namespace {

// Pieces that hosts files contain and that parsers get wrong: markers, separators, Unicode
// spaces, carriage returns, zone ids, prose that looks like a mapping, bad names.
// One string, "|" between pieces, so the list reads as a few lines rather than forty.
const std::vector<std::string> fragments = [] {
    const std::string all = "127.0.0.1|0.0.0.0|::1|fe80::1%lo0|10.0.0.5|999.1.1.1|localhost|"
                            "broadcasthost|LocalHost|myapp.test|api.myapp.test|my_app|-bad|.bad|"
                            "bad!name|is|the|router|#|##|# | |  |\t|\u00A0|\u3000|\u2003|\r|"
                            "caf\u00e9|%|# note|#x";
    std::vector<std::string> pieces;
    for (std::size_t start = 0, bar; start <= all.size(); start = bar + 1) {
        bar = std::min(all.find('|', start), all.size());
        pieces.push_back(all.substr(start, bar - start));
    }
    return pieces;
}();

std::string randomText(std::mt19937& random) {
    std::string text;
    const int lines = static_cast<int>(random() % 12);
    for (int line = 0; line < lines; ++line) {
        const int pieces = static_cast<int>(random() % 7);
        for (int piece = 0; piece < pieces; ++piece)
            text += fragments[random() % fragments.size()];
        // Mostly line feeds, sometimes runs of them, and sometimes no final one.
        if (line + 1 < lines || random() % 3 != 0)
            text += std::string(random() % 5 == 0 ? 2 + random() % 3 : 1, '\n');
    }
    return text;
}

TEST(ModelPropertiesTest, HoldForRandomTexts) {
    std::mt19937 random(20261122);
    for (int i = 0; i < 20000; ++i) {
        const std::string text = randomText(random);
        const auto failure = checkModelInvariants(text);
        ASSERT_FALSE(failure) << *failure << "\nfor the text:\n" << ::testing::PrintToString(text);
    }
}

// Random inserts and erases checked against a plain map: catches broken probe runs after
// backward-shift deletion, stale positions after the dense vector is compacted, and lost
// entries across index growth.
TEST(EntryTableTest, AgreesWithAReferenceMapUnderRandomEdits) {
    std::mt19937 random(7);
    EntryTable table;
    std::unordered_map<Uuid, std::string, UuidHash> reference;
    std::vector<Uuid> ids;

    for (int step = 0; step < 20000; ++step) {
        const bool grow = ids.empty() || random() % 3 != 0;
        if (grow) {
            const std::string name = "n" + std::to_string(step) + ".test";
            HostEntry entry = HostEntry::added("127.0.0.1", {name});
            ids.push_back(entry.id());
            reference[entry.id()] = name;
            const std::uint32_t position = table.insert(std::move(entry));
            ASSERT_EQ(table.find(ids.back(), position)->hostnames().front(), name);
        } else {
            const std::size_t pick = random() % ids.size();
            ASSERT_TRUE(table.erase(ids[pick]));
            ASSERT_FALSE(table.erase(ids[pick]));
            reference.erase(ids[pick]);
            ids[pick] = ids.back();
            ids.pop_back();
        }
        if (step % 997 == 0) {
            ASSERT_EQ(table.size(), reference.size());
            for (const auto& [id, name] : reference) {
                const HostEntry* found = table.find(id);
                ASSERT_NE(found, nullptr);
                ASSERT_EQ(found->hostnames().front(), name);
                // A stale or wrong position must still find the right entry.
                ASSERT_EQ(table.find(id, 0)->id(), id);
            }
        }
    }
    EXPECT_EQ(table.find(Uuid::random()), nullptr);
}

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

// The project's own sample files.
TEST(CorpusRoundTripTest, OwnSamplesSurviveByteForByte) {
    const std::vector<fs::path> files = hostsFilesIn(PINECOVE_TEST_DATA_DIR);
    ASSERT_GE(files.size(), 6u);
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
