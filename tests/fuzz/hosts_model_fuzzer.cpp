// SPDX-License-Identifier: MIT
// Arbitrary bytes: parsing never crashes; a text the store would accept (valid UTF-8) keeps the
// model's promises, and typed or pasted into the input bar adds one line at most.

#include "hosts_parser.h"
#include "model_invariants.h"
#include "utf8.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

using namespace pinecove;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    (void)HostsParser::parseInput(bytes);
    (void)HostsParser::parseEntry(bytes);

    if (!isValidUtf8(bytes))
        return 0; // such a file is refused before it reaches the model
    for (const auto& failure :
         {test::checkTypedInputInvariants(bytes), test::checkModelInvariants(bytes)})
        if (failure) {
            std::fprintf(stderr, "broken: %s\n", failure->c_str());
            std::abort();
        }
    return 0;
}
