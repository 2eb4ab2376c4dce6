// SPDX-License-Identifier: MIT
#include "hosts_edits.h"

#include "ascii.h"

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

    HostEntry entry = HostEntry::added(ip, kept);
    const Uuid id = entry.id();
    const std::uint32_t position = document.entries.insert(std::move(entry));
    document.order.push_back(id);
    document.lines.push_back(Line::entry(id, position));
    return id;
}

} // namespace pinecove
