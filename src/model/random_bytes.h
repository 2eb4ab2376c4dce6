#pragma once

#include <cstddef>
#include <cstdint>

namespace pinecove {

// Fills the buffer from the operating system's cryptographically secure random source.
void fillRandomBytes(std::uint8_t* buffer, std::size_t length);

} // namespace pinecove
