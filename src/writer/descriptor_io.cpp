// SPDX-License-Identifier: MIT
#include "descriptor_io.h"

#include <cerrno>
#include <unistd.h>

namespace pinecove {

bool writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t put = ::write(fd, bytes.data(), bytes.size());
        if (put < 0 && errno == EINTR)
            continue;
        if (put <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(put));
    }
    return true;
}

bool readExactly(int fd, std::string& out) {
    std::size_t done = 0;
    while (done < out.size()) {
        const ssize_t got = ::read(fd, out.data() + done, out.size() - done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return false;
        done += static_cast<std::size_t>(got);
    }
    return true;
}

} // namespace pinecove
