// SPDX-License-Identifier: MIT
#include "descriptor_io.h"

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>
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

bool readToEnd(int fd, std::string& out, std::size_t limit) {
    // Sizing the buffer once avoids copying a multi-megabyte block list as it grows.
    struct stat info {};
    if (::fstat(fd, &info) == 0 && S_ISREG(info.st_mode) && info.st_size > 0)
        out.reserve(out.size() + std::min(static_cast<std::size_t>(info.st_size), limit));
    char buffer[1 << 16];
    for (;;) {
        const ssize_t got = ::read(fd, buffer, sizeof buffer);
        if (got == 0)
            return true;
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return false;
        out.append(buffer, static_cast<std::size_t>(got));
        if (out.size() > limit)
            return false;
    }
}

} // namespace pinecove
