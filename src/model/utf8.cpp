// SPDX-License-Identifier: MIT
#include "utf8.h"

#include <cstdint>
#include <cstring>

namespace pinecove {

bool isValidUtf8(std::string_view bytes) {
    const auto* p = reinterpret_cast<const unsigned char*>(bytes.data());
    const unsigned char* const end = p + bytes.size();
    while (p < end) {
        // Hosts files are almost all ASCII: skip eight such bytes at a time.
        if (end - p >= 8) {
            std::uint64_t chunk;
            std::memcpy(&chunk, p, sizeof chunk);
            if ((chunk & 0x8080808080808080ULL) == 0) {
                p += 8;
                continue;
            }
        }
        const unsigned char b0 = *p;
        if (b0 < 0x80) {
            ++p;
            continue;
        }
        std::size_t length;
        unsigned char low = 0x80, high = 0xBF; // allowed range of the second byte
        if (b0 >= 0xC2 && b0 <= 0xDF) {
            length = 2;
        } else if (b0 >= 0xE0 && b0 <= 0xEF) {
            length = 3;
            if (b0 == 0xE0)
                low = 0xA0; // overlong
            else if (b0 == 0xED)
                high = 0x9F; // surrogates
        } else if (b0 >= 0xF0 && b0 <= 0xF4) {
            length = 4;
            if (b0 == 0xF0)
                low = 0x90; // overlong
            else if (b0 == 0xF4)
                high = 0x8F; // above U+10FFFF
        } else {
            return false;
        }
        if (static_cast<std::size_t>(end - p) < length)
            return false;
        if (p[1] < low || p[1] > high)
            return false;
        for (std::size_t i = 2; i < length; ++i)
            if ((p[i] & 0xC0) != 0x80)
                return false;
        p += length;
    }
    return true;
}

} // namespace pinecove
