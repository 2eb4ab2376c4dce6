// SPDX-License-Identifier: MIT
#include "write_script.h"

#include <cstdio>
#include <gtest/gtest.h>

using namespace PrivilegedWriter;

namespace {

const std::string delimiter = "PINECOVE_EOF_0123456789ABCDEF0123456789ABCDEF";

// What runs as root on macOS, line by line: a mode, an owner or a dropped line shows here.
TEST(WriteScriptTest, TheRootScriptExactly) {
    EXPECT_EQ(writeScript("127.0.0.1 a.test", "EOF_1"),
              "set -e\n"
              "T=$(/usr/bin/mktemp /etc/hosts.pinecove.XXXXXX)\n"
              "/bin/cat > \"$T\" <<'EOF_1'\n127.0.0.1 a.test\nEOF_1\n"
              "/bin/chmod 644 \"$T\"\n"
              "/usr/sbin/chown root:wheel \"$T\"\n"
              "/bin/mv \"$T\" /etc/hosts\n"
              "/usr/bin/dscacheutil -flushcache\n"
              "/usr/bin/killall -HUP mDNSResponder 2>/dev/null || /usr/bin/true");
}

// AppleScript's string literal, read back: the command must carry the script unchanged.
TEST(WriteScriptTest, AppleScriptCommandCarriesTheScriptOnOneLine) {
    const std::string script = writeScript("1.2.3.4 a # \"q\" \\n \\\\ $x `y` 'z' \r\n", delimiter);
    const std::string command = appleScriptCommand(script);
    const std::string head = "do shell script \"";
    const std::string tail = "\" with administrator privileges with prompt "
                             "\"Pinecove wants to update your hosts file.\"";
    ASSERT_TRUE(command.starts_with(head) && command.ends_with(tail)) << command;
    EXPECT_EQ(command.find('\n'), std::string::npos);
    std::string unescaped;
    for (std::size_t i = head.size(); i < command.size() - tail.size(); ++i) {
        const bool escape = command[i] == '\\';
        unescaped += escape && command[i + 1] == 'n' ? '\n' : command[i + escape];
        i += escape;
    }
    EXPECT_EQ(unescaped, script);
}

// Runs the here-document part of the real script into a temporary file, which the shell reaches
// through the descriptor it inherits: whatever the text holds, the shell must expand nothing.
TEST(WriteScriptTest, TheShellWritesTheTextByteForByte) {
    const std::string text = "127.0.0.1 a.test # $HOME `id` $(id) \\ \\\\ \" ' \r\n"
                             "# caf\u00e9 \u00A0 \t PINECOVE_EOF_ <<'X'\nno final line feed";
    const std::string script = writeScript(text, newDelimiter());
    FILE* target = std::tmpfile();
    ASSERT_TRUE(target);
    const std::size_t cat = script.find("/bin/cat");
    const std::string heredoc = "set -e\nT=/dev/fd/" + std::to_string(::fileno(target)) + "\n" +
                                script.substr(cat, script.find("\n/bin/chmod") - cat) + "\n";
    FILE* shell = ::popen("/bin/sh -s", "w");
    ASSERT_TRUE(shell);
    std::fwrite(heredoc.data(), 1, heredoc.size(), shell);
    ASSERT_EQ(::pclose(shell), 0);
    std::string written(text.size() + 16, '\0');
    written.resize(std::fread(written.data(), 1, written.size(), target));
    std::fclose(target);
    EXPECT_EQ(written, text + "\n");
}

} // namespace
