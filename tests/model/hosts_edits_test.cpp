// SPDX-License-Identifier: MIT
#include "hosts_document.h"
#include "hosts_edits.h"

#include <gtest/gtest.h>

using namespace pinecove;

namespace {

const std::string sample = "127.0.0.1 localhost\n"
                           "10.0.0.1 MyApp.test\n"
                           "#10.0.0.2 off.test\n"
                           "10.0.0.3 b.test # keep\n";

struct AddCase {
    std::string name;
    std::string ip;
    std::vector<std::string> hostnames;
    std::optional<std::string> addedLine; // absent when nothing is added
};

class AddEntryTest : public ::testing::TestWithParam<AddCase> {};

TEST_P(AddEntryTest, AddsOnlyNamesNoEntryHas) {
    HostsDocument document = parseHostsText(sample);
    const std::string before = serialized(document);
    const auto id = addEntry(document, GetParam().ip, GetParam().hostnames);
    ASSERT_EQ(id.has_value(), GetParam().addedLine.has_value());
    if (!id) {
        EXPECT_EQ(serialized(document), before);
        EXPECT_EQ(document.order.size(), 4u);
        return;
    }
    // Appended after the file's empty last line, so one blank line stands before it.
    EXPECT_EQ(serialized(document), before + "\n" + *GetParam().addedLine + "\n");
    EXPECT_EQ(document.order.back(), *id);
    EXPECT_EQ(document.lines.back().entryId(), *id);
}

INSTANTIATE_TEST_SUITE_P(
    Names, AddEntryTest,
    ::testing::Values(
        AddCase{"New", "127.0.0.1", {"new.test"}, "127.0.0.1\tnew.test"},
        AddCase{"TakenInOtherCase", "127.0.0.1", {"myapp.TEST"}, std::nullopt},
        AddCase{"TakenByDisabledLine", "127.0.0.1", {"off.test"}, std::nullopt},
        AddCase{"TakenBySystemEntry", "127.0.0.1", {"localhost"}, std::nullopt},
        AddCase{"PartlyTaken", "127.0.0.1", {"a.test", "b.test"}, "127.0.0.1\ta.test"},
        AddCase{"SameNameTwice", "127.0.0.1", {"n.test", "n.test"}, "127.0.0.1\tn.test n.test"},
        AddCase{"CaseKept", "10.0.0.9", {"Mixed.Test"}, "10.0.0.9\tMixed.Test"},
        AddCase{
            "ExistingAddressMakesNewLine", "10.0.0.1", {"second.test"}, "10.0.0.1\tsecond.test"}),
    [](const auto& info) { return info.param.name; });

TEST(HostsEditsTest, LaterAddsFollowWithoutBlankLines) {
    HostsDocument document = parseHostsText("# top\n");
    addEntry(document, "127.0.0.1", {"a.test"});
    addEntry(document, "127.0.0.1", {"b.test"});
    EXPECT_EQ(serialized(document), "# top\n\n127.0.0.1\ta.test\n127.0.0.1\tb.test\n");
    // After applying and reading back, the next add again gets one blank line.
    HostsDocument reloaded = parseHostsText(serialized(document));
    addEntry(reloaded, "127.0.0.1", {"c.test"});
    EXPECT_EQ(serialized(reloaded),
              "# top\n\n127.0.0.1\ta.test\n127.0.0.1\tb.test\n\n127.0.0.1\tc.test\n");
}

TEST(HostsEditsTest, AddThenDeleteRestoresTheText) {
    HostsDocument document = parseHostsText(sample);
    const std::string before = serialized(document);
    const auto id = addEntry(document, "127.0.0.1", {"temp.test"});
    ASSERT_TRUE(id);
    EXPECT_TRUE(deleteEntry(document, *id));
    EXPECT_EQ(serialized(document), before);
}

TEST(HostsEditsTest, AddedEntriesToggleWithAMarker) {
    HostsDocument document = parseHostsText("");
    const auto id = addEntry(document, "127.0.0.1", {"a.test"});
    ASSERT_TRUE(id);
    toggleEntry(document, *id);
    EXPECT_EQ(serialized(document), "\n# 127.0.0.1\ta.test\n");
    toggleEntry(document, *id);
    EXPECT_EQ(serialized(document), "\n127.0.0.1\ta.test\n");
}

TEST(HostsEditsTest, SystemAndUnknownEntriesAreLocked) {
    HostsDocument document = parseHostsText(sample);
    const std::string before = serialized(document);
    const Uuid system = document.order.front();
    ASSERT_TRUE(document.entries.find(system)->isSystem());
    const Uuid stale = parseHostsText(sample).order[1];

    for (const Uuid& id : {system, stale, Uuid()}) {
        EXPECT_FALSE(toggleEntry(document, id));
        EXPECT_FALSE(deleteEntry(document, id));
    }
    EXPECT_EQ(serialized(document), before);
    EXPECT_EQ(document.order.size(), 4u);
}

TEST(HostsEditsTest, DeleteRemovesTheWholeLineAndItsId) {
    HostsDocument document = parseHostsText(sample);
    const Uuid withComment = document.order[3];
    EXPECT_TRUE(deleteEntry(document, withComment));
    EXPECT_FALSE(deleteEntry(document, withComment));
    EXPECT_EQ(serialized(document),
              "127.0.0.1 localhost\n10.0.0.1 MyApp.test\n#10.0.0.2 off.test\n");
    EXPECT_EQ(std::count(document.order.begin(), document.order.end(), withComment), 0);
}

} // namespace
