// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace pinecove {

// Hosts-file white space: the horizontal tab and every Unicode space separator (category Zs),
// as UTF-8. Line feed and carriage return are deliberately not white space: a carriage return is
// an ordinary character of its line.

// Byte length of the white-space character that starts `text`, or 0 when it starts with none.
std::size_t leadingWhitespaceLength(std::string_view text);
// Byte length of the white-space character that ends `text`, or 0 when it ends with none.
std::size_t trailingWhitespaceLength(std::string_view text);

std::string_view trimWhitespace(std::string_view text);

// Token separators of a mapping line and of typed input: space and tab only.
constexpr bool isTokenSeparator(char c) {
    return c == ' ' || c == '\t';
}

} // namespace pinecove
