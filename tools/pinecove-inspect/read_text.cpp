// SPDX-License-Identifier: MIT
#include "read_text.h"

#include "utf8.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pinecove::inspect {

namespace {

bool readAll(int fd, std::string& out) {
    // Sizing the buffer once avoids copying a multi-megabyte block list as it grows.
    struct stat info {};
    if (::fstat(fd, &info) == 0 && S_ISREG(info.st_mode) && info.st_size > 0)
        out.reserve(static_cast<std::size_t>(info.st_size));
    char buffer[1 << 16];
    for (;;) {
        const ssize_t got = ::read(fd, buffer, sizeof buffer);
        if (got == 0)
            return true;
        if (got < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        out.append(buffer, static_cast<std::size_t>(got));
    }
}

} // namespace

ReadResult readUtf8Text(const std::string& path) {
    const bool fromStdin = path == "-";
    const std::string name = fromStdin ? std::string("standard input") : path;
    ReadResult result;

    const int fd = fromStdin ? STDIN_FILENO : ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    std::string text;
    const bool ok = fd >= 0 && readAll(fd, text);
    const int savedErrno = errno;
    if (fd >= 0 && !fromStdin)
        ::close(fd);
    if (!ok) {
        result.error = "cannot read " + name + ": " + std::strerror(savedErrno);
        return result;
    }
    if (!isValidUtf8(text)) {
        result.error = name + " is not valid UTF-8 text";
        return result;
    }
    result.text = std::move(text);
    return result;
}

} // namespace pinecove::inspect
