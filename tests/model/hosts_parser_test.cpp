// SPDX-License-Identifier: MIT
#include "hosts_parser.h"

#include <gtest/gtest.h>

using namespace pinecove;
using HostsParser::parseEntry;
using HostsParser::parseInput;

namespace {

const std::string nbsp = "\u00A0";
const std::string name253 = std::string(249, 'a') + ".com";

struct EntryCase {
    std::string line;
    std::optional<ParsedEntry> expected;
};

class ParseEntryTest : public ::testing::TestWithParam<EntryCase> {};

TEST_P(ParseEntryTest, ReadsTheLineGrammar) {
    EXPECT_EQ(parseEntry(GetParam().line), GetParam().expected);
}

ParsedEntry entry(std::string ip, std::vector<std::string> hosts,
                  std::optional<std::string> comment = std::nullopt, bool enabled = true) {
    return {std::move(ip), std::move(hosts), std::move(comment), enabled};
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ParseEntryTest,
    ::testing::Values(
        EntryCase{"127.0.0.1 localhost", entry("127.0.0.1", {"localhost"})},
        EntryCase{"127.0.0.1\tmyapp.test api.myapp.test",
                  entry("127.0.0.1", {"myapp.test", "api.myapp.test"})},
        EntryCase{"#127.0.0.1 myapp.test", entry("127.0.0.1", {"myapp.test"}, {}, false)},
        EntryCase{"  # 10.0.0.5 api.test # staging box",
                  entry("10.0.0.5", {"api.test"}, "staging box", false)},
        EntryCase{"127.0.0.1 myapp.test#", entry("127.0.0.1", {"myapp.test"}, "")},
        EntryCase{"127.0.0.1 myapp.test#note", entry("127.0.0.1", {"myapp.test"}, "note")},
        EntryCase{"127.0.0.1 my_app.test", entry("127.0.0.1", {"my_app.test"})},
        EntryCase{"fe80::1%lo0 localhost", entry("fe80::1%lo0", {"localhost"})},
        EntryCase{"FE80::1%LO0 LocalHost", entry("FE80::1%LO0", {"LocalHost"})},
        EntryCase{" \t 127.0.0.1 \t a.test\t \tb.test ", entry("127.0.0.1", {"a.test", "b.test"})},
        EntryCase{"  #\t127.0.0.1 myapp.test", entry("127.0.0.1", {"myapp.test"}, {}, false)},
        // Prose that happens to start with an address reads as a disabled mapping.
        EntryCase{"#10.0.0.1 is the router", entry("10.0.0.1", {"is", "the", "router"}, {}, false)},
        // A '#' inside the comment belongs to the comment.
        EntryCase{"1.2.3.4 a.test # one # two", entry("1.2.3.4", {"a.test"}, "one # two")},
        // A carriage return is an ordinary character: it spoils a hostname...
        EntryCase{"127.0.0.1 myapp.test\r", std::nullopt},
        // ...but rides along at the end of a comment.
        EntryCase{"127.0.0.1 myapp.test # dev\r", entry("127.0.0.1", {"myapp.test"}, "dev\r")},
        // Unicode space separators are trimmed at the ends but do not separate tokens.
        EntryCase{nbsp + "127.0.0.1 a.test" + nbsp, entry("127.0.0.1", {"a.test"})},
        EntryCase{"127.0.0.1 a.test\u3000# c\u2003", entry("127.0.0.1", {"a.test"}, "c")},
        EntryCase{"127.0.0.1" + nbsp + "a.test", std::nullopt},
        EntryCase{"127.0.0.1 a.test" + nbsp + "b.test", std::nullopt},
        EntryCase{"127.0.0.1 " + name253, entry("127.0.0.1", {name253})},
        EntryCase{"127.0.0.1 " + name253 + "x", std::nullopt},
        EntryCase{"## Host Database", std::nullopt}, EntryCase{"# #127.0.0.1 a.test", std::nullopt},
        EntryCase{"# This is a comment", std::nullopt}, EntryCase{"#", std::nullopt},
        EntryCase{"# ", std::nullopt}, EntryCase{"127.0.0.1", std::nullopt},
        EntryCase{"127.0.0.1 # only a comment", std::nullopt},
        EntryCase{"999.1.1.1 myapp.test", std::nullopt},
        EntryCase{"127.0.0.1 -myapp.test", std::nullopt},
        EntryCase{"127.0.0.1 .myapp.test", std::nullopt},
        EntryCase{"127.0.0.1 caf\u00e9.test", std::nullopt}, EntryCase{"", std::nullopt},
        EntryCase{"   ", std::nullopt}));

struct ValidityCase {
    std::string text;
    bool valid;
};

class IsValidIpTest : public ::testing::TestWithParam<ValidityCase> {};

TEST_P(IsValidIpTest, FollowsInetPton) {
    EXPECT_EQ(HostsParser::isValidIP(GetParam().text), GetParam().valid) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    Addresses, IsValidIpTest,
    ::testing::Values(ValidityCase{"127.0.0.1", true}, ValidityCase{"0.0.0.0", true},
                      ValidityCase{"255.255.255.255", true}, ValidityCase{"::1", true},
                      ValidityCase{"::", true}, ValidityCase{"fe80::1%lo0", true},
                      ValidityCase{"fe80::1%", true}, ValidityCase{"%::1", true},
                      ValidityCase{"::ffff:10.0.0.1", true},
                      ValidityCase{"2001:DB8:0:0:8:800:200C:417A", true},
                      ValidityCase{"256.0.0.1", false}, ValidityCase{"01.2.3.4", false},
                      ValidityCase{"1.2.3", false}, ValidityCase{"1.2.3.4.5", false},
                      ValidityCase{":::1", false}, ValidityCase{"1::2::3", false},
                      ValidityCase{"%", false}, ValidityCase{"%%", false}, ValidityCase{"", false},
                      ValidityCase{"localhost", false},
                      ValidityCase{std::string("127.0.0.1\0x", 11), false},
                      ValidityCase{std::string(100, '1'), false}));

class IsValidHostnameTest : public ::testing::TestWithParam<ValidityCase> {};

TEST_P(IsValidHostnameTest, FollowsTheAlphabetAndLength) {
    EXPECT_EQ(HostsParser::isValidHostname(GetParam().text), GetParam().valid) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    Names, IsValidHostnameTest,
    ::testing::Values(ValidityCase{"myapp.test", true}, ValidityCase{"My_App-1.test", true},
                      ValidityCase{"trailing.", true}, ValidityCase{"trailing-", true},
                      ValidityCase{"a..b", true}, ValidityCase{"10.0.0.5", true},
                      ValidityCase{"123", true}, ValidityCase{std::string(64, 'a') + ".x", true},
                      ValidityCase{name253, true}, ValidityCase{name253 + "x", false},
                      ValidityCase{"", false}, ValidityCase{"-lead", false},
                      ValidityCase{".lead", false}, ValidityCase{"bad!name", false},
                      ValidityCase{"sp ace", false}, ValidityCase{"caf\u00e9", false},
                      ValidityCase{"a\r", false}));

struct InputCase {
    std::string text;
    std::optional<ParsedInput> expected;
};

class ParseInputTest : public ::testing::TestWithParam<InputCase> {};

TEST_P(ParseInputTest, ReadsTypedText) {
    EXPECT_EQ(parseInput(GetParam().text), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Typed, ParseInputTest,
    ::testing::Values(
        InputCase{"myapp.test", ParsedInput{"127.0.0.1", {"myapp.test"}}},
        InputCase{"10.0.0.5 myapp.test", ParsedInput{"10.0.0.5", {"myapp.test"}}},
        InputCase{"myapp.test api.myapp.test",
                  ParsedInput{"127.0.0.1", {"myapp.test", "api.myapp.test"}}},
        InputCase{"::1 myapp.test", ParsedInput{"::1", {"myapp.test"}}},
        InputCase{"  \tMyApp.test\t  ", ParsedInput{"127.0.0.1", {"MyApp.test"}}},
        InputCase{"a.test a.test", ParsedInput{"127.0.0.1", {"a.test", "a.test"}}},
        InputCase{"myapp.test 10.0.0.5", ParsedInput{"127.0.0.1", {"myapp.test", "10.0.0.5"}}},
        InputCase{"10.0.0.5", std::nullopt}, InputCase{"myapp.test bad!name", std::nullopt},
        InputCase{"10.0.0.5 -bad", std::nullopt}, InputCase{"", std::nullopt},
        InputCase{"   ", std::nullopt},
        // parseInput itself trims nothing but separators; the input bar trims the rest.
        InputCase{"myapp.test\u00A0", std::nullopt}));

} // namespace
