// SPDX-License-Identifier: MIT
#include "read_text.h"

#include "descriptor_io.h"
#include "utf8.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace pinecove::inspect {

ReadResult readUtf8Text(const std::string& path) {
    const bool fromStdin = path == "-";
    const std::string name = fromStdin ? std::string("standard input") : path;
    ReadResult result;

    const int fd = fromStdin ? STDIN_FILENO : ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    std::string text;
    const bool ok = fd >= 0 && readToEnd(fd, text, text.max_size());
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
