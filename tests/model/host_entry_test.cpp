// SPDX-License-Identifier: MIT
#include "hosts_document.h"
#include "hosts_edits.h"

#include <gtest/gtest.h>

using namespace pinecove;

namespace {

struct SystemCase {
    std::string line;
    bool isSystem;
};

class IsSystemTest : public ::testing::TestWithParam<SystemCase> {};

TEST_P(IsSystemTest, NeedsEveryNameToBeASystemName) {
    const HostsDocument document = parseHostsText(GetParam().line);
    ASSERT_EQ(document.entries.size(), 1u) << GetParam().line;
    EXPECT_EQ(document.entries.begin()->isSystem(), GetParam().isSystem) << GetParam().line;
}

INSTANTIATE_TEST_SUITE_P(
    Lines, IsSystemTest,
    ::testing::Values(SystemCase{"127.0.0.1 localhost", true}, SystemCase{"::1 localhost", true},
                      SystemCase{"255.255.255.255 broadcasthost", true},
                      SystemCase{"127.0.0.1 LocalHost", true},
                      SystemCase{"127.0.0.1 localhost LOCALHOST broadcasthost", true},
                      SystemCase{"#127.0.0.1 localhost", true},
                      SystemCase{"127.0.0.1 localhost myapp.test", false},
                      SystemCase{"127.0.0.1 localhost.localdomain", false},
                      SystemCase{"127.0.0.1 ip6-localhost", false}));

TEST(HostEntryTest, AnEntryWithoutNamesIsNeverSystem) {
    EXPECT_FALSE(HostEntry::added("127.0.0.1", {}).isSystem());
}

TEST(HostEntryTest, SystemNamesAreExactlyTheTwo) {
    EXPECT_EQ(HostEntry::systemHostnames(),
              (std::set<std::string, std::less<>>{"broadcasthost", "localhost"}));
}

TEST(HostEntryTest, KeepsTheFieldsOfItsLine) {
    const HostsDocument document = parseHostsText(" #\t10.0.0.5\tapi.test  web.test # note ");
    const HostEntry& entry = *document.entries.begin();
    EXPECT_EQ(entry.ip(), "10.0.0.5");
    EXPECT_EQ(entry.hostnames().toVector(), (std::vector<std::string>{"api.test", "web.test"}));
    EXPECT_EQ(entry.hostnames()[1], "web.test");
    EXPECT_EQ(entry.comment(), "note");
    EXPECT_FALSE(entry.isEnabled());
    EXPECT_FALSE(entry.originalEnabled());
    EXPECT_EQ(entry.raw(), " #\t10.0.0.5\tapi.test  web.test # note ");
}

TEST(HostEntryTest, AddedEntriesHaveNoCommentAndNoRawLine) {
    const HostEntry entry = HostEntry::added("::1", {"a.test", "B.test"});
    EXPECT_EQ(entry.ip(), "::1");
    EXPECT_EQ(entry.hostnames().toVector(), (std::vector<std::string>{"a.test", "B.test"}));
    EXPECT_FALSE(entry.comment().has_value());
    EXPECT_FALSE(entry.raw().has_value());
    EXPECT_TRUE(entry.isEnabled());
    EXPECT_TRUE(entry.originalEnabled());
    EXPECT_EQ(entry.id().bytes()[6] >> 4, 4);
}

TEST(HostEntryTest, EqualityCoversEveryField) {
    HostsDocument document = parseHostsText("127.0.0.1 a.test");
    const HostEntry before = *document.entries.begin();
    const Uuid id = before.id();

    toggleEntry(document, id);
    EXPECT_NE(*document.entries.find(id), before);
    toggleEntry(document, id);
    EXPECT_EQ(*document.entries.find(id), before);

    // The same line read twice gives two different entries: the ids differ.
    EXPECT_NE(*parseHostsText("127.0.0.1 a.test").entries.begin(), before);
    // An empty comment is not an absent one.
    EXPECT_NE(parseHostsText("127.0.0.1 a.test#").entries.begin()->comment(),
              parseHostsText("127.0.0.1 a.test").entries.begin()->comment());
}

TEST(HostEntryTest, CopiesOutliveTheirDocument) {
    HostEntry copy;
    {
        const HostsDocument document = parseHostsText(std::string("10.1.2.3 kept.test # c"));
        copy = *document.entries.begin();
    }
    EXPECT_EQ(copy.ip(), "10.1.2.3");
    EXPECT_EQ(copy.hostnames().front(), "kept.test");
    EXPECT_EQ(copy.raw(), "10.1.2.3 kept.test # c");
}

} // namespace
