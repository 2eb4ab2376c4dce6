// SPDX-License-Identifier: MIT
#include "run_process.h"
#include "temporary_folder.h"
#include "write_script.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

using namespace PrivilegedWriter;

namespace {

const std::string delimiter = "PINECOVE_EOF_0123456789ABCDEF0123456789ABCDEF";

TEST(WriteScriptTest, MacScriptIsTheNineLines) {
    EXPECT_EQ(writeScript("127.0.0.1 a.test\n", delimiter),
              "set -e\n"
              "T=$(/usr/bin/mktemp /etc/hosts.pinecove.XXXXXX)\n"
              "/bin/cat > \"$T\" <<'PINECOVE_EOF_0123456789ABCDEF0123456789ABCDEF'\n"
              "127.0.0.1 a.test\n"
              "PINECOVE_EOF_0123456789ABCDEF0123456789ABCDEF\n"
              "/bin/chmod 644 \"$T\"\n"
              "/usr/sbin/chown root:wheel \"$T\"\n"
              "/bin/mv \"$T\" /etc/hosts\n"
              "/usr/bin/dscacheutil -flushcache\n"
              "/usr/bin/killall -HUP mDNSResponder 2>/dev/null || /usr/bin/true");
}

struct BodyCase {
    std::string text;
    std::string body;
};

class ScriptBodyTest : public ::testing::TestWithParam<BodyCase> {};

TEST_P(ScriptBodyTest, EndsTheTextInOneLineFeedBeforeTheDelimiter) {
    const std::string script = writeScript(GetParam().text, delimiter);
    const std::string start = "'" + delimiter + "'\n";
    const std::size_t from = script.find(start) + start.size();
    const std::size_t to = script.find("\n" + delimiter + "\n") + 1;
    EXPECT_EQ(script.substr(from, to - from), GetParam().body);
}

INSTANTIATE_TEST_SUITE_P(Texts, ScriptBodyTest,
                         ::testing::Values(BodyCase{"a\n", "a\n"}, BodyCase{"a", "a\n"},
                                           BodyCase{"", "\n"}, BodyCase{"a\n\n", "a\n\n"},
                                           BodyCase{"a\r", "a\r\n"}));

TEST(WriteScriptTest, DelimitersAreFreshEachCall) {
    const std::string first = newDelimiter();
    EXPECT_EQ(first.size(), 45u);
    EXPECT_TRUE(first.starts_with("PINECOVE_EOF_"));
    EXPECT_EQ(first.find_first_not_of("0123456789ABCDEF", 13), std::string::npos);
    EXPECT_NE(first, newDelimiter());
}

TEST(WriteScriptTest, SizeLimitCountsUtf8Bytes) {
    EXPECT_FALSE(isTooLarge(std::string(199'999, 'a')));
    EXPECT_TRUE(isTooLarge(std::string(200'000, 'a')));
    std::string twoByte;
    for (int i = 0; i < 100'000; ++i)
        twoByte += "\u00e9";
    EXPECT_TRUE(isTooLarge(twoByte));
}

TEST(AppleScriptTest, EscapesBackslashesFirstThenQuotesThenLineFeeds) {
    EXPECT_EQ(escapeForAppleScript("a\"b\\c\n"), "a\\\"b\\\\c\\n");
    EXPECT_EQ(escapeForAppleScript("tab\tcr\r$`'"), "tab\tcr\r$`'");
}

// What AppleScript makes of a string literal's contents.
std::string unescapeAppleScriptLiteral(std::string_view literal) {
    std::string text;
    for (std::size_t i = 0; i < literal.size(); ++i) {
        if (literal[i] == '\\' && i + 1 < literal.size()) {
            const char next = literal[++i];
            text += next == 'n' ? '\n' : next;
        } else {
            text += literal[i];
        }
    }
    return text;
}

TEST(AppleScriptTest, CommandCarriesTheScriptUnchangedOnOneLine) {
    const std::string script =
        writeScript("1.2.3.4 a # \"q\" \\n \\\\ $x `y` 'z' \r caf\u00e9\n", delimiter);
    const std::string command = appleScriptCommand(script);
    const std::string head = "do shell script \"";
    const std::string tail = "\" with administrator privileges with prompt "
                             "\"Pinecove wants to update your hosts file.\"";
    ASSERT_TRUE(command.starts_with(head));
    ASSERT_TRUE(command.ends_with(tail));
    EXPECT_EQ(command.find('\n'), std::string::npos);
    const std::string literal =
        command.substr(head.size(), command.size() - head.size() - tail.size());
    EXPECT_EQ(unescapeAppleScriptLiteral(literal), script);
}

// Runs the here-document part of the real script into a temporary file: whatever the text holds,
// the shell must expand nothing.
TEST(WriteScriptTest, TheShellWritesTheTextByteForByte) {
    const pinecove::test::TemporaryFolder folder;
    const std::filesystem::path target = folder / "hosts";
    const std::string text = "127.0.0.1 a.test # $HOME `id` $(id) \\ \\\\ \" ' \r\n"
                             "# caf\u00e9 \u00A0 \t PINECOVE_EOF_ <<'X'\nno final line feed";
    const std::string script = writeScript(text, newDelimiter());
    const std::size_t catLine = script.find("/bin/cat");
    const std::size_t chmodLine = script.find("\n/bin/chmod");
    const std::string heredoc = "set -e\nT='" + target.string() + "'\n" +
                                script.substr(catLine, chmodLine - catLine) + "\n";
    const auto result = pinecove::test::runProcess("/bin/sh", {"-s"}, heredoc);
    ASSERT_EQ(result.exitCode, 0) << result.err;
    std::ifstream in(target, std::ios::binary);
    std::ostringstream written;
    written << in.rdbuf();
    EXPECT_EQ(written.str(), text + "\n");
}

} // namespace
