// SPDX-License-Identifier: MIT
#include "write_script.h"

#include <cstdio>
#include <gtest/gtest.h>

using namespace PrivilegedWriter;

namespace {

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
