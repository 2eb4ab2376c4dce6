// SPDX-License-Identifier: MIT
#include "hosts_document.h"
#include "hosts_edits.h"
#include "hosts_writer.h"
#include "utf8.h"
#include "whitespace.h"

#include <gtest/gtest.h>

using namespace pinecove;

namespace {

const std::string sample = "127.0.0.1 localhost\n"
                           "10.0.0.1 MyApp.test\n"
                           "#10.0.0.2 off.test\n"
                           "10.0.0.3 b.test # keep\n";

TEST(HostsEditsTest, ToggleWritesTheLineFromItsRawText) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"127.0.0.1 myapp.test", "# 127.0.0.1 myapp.test"},
        {"  127.0.0.1 myapp.test", "#   127.0.0.1 myapp.test"},
        {" # 10.0.0.5\tapi.test # staging", "10.0.0.5\tapi.test # staging"},
        {"#\u00A010.0.0.5 a.test\u2009", "10.0.0.5 a.test"},
        {"127.0.0.1 a.test # dev\r", "# 127.0.0.1 a.test # dev\r"},
    };
    for (const auto& [raw, toggled] : cases) {
        HostsDocument document = parseHostsText(raw);
        const Uuid id = document.order.at(0);
        ASSERT_TRUE(toggleEntry(document, id));
        EXPECT_EQ(lineText(*document.entries.find(id)), toggled) << raw;
        toggleEntry(document, id);
        EXPECT_EQ(lineText(*document.entries.find(id)), raw);
    }
}

TEST(HostsEditsTest, AddsOnlyNamesNoEntryHas) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"new.test"}, "127.0.0.1\tnew.test"},
        {{"myapp.TEST"}, ""},
        {{"off.test"}, ""},
        {{"LOCALHOST"}, ""},
        {{"a.test", "b.test"}, "127.0.0.1\ta.test"},
        {{"n.test", "n.test"}, "127.0.0.1\tn.test n.test"},
    };
    for (const auto& [names, line] : cases) {
        HostsDocument document = parseHostsText(sample);
        const auto id = addEntry(document, "127.0.0.1", names);
        // Appended after the file's empty last line, so one blank line stands before it.
        EXPECT_EQ(serialized(document), line.empty() ? sample : sample + "\n" + line + "\n");
        EXPECT_EQ(id.has_value(), !line.empty());
        if (id) {
            toggleEntry(document, *id);
            EXPECT_EQ(serialized(document), sample + "\n# " + line + "\n");
            deleteEntry(document, *id);
            EXPECT_EQ(serialized(document), sample);
        }
    }
}

TEST(HostsEditsTest, SystemAndUnknownEntriesAreLocked) {
    const std::vector<std::pair<std::string, bool>> cases = {
        {"::1 localhost", true},
        {"255.255.255.255 broadcasthost", true},
        {"#127.0.0.1 LocalHost LOCALHOST broadcasthost", true},
        {"127.0.0.1 localhost myapp.test", false},
        {"127.0.0.1 localhost.localdomain", false},
    };
    for (const auto& [line, system] : cases) {
        HostsDocument document = parseHostsText(line);
        const Uuid id = document.order.at(0);
        EXPECT_EQ(document.entries.find(id)->isSystem(), system) << line;
        EXPECT_EQ(toggleEntry(document, id), !system) << line;
    }
    HostsDocument document = parseHostsText(sample);
    const Uuid stale = parseHostsText(sample).order[1];
    EXPECT_FALSE(deleteEntry(document, document.order.front()));
    EXPECT_FALSE(deleteEntry(document, stale));
    EXPECT_FALSE(toggleEntry(document, stale));
    EXPECT_TRUE(deleteEntry(document, document.order[3]));
    EXPECT_EQ(serialized(document),
              "127.0.0.1 localhost\n10.0.0.1 MyApp.test\n#10.0.0.2 off.test\n");
    EXPECT_EQ(document.order.size(), 3u);
}

TEST(TextPrimitivesTest, TrimsTabAndEverySpaceSeparatorOnly) {
    for (const std::string ws :
         {"\t", " ", "\u00A0", "\u1680", "\u2000", "\u200A", "\u202F", "\u205F", "\u3000"})
        EXPECT_EQ(trimWhitespace(ws + ws + "a b" + ws), "a b") << "U+" << ws;
    for (const std::string other : {"\n", "\r", "\v", "\u200B", "\u2028", "\uFEFF", "\u3001"})
        EXPECT_EQ(trimWhitespace(other + "a" + other), other + "a" + other);
}

TEST(TextPrimitivesTest, AcceptsOnlyWellFormedUtf8) {
    for (const std::string text : {"", "caf\xC3\xA9", "\xF0\x9F\x8C\xB2 pine", "\xF4\x8F\xBF\xBF"})
        EXPECT_TRUE(isValidUtf8(text)) << text;
    for (const std::string bytes : {"\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                                    "abcdefgh\xC3", "\xC3(", "\x80", "latin1 caf\xE9 text"})
        EXPECT_FALSE(isValidUtf8(bytes)) << bytes;
}

} // namespace
