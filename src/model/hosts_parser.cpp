// SPDX-License-Identifier: MIT
#include "hosts_parser.h"

#include "whitespace.h"

#include <arpa/inet.h>
#include <array>
#include <cstring>

namespace pinecove::HostsParser {

namespace {

constexpr char commentMarker = '#';
constexpr char zoneSeparator = '%';

// Splits at runs of spaces and tabs; empty tokens never appear.
template <typename Sink> void forEachToken(std::string_view text, Sink&& sink) {
    std::size_t i = 0;
    const std::size_t n = text.size();
    while (i < n) {
        while (i < n && isTokenSeparator(text[i]))
            ++i;
        const std::size_t start = i;
        while (i < n && !isTokenSeparator(text[i]))
            ++i;
        if (i > start)
            sink(text.substr(start, i - start));
    }
}

constexpr std::array<bool, 256> makeHostnameAlphabet() {
    std::array<bool, 256> allowed{};
    for (char c = 'a'; c <= 'z'; ++c)
        allowed[static_cast<unsigned char>(c)] = true;
    for (char c = 'A'; c <= 'Z'; ++c)
        allowed[static_cast<unsigned char>(c)] = true;
    for (char c = '0'; c <= '9'; ++c)
        allowed[static_cast<unsigned char>(c)] = true;
    allowed['-'] = allowed['.'] = allowed['_'] = true;
    return allowed;
}
constexpr std::array<bool, 256> hostnameAlphabet = makeHostnameAlphabet();

std::string_view addressCandidate(std::string_view text) {
    // The first non-empty piece between '%' characters; the whole text when there is none.
    std::size_t i = 0;
    while (i < text.size()) {
        const std::size_t end = std::min(text.find(zoneSeparator, i), text.size());
        if (end > i)
            return text.substr(i, end - i);
        i = end + 1;
    }
    return text;
}

} // namespace

bool isValidIP(std::string_view text) {
    const std::string_view candidate = addressCandidate(text);
    // No textual IPv4 or IPv6 address is this long; inet_pton also needs a terminated copy, and
    // an embedded NUL must not cut the candidate short.
    std::array<char, 64> buffer{};
    if (candidate.empty() || candidate.size() >= buffer.size() ||
        candidate.find('\0') != std::string_view::npos)
        return false;
    std::memcpy(buffer.data(), candidate.data(), candidate.size());
    std::array<unsigned char, 16> address{};
    return inet_pton(AF_INET, buffer.data(), address.data()) == 1 ||
           inet_pton(AF_INET6, buffer.data(), address.data()) == 1;
}

bool isValidHostname(std::string_view text) {
    if (text.empty() || text.size() > maxHostnameLength)
        return false;
    // The alphabet is ASCII, so counting bytes is counting characters for any text that passes.
    for (const char c : text)
        if (!hostnameAlphabet[static_cast<unsigned char>(c)])
            return false;
    return text.front() != '-' && text.front() != '.';
}

bool parseEntryView(std::string_view line, EntryView& out) {
    std::string_view text = trimWhitespace(line);
    if (text.empty())
        return false;
    out.enabled = true;
    if (text.front() == commentMarker) {
        out.enabled = false;
        text = trimWhitespace(text.substr(1));
        // A heading such as "##" or "# #" is never a mapping.
        if (text.empty() || text.front() == commentMarker)
            return false;
    }
    std::string_view mapping = text;
    out.comment.reset();
    if (const std::size_t hash = text.find(commentMarker); hash != std::string_view::npos) {
        out.comment = trimWhitespace(text.substr(hash + 1));
        mapping = trimWhitespace(text.substr(0, hash));
    }

    out.hosts.clear();
    bool first = true;
    bool valid = true;
    forEachToken(mapping, [&](std::string_view token) {
        if (!valid)
            return;
        if (first) {
            out.ip = token;
            first = false;
            valid = isValidIP(token);
        } else if (isValidHostname(token)) {
            out.hosts.push_back(token);
        } else {
            valid = false;
        }
    });
    return valid && !first && !out.hosts.empty();
}

std::optional<ParsedEntry> parseEntry(std::string_view line) {
    EntryView view;
    if (!parseEntryView(line, view))
        return std::nullopt;
    ParsedEntry entry;
    entry.ip = view.ip;
    entry.hosts.assign(view.hosts.begin(), view.hosts.end());
    if (view.comment)
        entry.comment = std::string(*view.comment);
    entry.enabled = view.enabled;
    return entry;
}

std::optional<ParsedInput> parseInput(std::string_view text) {
    std::vector<std::string> tokens;
    forEachToken(text, [&](std::string_view token) { tokens.emplace_back(token); });
    if (tokens.empty())
        return std::nullopt;

    ParsedInput input;
    auto firstHost = tokens.begin();
    if (isValidIP(tokens.front())) {
        input.ip = tokens.front();
        ++firstHost;
        if (firstHost == tokens.end())
            return std::nullopt;
    } else {
        input.ip = defaultAddress;
    }
    for (auto it = firstHost; it != tokens.end(); ++it) {
        if (!isValidHostname(*it))
            return std::nullopt;
        input.hosts.push_back(std::move(*it));
    }
    return input;
}

} // namespace pinecove::HostsParser
