// SPDX-License-Identifier: MIT
#pragma once

#include "hosts_document.h"
#include "hosts_edits.h"
#include "hosts_parser.h"
#include "typed_input.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pinecove::test {

// The text that loading `text` and writing it back unchanged must give: the same bytes, except
// that the end is cut or padded to exactly one line feed.
inline std::string expectedRoundTrip(std::string_view text) {
    std::string expected(text);
    while (expected.ends_with("\n\n"))
        expected.pop_back();
    if (!expected.ends_with('\n'))
        expected += '\n';
    return expected;
}

namespace detail {

inline std::vector<const HostEntry*> entriesInOrder(const HostsDocument& document) {
    std::vector<const HostEntry*> entries;
    for (const Uuid& id : document.order)
        if (const HostEntry* entry = document.entries.find(id))
            entries.push_back(entry);
    return entries;
}

inline std::vector<Uuid> customIds(const HostsDocument& document) {
    std::vector<Uuid> ids;
    for (const HostEntry* entry : entriesInOrder(document))
        if (!entry->isSystem())
            ids.push_back(entry->id());
    return ids;
}

inline std::optional<std::string> checkToggles(const HostsDocument& loaded,
                                               const std::string& text) {
    HostsDocument document = loaded;
    const std::vector<Uuid> ids = customIds(document);
    for (const Uuid& id : ids)
        toggleEntry(document, id);
    const std::string toggled = serialized(document);

    // The toggled text must read back as the same mappings, the custom ones in the other state.
    const auto flippedAlike = [](const HostEntry* a, const HostEntry* b) {
        return a->ip() == b->ip() && a->hostnames() == b->hostnames() &&
               a->comment() == b->comment() && (a->isEnabled() != b->isEnabled()) != a->isSystem();
    };
    if (!std::ranges::equal(entriesInOrder(loaded), entriesInOrder(parseHostsText(toggled)),
                            flippedAlike))
        return "a toggled line does not read back as its mapping in the other state";

    for (const Uuid& id : ids)
        toggleEntry(document, id);
    if (serialized(document) != text)
        return "toggling every entry twice did not restore the text";
    return std::nullopt;
}

// The expectation comes from the text itself, cut at its line feeds here, not from the lines the
// model keeps: an oracle built like the writer would share its slips.
inline std::optional<std::string> checkDeleteAll(const HostsDocument& loaded,
                                                 std::string_view text) {
    HostsDocument document = loaded;
    std::string expected;
    std::size_t start = 0;
    for (const Line& line : loaded.lines) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        const HostEntry* entry = line.isEntry() ? loaded.entries.find(line.entryId()) : nullptr;
        if (!entry || entry->isSystem())
            expected.append(text.substr(start, end - start)).append("\n");
        start = end + 1;
    }
    for (const Uuid& id : customIds(document))
        deleteEntry(document, id);
    if (!customIds(document).empty())
        return "custom entries survived deleting them all";
    if (serialized(document) != expectedRoundTrip(expected))
        return "deleting every entry did not leave exactly the other lines";
    return std::nullopt;
}

} // namespace detail

// Checks, for one UTF-8 text, the promises the model makes about any hosts file:
// - one line per line feed, plus one;
// - load then serialize gives expectedRoundTrip, and doing it again changes nothing;
// - switching every custom entry off or on gives lines that read back as the same mappings in the
//   other state, and switching them all again restores the text exactly;
// - deleting every custom entry leaves exactly the other lines.
// Returns a description of the first broken promise, or nothing.
inline std::optional<std::string> checkModelInvariants(std::string_view text) {
    const HostsDocument document = parseHostsText(std::string(text));
    const auto lineFeeds = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    if (document.lines.size() != lineFeeds + 1)
        return "the line count is not the number of line feeds plus one";

    const std::string written = serialized(document);
    if (written != expectedRoundTrip(text))
        return "load then serialize changed more than the end of the text";
    if (serialized(parseHostsText(written)) != written)
        return "a second round trip changed the text";

    if (auto failure = detail::checkToggles(document, written))
        return failure;
    return detail::checkDeleteAll(document, text);
}

// Checks, for text typed or pasted into the input bar, that what it would add is a valid
// mapping and that adding it to a small file adds at most one line, which reads back as that
// mapping, and leaves every other line as it was. Returns the first broken promise, or nothing.
inline std::optional<std::string> checkTypedInputInvariants(std::string_view typed) {
    const auto parsed = parseTypedInput(typed);
    if (!parsed)
        return std::nullopt;
    if (!HostsParser::isValidIP(parsed->ip) || parsed->hosts.empty())
        return "typed input gave an invalid address or no names";
    for (const std::string& host : parsed->hosts)
        if (!HostsParser::isValidHostname(host))
            return "typed input gave an invalid name";
    // No final line feed: the new entry then follows the last line directly.
    const std::string base = "127.0.0.1 localhost\n# a comment\n10.0.0.1 taken.test\n";
    HostsDocument document = parseHostsText(base.substr(0, base.size() - 1));
    if (!addEntry(document, parsed->ip, parsed->hosts))
        return std::nullopt; // every name taken: nothing added
    const std::string written = serialized(document);
    if (!written.starts_with(base))
        return "an add changed an existing line";
    const std::string added = written.substr(base.size());
    if (added.find('\n') != added.size() - 1)
        return "an add wrote more than one line";
    const auto reread =
        HostsParser::parseEntry(std::string_view(added).substr(0, added.size() - 1));
    if (!reread || !reread->enabled || reread->ip != parsed->ip)
        return "an added line does not read back as the mapping";
    return std::nullopt;
}

} // namespace pinecove::test
