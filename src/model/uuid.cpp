// SPDX-License-Identifier: MIT
#include "uuid.h"

#include <random>

namespace pinecove {

namespace {

int hexValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

bool isHyphenPosition(std::size_t i) {
    return i == 8 || i == 13 || i == 18 || i == 23;
}

} // namespace

Uuid Uuid::random() {
    // Ids never leave the process, so they need to be distinct, not secret: a standard generator
    // seeded once per thread from the system's source gives them at a fraction of the cost.
    thread_local std::mt19937_64 generator{(std::uint64_t{std::random_device{}()} << 32) |
                                           std::random_device{}()};
    Uuid id;
    const std::uint64_t high = generator();
    const std::uint64_t low = generator();
    std::memcpy(id.bytes_.data(), &high, 8);
    std::memcpy(id.bytes_.data() + 8, &low, 8);
    id.bytes_[6] = static_cast<std::uint8_t>((id.bytes_[6] & 0x0F) | 0x40); // version 4
    id.bytes_[8] = static_cast<std::uint8_t>((id.bytes_[8] & 0x3F) | 0x80); // RFC 4122 variant
    return id;
}

std::optional<Uuid> Uuid::fromString(std::string_view text) {
    if (text.size() != 36)
        return std::nullopt;
    Uuid id;
    std::size_t byte = 0;
    for (std::size_t i = 0; i < text.size();) {
        if (isHyphenPosition(i)) {
            if (text[i] != '-')
                return std::nullopt;
            ++i;
            continue;
        }
        const int high = hexValue(text[i]);
        const int low = hexValue(text[i + 1]);
        if (high < 0 || low < 0 || isHyphenPosition(i + 1))
            return std::nullopt;
        id.bytes_[byte++] = static_cast<std::uint8_t>(high * 16 + low);
        i += 2;
    }
    return id;
}

std::string Uuid::toString() const {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string text;
    text.reserve(36);
    for (std::size_t i = 0; i < bytes_.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10)
            text += '-';
        text += digits[bytes_[i] >> 4];
        text += digits[bytes_[i] & 0x0F];
    }
    return text;
}

} // namespace pinecove
