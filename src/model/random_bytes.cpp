// SPDX-License-Identifier: MIT
#include "random_bytes.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <pthread.h>

#if defined(__APPLE__)
#include <stdlib.h> // arc4random_buf
#else
#include <sys/random.h>
#endif

namespace pinecove {

void systemRandomBytes(std::uint8_t* buffer, std::size_t length) {
#if defined(__APPLE__)
    arc4random_buf(buffer, length);
#else
    while (length > 0) {
        const ssize_t got = getrandom(buffer, length, 0);
        if (got < 0) {
            if (errno == EINTR)
                continue;
            // Without a secure source there is no honest way to make identifiers; never fall
            // back to a predictable generator.
            std::fputs("pinecove: the system random source is unavailable\n", stderr);
            std::abort();
        }
        buffer += got;
        length -= static_cast<std::size_t>(got);
    }
#endif
}

namespace {

constexpr std::uint32_t rotl(std::uint32_t v, int n) {
    return (v << n) | (v >> (32 - n));
}

void quarterRound(std::array<std::uint32_t, 16>& x, std::size_t a, std::size_t b, std::size_t c,
                  std::size_t d) {
    x[a] += x[b], x[d] = rotl(x[d] ^ x[a], 16);
    x[c] += x[d], x[b] = rotl(x[b] ^ x[c], 12);
    x[a] += x[b], x[d] = rotl(x[d] ^ x[a], 8);
    x[c] += x[d], x[b] = rotl(x[b] ^ x[c], 7);
}

// The ChaCha20 block function of RFC 8439.
void chachaBlock(const std::array<std::uint32_t, 16>& input, std::uint8_t* out) {
    std::array<std::uint32_t, 16> x = input;
    for (int round = 0; round < 10; ++round) {
        quarterRound(x, 0, 4, 8, 12);
        quarterRound(x, 1, 5, 9, 13);
        quarterRound(x, 2, 6, 10, 14);
        quarterRound(x, 3, 7, 11, 15);
        quarterRound(x, 0, 5, 10, 15);
        quarterRound(x, 1, 6, 11, 12);
        quarterRound(x, 2, 7, 8, 13);
        quarterRound(x, 3, 4, 9, 14);
    }
    for (std::size_t i = 0; i < 16; ++i) {
        const std::uint32_t word = x[i] + input[i];
        std::memcpy(out + 4 * i, &word, 4); // little-endian hosts only, which is all we build for
    }
}

// Bumped in every forked child, so that no stream goes on in two processes. Reading it costs far
// less than asking the kernel for the process id on every draw.
std::atomic<unsigned> forkGeneration{1};

void countFork() {
    forkGeneration.fetch_add(1, std::memory_order_relaxed);
}

class ChaChaStream {
public:
    ChaChaStream() {
        static const int registered = pthread_atfork(nullptr, nullptr, countFork);
        (void)registered;
    }

    void take(std::uint8_t* out, std::size_t length) {
        while (length > 0) {
            if (used_ == buffer_.size() ||
                generation_ != forkGeneration.load(std::memory_order_relaxed))
                refill();
            const std::size_t n = std::min(length, buffer_.size() - used_);
            std::memcpy(out, buffer_.data() + used_, n);
            std::memset(buffer_.data() + used_, 0, n); // never hand out the same bytes twice
            used_ += n;
            out += n;
            length -= n;
        }
    }

private:
    static constexpr std::size_t keyBytes = 32;

    void refill() {
        const unsigned generation = forkGeneration.load(std::memory_order_relaxed);
        if (generation_ != generation) {
            // First use, or a forked child that must not repeat its parent's stream.
            systemRandomBytes(key_.data(), key_.size());
            generation_ = generation;
        }
        std::array<std::uint32_t, 16> state{0x61707865, 0x3320646e, 0x79622d32, 0x6b206574};
        std::memcpy(state.data() + 4, key_.data(), keyBytes);
        for (std::size_t block = 0; block < buffer_.size() / 64; ++block) {
            state[12] = static_cast<std::uint32_t>(block);
            chachaBlock(state, buffer_.data() + 64 * block);
        }
        // Fast key erasure: the first bytes of the output become the next key and are never
        // handed out, so a later look at this memory cannot recover earlier output.
        std::memcpy(key_.data(), buffer_.data(), keyBytes);
        std::memset(buffer_.data(), 0, keyBytes);
        used_ = keyBytes;
    }

    std::array<std::uint8_t, keyBytes> key_{};
    std::array<std::uint8_t, 1024> buffer_{};
    std::size_t used_ = buffer_.size();
    unsigned generation_ = 0;
};

} // namespace

void secureRandomBytes(std::uint8_t* buffer, std::size_t length) {
    thread_local ChaChaStream stream;
    stream.take(buffer, length);
}

} // namespace pinecove
