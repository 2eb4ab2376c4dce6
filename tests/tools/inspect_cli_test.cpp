// SPDX-License-Identifier: MIT
#include "run_process.h"
#include "temporary_folder.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

using pinecove::test::runProcess;

namespace {

pinecove::test::ProcessResult inspect(const std::vector<std::string>& arguments,
                                      const std::string& input = {}) {
    return runProcess(PINECOVE_INSPECT, arguments, input);
}

TEST(InspectCliTest, PrintsLinesEntriesAndTheSerializedText) {
    const std::string text = "## head\n"
                             "127.0.0.1\tlocalhost\n"
                             "  # 10.0.0.5 api.test # say \"hi\"\\\n"
                             "127.0.0.1 a.test b.test#\n"
                             "\u00A0tab\there\r";
    const auto result = inspect({"-"}, text);
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(
        result.out,
        R"({"lines":[{"raw":"## head"},)"
        R"({"entry":{"ip":"127.0.0.1","hostnames":["localhost"],"comment":null,"enabled":true}},)"
        R"({"entry":{"ip":"10.0.0.5","hostnames":["api.test"],"comment":"say \"hi\"\\","enabled":false}},)"
        R"({"entry":{"ip":"127.0.0.1","hostnames":["a.test","b.test"],"comment":"","enabled":true}},)"
        "{\"raw\":\"\u00A0tab\\there\\r\"}],"
        R"("serialized":"## head\n127.0.0.1\tlocalhost\n  # 10.0.0.5 api.test # say \"hi\"\\\n)"
        "127.0.0.1 a.test b.test#\\n\u00A0tab\\there\\r\\n\"}\n");
}

TEST(InspectCliTest, SerializeWritesExactlyTheModelText) {
    const auto result = inspect({"--serialize", "-"}, "# a\n127.0.0.1 x.test\n\n\n");
    ASSERT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "# a\n127.0.0.1 x.test\n");
    EXPECT_EQ(result.err, "");
}

TEST(InspectCliTest, ToggleAllSwitchesEveryCustomEntryOnce) {
    const auto result = inspect({"--toggle-all", "-"},
                                "127.0.0.1 localhost\n127.0.0.1 on.test\n#10.0.0.1 off.test # n\n");
    ASSERT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "127.0.0.1 localhost\n# 127.0.0.1 on.test\n10.0.0.1 off.test # n\n");
}

struct InputCase {
    std::string text;
    std::string json;
};

class InspectInputTest : public ::testing::TestWithParam<InputCase> {};

TEST_P(InspectInputTest, ReadsTypedTextLikeTheInputBar) {
    const auto result = inspect({"--input", GetParam().text});
    ASSERT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, GetParam().json + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    Typed, InspectInputTest,
    ::testing::Values(
        InputCase{"myapp.test", R"({"ip":"127.0.0.1","hosts":["myapp.test"]})"},
        InputCase{"10.0.0.5 a.test b.test", R"({"ip":"10.0.0.5","hosts":["a.test","b.test"]})"},
        InputCase{"\u00A0myapp.test\u00A0", R"({"ip":"127.0.0.1","hosts":["myapp.test"]})"},
        InputCase{"10.0.0.5", "null"}, InputCase{"bad!name", "null"}, InputCase{"", "null"}));

TEST(InspectCliTest, RefusesFilesItCannotReadAsUtf8) {
    const auto missing = inspect({"--serialize", "/nonexistent/hosts"});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_EQ(missing.out, "");
    EXPECT_NE(missing.err.find("/nonexistent/hosts"), std::string::npos);
    EXPECT_EQ(std::count(missing.err.begin(), missing.err.end(), '\n'), 1);

    const auto directory = inspect({"/"});
    EXPECT_EQ(directory.exitCode, 1);

    const pinecove::test::TemporaryFolder folder;
    const std::filesystem::path latin1 = folder / "latin1.hosts";
    std::ofstream(latin1, std::ios::binary) << "127.0.0.1 caf\xE9.test\n";
    for (const std::string& mode : {"--serialize", "--toggle-all"}) {
        const auto result = inspect({mode, latin1.string()});
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_NE(result.err.find(latin1.string()), std::string::npos);
        EXPECT_EQ(result.out, "");
    }

    EXPECT_EQ(inspect({"-"}, "\xFF").exitCode, 1);
    EXPECT_EQ(inspect({"--input", "\xFF"}).exitCode, 1);
}

TEST(InspectCliTest, ScriptPrintsWhatTheRunnerWouldRun) {
    const std::string text = "127.0.0.1 a.test # \"q\" $HOME\n";
    // On Linux no script runs as root: the helper gets the loaded and the new text as data.
    const auto script = inspect({"--script", "-"}, text);
    ASSERT_EQ(script.exitCode, 0) << script.err;
    EXPECT_TRUE(script.out.starts_with("# As root: /"));
    EXPECT_NE(script.out.find("/pinecove-write-hosts --expected-size 29 --size 29\n"),
              std::string::npos);
    EXPECT_TRUE(script.out.ends_with("then the new text:\n" + text));

    const auto command = inspect({"--applescript", "-"}, text);
    ASSERT_EQ(command.exitCode, 0);
    EXPECT_TRUE(command.out.starts_with("do shell script \"set -e\\nT="));
    EXPECT_TRUE(command.out.ends_with("with prompt \"Pinecove wants to update your hosts file.\""));
    EXPECT_NE(command.out.find("/usr/sbin/chown root:wheel"), std::string::npos);

    const auto tooLarge = inspect({"--script", "-"}, std::string(200'000, '#'));
    EXPECT_EQ(tooLarge.exitCode, 1);
    EXPECT_NE(tooLarge.err.find("unexpectedly large"), std::string::npos);
    EXPECT_EQ(tooLarge.out, "");
}

TEST(InspectCliTest, BadUsagePrintsTheUsage) {
    const std::vector<std::vector<std::string>> misuses = {
        {},          {"--serialize"}, {"--bogus", "file"}, {"--toggle-all", "a", "b"},
        {"--input"}, {"--nope"}};
    for (const auto& arguments : misuses) {
        const auto result = inspect(arguments);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_NE(result.err.find("Usage: pinecove-inspect"), std::string::npos);
    }
}

} // namespace
