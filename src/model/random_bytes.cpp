#include "random_bytes.h"

#include <cerrno>
#include <cstdlib>
#include <cstdio>

#if defined(__APPLE__)
#include <stdlib.h> // arc4random_buf
#else
#include <sys/random.h>
#endif

namespace pinecove {

void fillRandomBytes(std::uint8_t* buffer, std::size_t length) {
#if defined(__APPLE__)
    arc4random_buf(buffer, length);
#else
    while (length > 0) {
        const ssize_t got = getrandom(buffer, length, 0);
        if (got < 0) {
            if (errno == EINTR)
                continue;
            // Without a secure source there is no honest way to make identifiers; never
            // fall back to a predictable generator.
            std::fputs("pinecove: the system random source is unavailable\n", stderr);
            std::abort();
        }
        buffer += got;
        length -= static_cast<std::size_t>(got);
    }
#endif
}

} // namespace pinecove
