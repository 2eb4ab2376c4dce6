// SPDX-License-Identifier: MIT
#include "hosts_document.h"

#include <gtest/gtest.h>

using namespace pinecove;

namespace {

TEST(HostsDocumentTest, SplitsAtLineFeedsOnly) {
    const HostsDocument document = parseHostsText("# a\r\n127.0.0.1 x.test\n\n#127.0.0.1 y.test\n");
    ASSERT_EQ(document.lines.size(), 5u);
    EXPECT_EQ(document.lines[0].rawText(), "# a\r");
    EXPECT_TRUE(document.lines[1].isEntry());
    EXPECT_EQ(document.lines[2].rawText(), "");
    EXPECT_TRUE(document.lines[3].isEntry());
    EXPECT_EQ(document.lines[4].rawText(), "");
}

TEST(HostsDocumentTest, OrdersEntriesAsInTheFile) {
    const HostsDocument document =
        parseHostsText("10.0.0.3 c.test\n# note\n10.0.0.1 a.test\n#10.0.0.2 b.test");
    ASSERT_EQ(document.order.size(), 3u);
    std::vector<std::string> names;
    for (const Uuid& id : document.order)
        names.emplace_back(document.entries.find(id)->hostnames().front());
    EXPECT_EQ(names, (std::vector<std::string>{"c.test", "a.test", "b.test"}));
    for (const Line& line : document.lines)
        if (line.isEntry())
            EXPECT_TRUE(document.entries.contains(line.entryId()));
}

TEST(HostsDocumentTest, EveryLoadMakesNewIds) {
    const std::string text = "127.0.0.1 a.test\n127.0.0.1 b.test\n";
    const HostsDocument first = parseHostsText(text);
    const HostsDocument second = parseHostsText(text);
    for (const Uuid& id : first.order)
        EXPECT_FALSE(second.entries.contains(id));
    EXPECT_NE(first.order[0], first.order[1]);
}

TEST(HostsDocumentTest, AnEmptyTextIsOneEmptyLine) {
    const HostsDocument document = parseHostsText("");
    ASSERT_EQ(document.lines.size(), 1u);
    EXPECT_EQ(document.lines[0].rawText(), "");
    EXPECT_TRUE(document.entries.empty());
}

} // namespace
