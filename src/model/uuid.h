// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace pinecove {

// Identifies an entry inside the running program only; it is never written to the hosts file,
// so every load hands out new ones.
class Uuid {
public:
    Uuid() = default; // the nil UUID

    // A version-4 UUID, distinct within this process.
    static Uuid random();
    // Accepts the canonical 8-4-4-4-12 form in either letter case.
    static std::optional<Uuid> fromString(std::string_view text);

    // Canonical form: 32 upper-case hexadecimal digits grouped 8-4-4-4-12.
    std::string toString() const;

    std::size_t hash() const noexcept {
        // The bits are random already, so any eight of them make a good hash.
        std::size_t h;
        std::memcpy(&h, bytes_.data(), sizeof h);
        return h;
    }

    // Two word compares: the writer checks an id for every line of the file, and a call to
    // memcmp per line shows up on a 200,000-line block list.
    friend bool operator==(const Uuid& a, const Uuid& b) {
        std::uint64_t a0, a1, b0, b1;
        std::memcpy(&a0, a.bytes_.data(), 8);
        std::memcpy(&a1, a.bytes_.data() + 8, 8);
        std::memcpy(&b0, b.bytes_.data(), 8);
        std::memcpy(&b1, b.bytes_.data() + 8, 8);
        return ((a0 ^ b0) | (a1 ^ b1)) == 0;
    }

private:
    std::array<std::uint8_t, 16> bytes_{};
};

struct UuidHash {
    std::size_t operator()(const Uuid& id) const noexcept { return id.hash(); }
};

} // namespace pinecove

template <> struct std::hash<pinecove::Uuid> : pinecove::UuidHash {};
