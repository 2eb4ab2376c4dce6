// SPDX-License-Identifier: MIT
#include "utf8.h"
#include "uuid.h"
#include "whitespace.h"

#include <gtest/gtest.h>
#include <set>
#include <sys/wait.h>
#include <unistd.h>

using namespace pinecove;

namespace {

// Every Unicode space separator, and the tab.
const std::vector<std::string> whitespace = {
    "\t",     " ",      "\u00A0", "\u1680", "\u2000", "\u2001", "\u2002", "\u2003", "\u2004",
    "\u2005", "\u2006", "\u2007", "\u2008", "\u2009", "\u200A", "\u202F", "\u205F", "\u3000"};
// Look-alikes that are not white space here.
const std::vector<std::string> notWhitespace = {"\n",     "\r",     "\v",     "\f",     "\u200B",
                                                "\u2028", "\u00AD", "\uFEFF", "\u180E", "\u3001"};

TEST(WhitespaceTest, TrimsTabAndEverySpaceSeparatorAtBothEnds) {
    for (const std::string& ws : whitespace)
        EXPECT_EQ(trimWhitespace(ws + ws + "a b" + ws), "a b") << "U+" << ws;
}

TEST(WhitespaceTest, KeepsOtherCharacters) {
    for (const std::string& other : notWhitespace)
        EXPECT_EQ(trimWhitespace(other + "a" + other), other + "a" + other);
}

TEST(WhitespaceTest, TrimmingEverythingLeavesNothing) {
    std::string all;
    for (const std::string& ws : whitespace)
        all += ws;
    EXPECT_EQ(trimWhitespace(all), "");
}

struct Utf8Case {
    std::string bytes;
    bool valid;
};

class Utf8Test : public ::testing::TestWithParam<Utf8Case> {};

TEST_P(Utf8Test, AcceptsOnlyWellFormedText) {
    EXPECT_EQ(isValidUtf8(GetParam().bytes), GetParam().valid);
}

INSTANTIATE_TEST_SUITE_P(
    Bytes, Utf8Test,
    ::testing::Values(Utf8Case{"", true},
                      Utf8Case{"plain ascii text, long enough for chunks", true},
                      Utf8Case{"caf\xC3\xA9", true}, Utf8Case{"\xE2\x82\xAC", true},
                      Utf8Case{"\xF0\x9F\x8C\xB2 pine", true}, Utf8Case{"\xF4\x8F\xBF\xBF", true},
                      Utf8Case{"\xEF\xBB\xBF# with BOM", true},
                      Utf8Case{"\xC0\xAF", false},                       // overlong
                      Utf8Case{"\xE0\x80\xAF", false},                   // overlong
                      Utf8Case{"\xED\xA0\x80", false},                   // surrogate
                      Utf8Case{"\xF4\x90\x80\x80", false},               // above U+10FFFF
                      Utf8Case{"abcdefgh\xC3", false},                   // cut short
                      Utf8Case{"\xC3(", false}, Utf8Case{"\x80", false}, // stray continuation
                      Utf8Case{"\xFF", false}, Utf8Case{"latin1 caf\xE9 text", false}));

TEST(UuidTest, RandomIdsAreVersionFourAndDistinct) {
    std::set<std::string> seen;
    for (int i = 0; i < 5000; ++i) {
        const Uuid id = Uuid::random();
        EXPECT_EQ(id.bytes()[6] >> 4, 4);
        EXPECT_EQ(id.bytes()[8] >> 6, 2);
        seen.insert(id.toString());
    }
    EXPECT_EQ(seen.size(), 5000u);
}

TEST(UuidTest, AForkedChildDoesNotRepeatItsParentsIds) {
    (void)Uuid::random(); // the parent's stream is under way before the fork
    int fds[2];
    ASSERT_EQ(::pipe(fds), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const Uuid id = Uuid::random();
        const bool sent = ::write(fds[1], id.bytes().data(), 16) == 16;
        ::_exit(sent ? 0 : 1);
    }
    Uuid fromChild;
    auto bytes = fromChild.bytes();
    ASSERT_EQ(::read(fds[0], bytes.data(), 16), 16);
    ::waitpid(child, nullptr, 0);
    ::close(fds[0]);
    ::close(fds[1]);
    EXPECT_NE(Uuid::random().bytes(), bytes);
}

TEST(UuidTest, StringFormRoundTrips) {
    const Uuid id = Uuid::random();
    const std::string text = id.toString();
    ASSERT_EQ(text.size(), 36u);
    EXPECT_EQ(text[8], '-');
    EXPECT_EQ(text.find_first_of("abcdef"), std::string::npos); // upper case
    EXPECT_EQ(Uuid::fromString(text), id);
    EXPECT_FALSE(Uuid::fromString("not-a-uuid"));
    EXPECT_FALSE(Uuid::fromString("0123456789AB-CDEF-0123-456789ABCDEF"));
    EXPECT_EQ(Uuid().toString(), "00000000-0000-0000-0000-000000000000");
}

} // namespace
