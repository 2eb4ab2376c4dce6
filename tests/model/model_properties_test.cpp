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

// Pieces that hosts files contain and that parsers get wrong.
const std::vector<std::string> fragments = {
    // Addresses, names good and bad, and prose that looks like a mapping.
    "127.0.0.1", "0.0.0.0", "::1", "fe80::1%lo0", "10.0.0.5", "999.1.1.1", "localhost",
    "broadcasthost", "LocalHost", "myapp.test", "api.myapp.test", "my_app", "-bad", ".bad",
    "bad!name", "is", "the", "router",
    // Markers, separators, Unicode spaces, a carriage return, a zone id's sign.
    "#", "##", "# ", " ", "  ", "\t", "\u00A0", "\u3000", "\u2003", "\r", "caf\u00e9", "%",
    "# note", "#x"};

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
        for (const auto& failure : {checkModelInvariants(text), checkTypedInputInvariants(text)})
            ASSERT_FALSE(failure) << *failure << "\nfor the text:\n"
                                  << ::testing::PrintToString(text);
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

// Every .hosts file in `dir` keeps the model's promises; returns how many there were.
std::size_t checkHostsFilesIn(const fs::path& dir) {
    std::size_t files = 0;
    for (const auto& item : fs::directory_iterator(dir)) {
        if (item.path().extension() != ".hosts")
            continue;
        ++files;
        std::ostringstream bytes;
        bytes << std::ifstream(item.path(), std::ios::binary).rdbuf();
        const std::string text = bytes.str();
        EXPECT_TRUE(isValidUtf8(text)) << item.path();
        const auto failure = checkModelInvariants(text);
        EXPECT_FALSE(failure) << item.path() << ": " << failure.value_or("");
    }
    return files;
}

TEST(CorpusRoundTripTest, OwnSamplesSurviveByteForByte) {
    EXPECT_GE(checkHostsFilesIn(PINECOVE_TEST_DATA_DIR), 6u);
}

// Real-world files kept beside the clone, where there are any: reported as skipped otherwise.
TEST(CorpusRoundTripTest, ExtraCorpusSurvivesByteForByte) {
    const fs::path dir = PINECOVE_CORPUS_DIR;
    const std::size_t files = fs::is_directory(dir) ? checkHostsFilesIn(dir) : 0;
    if (files == 0)
        GTEST_SKIP() << "no extra corpus at " << dir << ": only the project's own files ran";
    std::cout << "extra corpus: " << files << " files from " << dir << '\n';
}

} // namespace
