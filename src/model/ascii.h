// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace pinecove {

// Hostnames are ASCII by construction, so case folding them never needs a locale.

constexpr char asciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Whether `text` lower-cased equals `lower`, without building the lower-cased copy.
constexpr bool equalsLowercased(std::string_view text, std::string_view lower) {
    if (text.size() != lower.size())
        return false;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (asciiLower(text[i]) != lower[i])
            return false;
    return true;
}

constexpr bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (asciiLower(a[i]) != asciiLower(b[i]))
            return false;
    return true;
}

} // namespace pinecove
