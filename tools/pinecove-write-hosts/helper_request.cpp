// SPDX-License-Identifier: MIT
#include "helper_request.h"

#include "descriptor_io.h"
#include "utf8.h"
#include "write_script.h"

#include <cerrno>
#include <charconv>
#include <string_view>
#include <unistd.h>

namespace {

std::optional<std::size_t> parseSize(std::string_view digits, std::size_t max) {
    std::size_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc() || end != digits.data() + digits.size() || digits.empty() ||
        value > max)
        return std::nullopt;
    return value;
}

bool atEnd(int fd) {
    char extra = 0;
    ssize_t got = 0;
    do
        got = ::read(fd, &extra, 1);
    while (got < 0 && errno == EINTR);
    return got == 0;
}

} // namespace

std::optional<HelperRefusal> readRequest(int argc, const char* const* argv, int fd,
                                         HelperRequest& request) {
    const HelperRefusal usage{HelperStatus::usage,
                              "Usage: pinecove-write-hosts --expected-size N --size M "
                              "(the loaded text and the new text on standard input)"};
    if (argc != 5 || std::string_view(argv[1]) != "--expected-size" ||
        std::string_view(argv[3]) != "--size")
        return usage;
    const auto expectedSize = parseSize(argv[2], maxExpectedBytes);
    const auto size = parseSize(argv[4], PrivilegedWriter::maxTextBytes);
    if (!expectedSize)
        return usage;
    if (!size)
        return HelperRefusal{HelperStatus::refusedInput,
                             std::string(PrivilegedWriter::tooLargeMessage)};
    request.expected.resize(*expectedSize);
    request.text.resize(*size);
    if (!pinecove::readExactly(fd, request.expected) || !pinecove::readExactly(fd, request.text))
        return HelperRefusal{HelperStatus::refusedInput,
                             "The new hosts text arrived incomplete. Nothing was written."};
    if (!atEnd(fd))
        return HelperRefusal{HelperStatus::refusedInput,
                             "More data arrived than announced. Nothing was written."};
    if (!pinecove::isValidUtf8(request.text))
        return HelperRefusal{HelperStatus::refusedInput,
                             "The new hosts text is not UTF-8. Nothing was written."};
    return std::nullopt;
}
