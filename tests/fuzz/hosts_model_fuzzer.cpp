// SPDX-License-Identifier: MIT
// Feeds arbitrary bytes to the hosts model: nothing may crash, and every text the store would
// accept (valid UTF-8) must keep the model's promises. The same bytes, typed or pasted into the
// input bar, may add at most one line and leave every other line as it was.

#include "hosts_document.h"
#include "hosts_edits.h"
#include "hosts_parser.h"
#include "hosts_writer.h"
#include "model_invariants.h"
#include "typed_input.h"
#include "utf8.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

using namespace pinecove;

namespace {

void require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "broken: %s\n", what);
        std::abort();
    }
}

// What the input bar would add for `typed`, added to a small file and written back.
void checkTypedInput(std::string_view typed) {
    const auto parsed = parseTypedInput(typed);
    if (!parsed)
        return;
    require(HostsParser::isValidIP(parsed->ip), "typed input gave an invalid address");
    require(!parsed->hosts.empty(), "typed input gave no names");
    for (const std::string& host : parsed->hosts)
        require(HostsParser::isValidHostname(host), "typed input gave an invalid name");
    // No final line feed: the new entry then follows the last line directly.
    const std::string base = "127.0.0.1 localhost\n# a comment\n10.0.0.1 taken.test\n";
    HostsDocument document = parseHostsText(base.substr(0, base.size() - 1));
    if (!addEntry(document, parsed->ip, parsed->hosts))
        return; // every name taken: nothing added
    const std::string written = serialized(document);
    require(written.starts_with(base), "an add changed an existing line");
    const std::string added = written.substr(base.size());
    require(added.find('\n') == added.size() - 1, "an add wrote more than one line");
    const auto reread =
        HostsParser::parseEntry(std::string_view(added).substr(0, added.size() - 1));
    require(reread && reread->enabled && reread->ip == parsed->ip,
            "an added line does not read back as the mapping");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);

    // Parsing never fails loudly, whatever the bytes.
    (void)HostsParser::parseInput(bytes);
    (void)HostsParser::parseEntry(bytes);

    if (!isValidUtf8(bytes))
        return 0; // such a file is refused before it reaches the model
    checkTypedInput(bytes);
    const auto failure = test::checkModelInvariants(bytes);
    require(!failure, failure ? failure->c_str() : "");
    return 0;
}
