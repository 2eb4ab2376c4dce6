// SPDX-License-Identifier: MIT
#include "helper_request.h"

#include "descriptor_io.h"
#include "helper_protocol.h"
#include "utf8.h"

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

std::vector<std::string> requestArguments(std::size_t expectedSize, std::size_t size) {
    return {std::string(HelperProtocol::expectedSizeOption), std::to_string(expectedSize),
            std::string(HelperProtocol::sizeOption), std::to_string(size)};
}

std::optional<HelperRefusal> readRequest(int argc, const char* const* argv, int fd,
                                         HelperRequest& request) {
    using namespace HelperProtocol;
    const std::string synopsis =
        std::string(expectedSizeOption) + " N " + std::string(sizeOption) + " M";
    const HelperRefusal usage{Status::usage,
                              "Usage: pinecove-write-hosts " + synopsis +
                                  " (the loaded text and the new text on standard input)"};
    if (argc != 5 || argv[1] != expectedSizeOption || argv[3] != sizeOption)
        return usage;
    const auto expectedSize = parseSize(argv[2], maxExpectedBytes);
    const auto size = parseSize(argv[4], maxTextBytes);
    if (!expectedSize)
        return usage;
    if (!size)
        return HelperRefusal{Status::refusedInput, std::string(tooLargeMessage)};
    request.expected.resize(*expectedSize);
    request.text.resize(*size);
    if (!pinecove::readExactly(fd, request.expected) || !pinecove::readExactly(fd, request.text))
        return HelperRefusal{Status::refusedInput,
                             "The new hosts text arrived incomplete. Nothing was written."};
    if (!atEnd(fd))
        return HelperRefusal{Status::refusedInput,
                             "More data arrived than announced. Nothing was written."};
    if (!pinecove::isValidUtf8(request.text))
        return HelperRefusal{Status::refusedInput,
                             "The new hosts text is not UTF-8. Nothing was written."};
    return std::nullopt;
}
