// SPDX-License-Identifier: MIT
// Feeds arbitrary bytes to the hosts model: nothing may crash, and every text the store would
// accept (valid UTF-8) must keep the model's promises. The same bytes, typed or pasted into the
// input bar, may add at most one line and leave every other line as it was.

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

    // Parsing never fails loudly, whatever the bytes.
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
