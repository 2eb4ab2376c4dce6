// SPDX-License-Identifier: MIT
#include "typed_input.h"

#include "whitespace.h"

namespace pinecove {

std::string singleLine(std::string_view typed) {
    std::string out;
    out.reserve(typed.size());
    for (std::size_t i = 0; i < typed.size(); ++i) {
        const auto byte = static_cast<unsigned char>(typed[i]);
        if (byte < 0x20 || byte == 0x7F) {
            out += ' ';
        } else if (byte == 0xC2 && i + 1 < typed.size() &&
                   static_cast<unsigned char>(typed[i + 1]) >= 0x80 &&
                   static_cast<unsigned char>(typed[i + 1]) <= 0x9F) {
            out += ' '; // U+0080 to U+009F, NEL among them
            ++i;
        } else if (typed.substr(i, 3) == "\u2028" || typed.substr(i, 3) == "\u2029") {
            out += ' ';
            i += 2;
        } else {
            out += typed[i];
        }
    }
    return out;
}

std::optional<ParsedInput> parseTypedInput(std::string_view typed) {
    const std::string line = singleLine(typed);
    auto parsed = HostsParser::parseInput(trimWhitespace(line));
    if (parsed && parsed->ip.find('#') != std::string::npos)
        return std::nullopt;
    return parsed;
}

} // namespace pinecove
