// SPDX-License-Identifier: MIT
#include "hosts_parser.h"
#include "typed_input.h"

#include <gtest/gtest.h>

using namespace pinecove;

namespace {

const std::string nbsp = "\u00A0";
const std::string name253 = std::string(249, 'a') + ".com";

ParsedEntry entry(std::string ip, std::vector<std::string> hosts,
                  std::optional<std::string> comment = std::nullopt, bool enabled = true) {
    return {std::move(ip), std::move(hosts), std::move(comment), enabled};
}

TEST(HostsParserTest, ReadsTheLineGrammar) {
    const std::vector<std::pair<std::string, std::optional<ParsedEntry>>> cases = {
        {"127.0.0.1\tmyapp.test api.myapp.test",
         entry("127.0.0.1", {"myapp.test", "api.myapp.test"})},
        {"  # 10.0.0.5 api.test # staging box",
         entry("10.0.0.5", {"api.test"}, "staging box", false)},
        {"#127.0.0.1 myapp.test", entry("127.0.0.1", {"myapp.test"}, {}, false)},
        {"127.0.0.1 myapp.test#", entry("127.0.0.1", {"myapp.test"}, "")},
        {"1.2.3.4 a.test # one # two", entry("1.2.3.4", {"a.test"}, "one # two")},
        {"FE80::1%LO0 my_app", entry("FE80::1%LO0", {"my_app"})},
        {"#10.0.0.1 is the router", entry("10.0.0.1", {"is", "the", "router"}, {}, false)},
        // A carriage return spoils a name but rides along at the end of a comment.
        {"127.0.0.1 myapp.test\r", std::nullopt},
        {"127.0.0.1 myapp.test # dev\r", entry("127.0.0.1", {"myapp.test"}, "dev\r")},
        // Unicode spaces are trimmed at the ends but do not separate tokens.
        {nbsp + "127.0.0.1 a.test\u3000# c\u2003", entry("127.0.0.1", {"a.test"}, "c")},
        {"127.0.0.1" + nbsp + "a.test", std::nullopt},
        {"127.0.0.1 " + name253, entry("127.0.0.1", {name253})},
        {"127.0.0.1 " + name253 + "x", std::nullopt},
        {"## Host Database", std::nullopt},
        {"# #127.0.0.1 a.test", std::nullopt},
        {"127.0.0.1 # only a comment", std::nullopt},
        {"999.1.1.1 myapp.test", std::nullopt},
        {"127.0.0.1 -myapp.test", std::nullopt},
        {"127.0.0.1 .myapp.test", std::nullopt},
        {"127.0.0.1 caf\u00e9.test", std::nullopt},
        {"   ", std::nullopt},
    };
    for (const auto& [line, expected] : cases)
        EXPECT_EQ(HostsParser::parseEntry(line), expected) << line;
}

// What the input bar adds for typed or pasted text.
TEST(HostsParserTest, ReadsTypedText) {
    const std::vector<std::pair<std::string, std::optional<ParsedInput>>> cases = {
        {"myapp.test api.myapp.test", ParsedInput{"127.0.0.1", {"myapp.test", "api.myapp.test"}}},
        {"::1 myapp.test", ParsedInput{"::1", {"myapp.test"}}},
        {nbsp + "\tMyApp.test" + nbsp, ParsedInput{"127.0.0.1", {"MyApp.test"}}},
        {"a.test a.test", ParsedInput{"127.0.0.1", {"a.test", "a.test"}}},
        {"myapp.test 10.0.0.5", ParsedInput{"127.0.0.1", {"myapp.test", "10.0.0.5"}}},
        // Pasted line breaks and control characters become spaces: one line, never two.
        {"10.0.0.5 a.test\nb.test\u2028c.test",
         ParsedInput{"10.0.0.5", {"a.test", "b.test", "c.test"}}},
        {"10.0.0.5", std::nullopt},
        {"myapp.test bad!name", std::nullopt},
        {"fe80::1%#x a.test", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& [typed, expected] : cases)
        EXPECT_EQ(parseTypedInput(typed), expected) << typed;
}

} // namespace
