#include "hosts_edits.h"

#include "ascii.h"

#include <algorithm>
#include <unordered_set>

namespace pinecove {

bool toggleEntry(HostsDocument& document, const Uuid& id) {
    HostEntry* entry = document.entries.find(id);
    if (!entry || entry->isSystem())
        return false;
    entry->setEnabled(!entry->isEnabled());
    return true;
}

bool deleteEntry(HostsDocument& document, const Uuid& id) {
    const HostEntry* entry = document.entries.find(id);
    if (!entry || entry->isSystem())
        return false;
    document.entries.erase(id);
    std::erase(document.order, id);
    return true;
}

std::optional<Uuid> addEntry(HostsDocument& document, const std::string& ip,
                             const std::vector<std::string>& hostnames) {
    std::unordered_set<std::string> taken;
    for (const Uuid& id : document.order)
        if (const HostEntry* entry = document.entries.find(id))
            for (const std::string_view name : entry->hostnames())
                taken.insert(asciiLowercased(name));

    std::vector<std::string> kept;
    // The set is not extended while filtering: a new name given twice is kept twice.
    for (const std::string& name : hostnames)
        if (!taken.contains(asciiLowercased(name)))
            kept.push_back(name);
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
