// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

namespace pinecove {

// Cryptographically secure random bytes, cheap enough for hundreds of thousands of ids per load:
// a per-thread ChaCha20 stream keyed from the operating system's random source, rekeyed from its
// own output after every block of output (fast key erasure), and reseeded after a fork.
void secureRandomBytes(std::uint8_t* buffer, std::size_t length);

// Straight from the operating system's random source.
void systemRandomBytes(std::uint8_t* buffer, std::size_t length);

} // namespace pinecove
