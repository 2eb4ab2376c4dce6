// SPDX-License-Identifier: MIT
#include "model_invariants.h"

#include "hosts_document.h"
#include "hosts_edits.h"

#include <algorithm>
#include <vector>

namespace pinecove::test {

namespace {

std::vector<const HostEntry*> entriesInOrder(const HostsDocument& document) {
    std::vector<const HostEntry*> entries;
    for (const Uuid& id : document.order)
        if (const HostEntry* entry = document.entries.find(id))
            entries.push_back(entry);
    return entries;
}

std::vector<Uuid> customIds(const HostsDocument& document) {
    std::vector<Uuid> ids;
    for (const HostEntry* entry : entriesInOrder(document))
        if (!entry->isSystem())
            ids.push_back(entry->id());
    return ids;
}

bool sameMapping(const HostEntry& a, const HostEntry& b) {
    return a.ip() == b.ip() && a.hostnames() == b.hostnames() && a.comment() == b.comment();
}

std::optional<std::string> checkToggles(const HostsDocument& loaded, const std::string& text) {
    HostsDocument document = loaded;
    const std::vector<Uuid> ids = customIds(document);
    for (const Uuid& id : ids)
        toggleEntry(document, id);
    const std::string toggled = serialized(document);

    // The toggled text must read back as the same mappings, each in the other state.
    const HostsDocument reread = parseHostsText(toggled);
    const auto before = entriesInOrder(loaded);
    const auto after = entriesInOrder(reread);
    if (before.size() != after.size())
        return "toggling changed the number of mappings";
    for (std::size_t i = 0; i < before.size(); ++i) {
        const bool flipped = !before[i]->isSystem();
        if (!sameMapping(*before[i], *after[i]) ||
            after[i]->isEnabled() != (flipped ? !before[i]->isEnabled() : before[i]->isEnabled()))
            return "a toggled line does not read back as its mapping in the other state";
    }

    for (const Uuid& id : ids)
        toggleEntry(document, id);
    if (serialized(document) != text)
        return "toggling every entry twice did not restore the text";
    return std::nullopt;
}

// The expectation comes from the text itself, cut at its line feeds here, not from the lines the
// model keeps: an oracle built like the writer would share its slips.
std::optional<std::string> checkDeleteAll(const HostsDocument& loaded, std::string_view text) {
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

} // namespace

std::string expectedRoundTrip(std::string_view text) {
    std::string expected(text);
    while (expected.ends_with("\n\n"))
        expected.pop_back();
    if (!expected.ends_with('\n'))
        expected += '\n';
    return expected;
}

std::optional<std::string> checkModelInvariants(std::string_view text) {
    const HostsDocument document = parseHostsText(std::string(text));
    const auto lineFeeds = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    if (document.lines.size() != lineFeeds + 1)
        return "the line count is not the number of line feeds plus one";

    const std::string written = serialized(document);
    if (written != expectedRoundTrip(text))
        return "load then serialize changed more than the end of the text";
    if (serialized(parseHostsText(written)) != written)
        return "a second round trip changed the text";

    if (auto failure = checkToggles(document, written))
        return failure;
    return checkDeleteAll(document, text);
}

} // namespace pinecove::test
