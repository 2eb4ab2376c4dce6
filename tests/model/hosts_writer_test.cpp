// SPDX-License-Identifier: MIT
#include "hosts_document.h"
#include "hosts_edits.h"
#include "hosts_writer.h"

#include <gtest/gtest.h>

using namespace pinecove;

namespace {

struct ToggledLineCase {
    std::string raw;
    bool toggle;
    std::string written;
};

class LineTextFromRawTest : public ::testing::TestWithParam<ToggledLineCase> {};

TEST_P(LineTextFromRawTest, DerivesTheLineFromItsRawText) {
    HostsDocument document = parseHostsText(GetParam().raw);
    ASSERT_EQ(document.entries.size(), 1u);
    const Uuid id = document.entries.begin()->id();
    if (GetParam().toggle)
        toggleEntry(document, id);
    EXPECT_EQ(lineText(*document.entries.find(id)), GetParam().written);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, LineTextFromRawTest,
    ::testing::Values(
        ToggledLineCase{"127.0.0.1 myapp.test", false, "127.0.0.1 myapp.test"},
        ToggledLineCase{"127.0.0.1 myapp.test", true, "# 127.0.0.1 myapp.test"},
        ToggledLineCase{"  127.0.0.1 myapp.test", true, "#   127.0.0.1 myapp.test"},
        ToggledLineCase{" # 10.0.0.5\tapi.test # staging", true, "10.0.0.5\tapi.test # staging"},
        ToggledLineCase{"#10.0.0.5 api.test", false, "#10.0.0.5 api.test"},
        ToggledLineCase{"#\u00A010.0.0.5 a.test\u2009", true, "10.0.0.5 a.test"},
        ToggledLineCase{"  127.0.0.1   spaced.test   # keep  ", false,
                        "  127.0.0.1   spaced.test   # keep  "},
        ToggledLineCase{"127.0.0.1 a.test # dev\r", true, "# 127.0.0.1 a.test # dev\r"}));

struct AddedLineCase {
    std::string ip;
    std::vector<std::string> hostnames;
    bool enabled;
    std::string written;
};

class LineTextFromFieldsTest : public ::testing::TestWithParam<AddedLineCase> {};

TEST_P(LineTextFromFieldsTest, UsesATabAndSingleSpaces) {
    HostEntry entry = HostEntry::added(GetParam().ip, GetParam().hostnames);
    entry.setEnabled(GetParam().enabled);
    EXPECT_EQ(lineText(entry), GetParam().written);
}

INSTANTIATE_TEST_SUITE_P(
    Added, LineTextFromFieldsTest,
    ::testing::Values(AddedLineCase{"127.0.0.1",
                                    {"myapp.test", "api.myapp.test"},
                                    true,
                                    "127.0.0.1\tmyapp.test api.myapp.test"},
                      AddedLineCase{"127.0.0.1",
                                    {"myapp.test", "api.myapp.test"},
                                    false,
                                    "# 127.0.0.1\tmyapp.test api.myapp.test"},
                      AddedLineCase{"fe80::1%en0", {"z.test"}, true, "fe80::1%en0\tz.test"}));

struct SerializedCase {
    std::string name;
    std::string text;
    std::string written;
};

class SerializedEndTest : public ::testing::TestWithParam<SerializedCase> {};

TEST_P(SerializedEndTest, EndsInExactlyOneLineFeed) {
    EXPECT_EQ(serialized(parseHostsText(GetParam().text)), GetParam().written);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, SerializedEndTest,
    ::testing::Values(SerializedCase{"Empty", "", "\n"},
                      SerializedCase{"OnlyLineFeeds", "\n\n\n", "\n"},
                      SerializedCase{"OneLineFeed", "a\n", "a\n"},
                      SerializedCase{"NoFinalLineFeed", "a\n127.0.0.1 x.test",
                                     "a\n127.0.0.1 x.test\n"},
                      SerializedCase{"TrailingBlankLines", "a\n\n\n\n", "a\n"},
                      SerializedCase{"BlankLinesInside", "\n\na\n\n\nb\n", "\n\na\n\n\nb\n"},
                      SerializedCase{"CarriageReturnKept", "a\r\nb\r", "a\r\nb\r\n"},
                      SerializedCase{"SpacesAreNotBlank", "a\n  \n", "a\n  \n"}),
    [](const auto& info) { return info.param.name; });

TEST(SerializedTest, ADeletedEntryLeavesNoPieceBehind) {
    HostsDocument document = parseHostsText("# top\n127.0.0.1 gone.test # note\n# bottom\n");
    deleteEntry(document, document.order.front());
    EXPECT_EQ(serialized(document), "# top\n# bottom\n");
}

TEST(SerializedTest, DeletingTheOnlyEntryGivesOneLineFeed) {
    HostsDocument document = parseHostsText("127.0.0.1 only.test\n");
    deleteEntry(document, document.order.front());
    EXPECT_EQ(serialized(document), "\n");
}

TEST(SerializedTest, NoLinesGiveOneLineFeed) {
    EXPECT_EQ(serialized({}, EntryTable()), "\n");
}

} // namespace
