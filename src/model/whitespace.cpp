// SPDX-License-Identifier: MIT
#include "whitespace.h"

namespace pinecove {

namespace {

// Given the bytes of one UTF-8 sequence, its length if it encodes tab or a Zs character, else 0.
// Zs: U+0020, U+00A0, U+1680, U+2000..U+200A, U+202F, U+205F, U+3000.
std::size_t whitespaceSequenceLength(unsigned char b0, unsigned char b1, unsigned char b2) {
    if (b0 == 0x09 || b0 == 0x20)
        return 1;
    if (b0 == 0xC2 && b1 == 0xA0)
        return 2;
    if (b0 == 0xE1 && b1 == 0x9A && b2 == 0x80)
        return 3;
    if (b0 == 0xE2 && b1 == 0x80 && ((b2 >= 0x80 && b2 <= 0x8A) || b2 == 0xAF))
        return 3;
    if (b0 == 0xE2 && b1 == 0x81 && b2 == 0x9F)
        return 3;
    if (b0 == 0xE3 && b1 == 0x80 && b2 == 0x80)
        return 3;
    return 0;
}

unsigned char byteAt(std::string_view text, std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
}

} // namespace

std::size_t leadingWhitespaceLength(std::string_view text) {
    if (text.empty())
        return 0;
    const std::size_t length =
        whitespaceSequenceLength(byteAt(text, 0), byteAt(text, 1), byteAt(text, 2));
    return length <= text.size() ? length : 0;
}

std::size_t trailingWhitespaceLength(std::string_view text) {
    const std::size_t n = text.size();
    if (n == 0)
        return 0;
    const auto last = static_cast<unsigned char>(text[n - 1]);
    if (last == 0x09 || last == 0x20)
        return 1;
    if (n >= 2 && whitespaceSequenceLength(byteAt(text, n - 2), last, 0) == 2)
        return 2;
    if (n >= 3 && whitespaceSequenceLength(byteAt(text, n - 3), byteAt(text, n - 2), last) == 3)
        return 3;
    return 0;
}

std::string_view trimWhitespace(std::string_view text) {
    while (const std::size_t n = leadingWhitespaceLength(text))
        text.remove_prefix(n);
    while (const std::size_t n = trailingWhitespaceLength(text))
        text.remove_suffix(n);
    return text;
}

} // namespace pinecove
