// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pinecove {

// A mapping line taken apart.
struct ParsedEntry {
    std::string ip;
    std::vector<std::string> hosts;     // at least one
    std::optional<std::string> comment; // text after the first '#' past the leading marker, trimmed
    bool enabled = true;                // false for a commented-out line

    friend bool operator==(const ParsedEntry&, const ParsedEntry&) = default;
};

// What the user typed into the input field.
struct ParsedInput {
    std::string ip;
    std::vector<std::string> hosts; // at least one

    friend bool operator==(const ParsedInput&, const ParsedInput&) = default;
};

// Stateless and free of side effects; safe from any thread. Nothing here reports an error: text
// that is not a mapping, or not acceptable, simply gives no result.
namespace HostsParser {

inline constexpr std::string_view defaultAddress = "127.0.0.1";
inline constexpr std::size_t maxHostnameLength = 253;

// One line of the file, without its line feed.
std::optional<ParsedEntry> parseEntry(std::string_view line);
// IPv4 or IPv6 as inet_pton reads them, optionally followed by a zone suffix ("%lo0").
bool isValidIP(std::string_view text);
bool isValidHostname(std::string_view text);
// Hostnames alone map to 127.0.0.1; otherwise an address followed by hostnames.
std::optional<ParsedInput> parseInput(std::string_view text);

// The same grammar as parseEntry, but pointing into `line` and reusing `out`'s storage, so that
// loading a huge file does not allocate per token.
struct EntryView {
    std::string_view ip;
    std::vector<std::string_view> hosts;
    std::optional<std::string_view> comment;
    bool enabled = true;
};
bool parseEntryView(std::string_view line, EntryView& out);

} // namespace HostsParser

} // namespace pinecove
