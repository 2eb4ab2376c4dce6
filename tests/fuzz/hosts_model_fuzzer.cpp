// SPDX-License-Identifier: MIT
// Feeds arbitrary bytes to the hosts model: nothing may crash, and every text the store would
// accept (valid UTF-8) must keep the model's promises.

#include "hosts_parser.h"
#include "model_invariants.h"
#include "utf8.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);

    // Parsing never fails loudly, whatever the bytes.
    (void)pinecove::HostsParser::parseInput(bytes);
    (void)pinecove::HostsParser::parseEntry(bytes);

    if (!pinecove::isValidUtf8(bytes))
        return 0; // such a file is refused before it reaches the model
    if (const auto failure = pinecove::test::checkModelInvariants(bytes)) {
        std::fprintf(stderr, "invariant broken: %s\n", failure->c_str());
        std::abort();
    }
    return 0;
}
