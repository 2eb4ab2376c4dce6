// SPDX-License-Identifier: MIT
#pragma once

#include "hosts_parser.h"

#include <optional>
#include <string>
#include <string_view>

namespace pinecove {

// What a single-line field makes of typed or pasted text: every control character (line feed,
// carriage return, tab, vertical tab, NUL, DEL, the C1 controls) and the Unicode line and
// paragraph separators become spaces. So no typed text can put a second line into the file.
std::string singleLine(std::string_view typed);

// The mapping the input bar adds for `typed`: the text made single-line and trimmed, then read
// by HostsParser::parseInput. An address holding "#" is refused: written back, the rest of its
// line would read as a comment and the added entry would vanish after the apply.
std::optional<ParsedInput> parseTypedInput(std::string_view typed);

} // namespace pinecove
