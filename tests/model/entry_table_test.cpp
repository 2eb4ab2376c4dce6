// SPDX-License-Identifier: MIT
#include "entry_table.h"

#include <gtest/gtest.h>
#include <random>
#include <unordered_map>

using namespace pinecove;

namespace {

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
    EXPECT_FALSE(table.contains(Uuid::random()));
}

} // namespace
