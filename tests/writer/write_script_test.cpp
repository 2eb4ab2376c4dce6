// SPDX-License-Identifier: MIT
// The macOS root script is checked whole through pinecove-inspect --applescript (inspect_cli);
// a text without a final line feed (a restored backup may end so) is checked here.
#include "write_script.h"

#include <gtest/gtest.h>

TEST(WriteScriptTest, EndsATextWithoutLineFeedBeforeTheDelimiter) {
    EXPECT_NE(PrivilegedWriter::writeScript("a", "D").find("<<'D'\na\nD\n"), std::string::npos);
}
