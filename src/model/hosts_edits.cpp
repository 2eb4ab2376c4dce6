// SPDX-License-Identifier: MIT
#include "hosts_edits.h"

#include "ascii.h"
#include "hosts_parser.h"

#include <algorithm>

namespace pinecove {

bool toggleEntry(HostsDocument& document, const Uuid& id) {
    HostEntry* entry = document.entries.find(id);
    if (!entry || entry->isSystem())
        return false;
    entry->setEnabled(!entry->isEnabled());
    return true;
}

bool deleteEntry(HostsDocument& document, Uuid id) {
    const HostEntry* entry = document.entries.find(id);
    if (!entry || entry->isSystem())
        return false;
    document.entries.erase(id);
    std::erase(document.order, id);
    return true;
}

std::optional<Uuid> addEntry(HostsDocument& document, const std::string& ip,
                             const std::vector<std::string>& hostnames) {
    // One pass over every entry (the table holds exactly the entries of the order), comparing
    // in place: on a 200,000-entry block list this is a few milliseconds, where building a set
    // of every lower-cased name is a few hundred.
    std::vector<bool> taken(hostnames.size(), false);
    auto mark = [&](std::string_view name) {
        for (std::size_t i = 0; i < hostnames.size(); ++i)
            if (!taken[i] && equalsIgnoringCase(name, hostnames[i]))
                taken[i] = true;
    };
    for (const HostEntry& existing : document.entries) {
        const HostnameList& names = existing.hostnames();
        if (names.size() == 1)
            mark(names.text()); // most entries: no need to split anything
        else
            for (const std::string_view name : names)
                mark(name);
    }

    // Names are checked against the entries only, not against each other: a new name given
    // twice is kept twice.
    std::vector<std::string> kept;
    for (std::size_t i = 0; i < hostnames.size(); ++i)
        if (!taken[i])
            kept.push_back(hostnames[i]);
    if (kept.empty())
        return std::nullopt;
    return appendEntry(document, ip, kept);
}

Uuid appendEntry(HostsDocument& document, const std::string& ip,
                 const std::vector<std::string>& hostnames) {
    HostEntry entry = HostEntry::added(ip, hostnames);
    const Uuid id = entry.id();
    const std::uint32_t position = document.entries.insert(std::move(entry));
    document.order.push_back(id);
    document.lines.push_back(Line::entry(id, position));
    return id;
}

namespace {

// The entry's raw line without the names equal to `name`: the text before the first name, each
// kept name with the separators that stood before it (none before the first one kept), then the
// text after the last name.
std::string rawWithout(const HostEntry& entry, std::string_view raw, std::string_view name) {
    const auto offset = [&](std::string_view piece) {
        return static_cast<std::size_t>(piece.data() - raw.data());
    };
    const std::string_view first = entry.hostnames().front();
    std::string text(raw.substr(0, offset(first)));
    std::size_t previousEnd = offset(first);
    bool keptOne = false;
    for (const std::string_view each : entry.hostnames()) {
        if (!equalsIgnoringCase(each, name)) {
            if (keptOne)
                text += raw.substr(previousEnd, offset(each) - previousEnd);
            text += each;
            keptOne = true;
        }
        previousEnd = offset(each) + each.size();
    }
    text += raw.substr(previousEnd);
    return text;
}

std::optional<HostEntry> entryFromLine(std::string line) {
    auto text = std::make_shared<const std::string>(std::move(line));
    HostsParser::EntryView view;
    if (!HostsParser::parseEntryView(*text, view))
        return std::nullopt;
    const std::string_view first = view.hosts.front();
    const std::string_view last = view.hosts.back();
    const std::string_view names(
        first.data(), static_cast<std::size_t>(last.data() + last.size() - first.data()));
    return HostEntry::fromLine(text, *text, view.ip,
                               HostnameList(names, static_cast<std::uint32_t>(view.hosts.size())),
                               view.comment, view.enabled);
}

} // namespace

bool removeHostname(HostsDocument& document, Uuid id, std::string_view name) {
    const HostEntry* entry = document.entries.find(id);
    if (!entry || entry->isSystem())
        return false;
    std::vector<std::string> kept;
    for (const std::string_view each : entry->hostnames())
        if (!equalsIgnoringCase(each, name))
            kept.emplace_back(each);
    if (kept.size() == entry->hostnames().size())
        return false;
    if (kept.empty())
        return deleteEntry(document, id);
    // Built before the table changes: `entry` points into it.
    std::optional<HostEntry> replacement =
        entry->raw() ? entryFromLine(rawWithout(*entry, *entry->raw(), name))
                     : HostEntry::added(entry->ip(), kept);
    if (!replacement)
        return false;
    replacement->setEnabled(entry->isEnabled()); // a pending switch stays pending
    const Uuid newId = replacement->id();
    document.entries.erase(id);
    const std::uint32_t position = document.entries.insert(std::move(*replacement));
    std::replace(document.order.begin(), document.order.end(), id, newId);
    for (Line& line : document.lines)
        if (line.isEntry() && line.entryId() == id) {
            line = Line::entry(newId, position);
            break;
        }
    return true;
}

} // namespace pinecove
