// SPDX-License-Identifier: MIT
#include "model_invariants.h"

#include <gtest/gtest.h>
#include <random>

using namespace pinecove::test;

namespace {

// Pieces that hosts files contain and that parsers get wrong: markers, separators, Unicode
// spaces, carriage returns, zone ids, prose that looks like a mapping, bad names.
const std::vector<std::string> fragments = {"127.0.0.1",
                                            "0.0.0.0",
                                            "::1",
                                            "fe80::1%lo0",
                                            "10.0.0.5",
                                            "999.1.1.1",
                                            "localhost",
                                            "broadcasthost",
                                            "LocalHost",
                                            "myapp.test",
                                            "api.myapp.test",
                                            "my_app",
                                            "-bad",
                                            ".bad",
                                            "bad!name",
                                            "is",
                                            "the",
                                            "router",
                                            "#",
                                            "##",
                                            "# ",
                                            " ",
                                            "  ",
                                            "\t",
                                            "\u00A0",
                                            "\u3000",
                                            "\u2003",
                                            "\r",
                                            "caf\u00e9",
                                            "%",
                                            "# note",
                                            "#x"};

std::string randomText(std::mt19937& random) {
    std::string text;
    const int lines = static_cast<int>(random() % 12);
    for (int line = 0; line < lines; ++line) {
        const int pieces = static_cast<int>(random() % 7);
        for (int piece = 0; piece < pieces; ++piece)
            text += fragments[random() % fragments.size()];
        // Mostly line feeds, sometimes runs of them, and sometimes no final one.
        if (line + 1 < lines || random() % 3 != 0)
            text += std::string(random() % 5 == 0 ? 2 + random() % 3 : 1, '\n');
    }
    return text;
}

TEST(ModelPropertiesTest, HoldForRandomTexts) {
    std::mt19937 random(20261122);
    for (int i = 0; i < 20000; ++i) {
        const std::string text = randomText(random);
        const auto failure = checkModelInvariants(text);
        ASSERT_FALSE(failure) << *failure << "\nfor the text:\n" << ::testing::PrintToString(text);
    }
}

} // namespace
