#include "custom_order.h"

#include <algorithm>

using namespace pinecove;

CustomOrder::Item CustomOrder::makeItem(const HostEntry& entry, std::uint32_t sequence) {
    Item item;
    item.id = entry.id();
    item.name = entry.hostnames().empty() ? std::string_view() : entry.hostnames().front();
    item.ip = entry.ip();
    item.sequence = sequence;
    item.enabled = entry.isEnabled();
    if (collation_.hasFastKeys()) {
        const std::string key = collation_.key(item.name);
        item.keyOffset = static_cast<std::uint32_t>(keys_.size());
        keys_ += key;
        // Weights start at 1, so zero padding sorts a shorter key first, as a full compare would.
        for (std::size_t i = 0; i < 8; ++i)
            item.keyPrefix =
                (item.keyPrefix << 8) | (i < key.size() ? static_cast<std::uint8_t>(key[i]) : 0u);
    }
    return item;
}

bool CustomOrder::before(const Item& a, const Item& b) const {
    if (a.enabled != b.enabled)
        return a.enabled;
    int byName;
    if (collation_.hasFastKeys() && a.keyPrefix != b.keyPrefix)
        return a.keyPrefix < b.keyPrefix;
    if (collation_.hasFastKeys())
        byName = std::string_view(keys_)
                     .substr(a.keyOffset, a.name.size())
                     .compare(std::string_view(keys_).substr(b.keyOffset, b.name.size()));
    else
        byName = collation_.compare(a.name, b.name);
    if (byName != 0)
        return byName < 0;
    if (a.ip != b.ip)
        return a.ip < b.ip; // UTF-8 byte order is code point order
    return a.sequence < b.sequence;
}

void CustomOrder::rebuild(const HostsDocument& document) {
    items_.clear();
    sorted_.clear();
    keys_.clear();
    items_.reserve(document.order.size());
    std::uint32_t sequence = 0;
    for (const Uuid& id : document.order) {
        // Right after a load the table holds the entries in file order, so the position is a
        // hint that saves a hash lookup per entry.
        const HostEntry* entry = document.entries.find(id, sequence);
        if (entry && !entry->isSystem())
            items_.push_back(makeItem(*entry, sequence));
        ++sequence;
    }
    nextSequence_ = sequence;
    // Sorting the items themselves keeps the comparisons on neighbouring memory; the list then
    // starts out as the items in place. The sequence breaks every tie, so a plain sort is as
    // stable as the rule asks.
    std::sort(items_.begin(), items_.end(),
              [this](const Item& a, const Item& b) { return before(a, b); });
    sorted_.resize(items_.size());
    for (std::size_t i = 0; i < sorted_.size(); ++i)
        sorted_[i] = static_cast<std::uint32_t>(i);
}

std::optional<int> CustomOrder::positionOf(const Uuid& id) const {
    // Two sequential scans: the item by id, then its place in the list.
    const auto item =
        std::find_if(items_.begin(), items_.end(), [&](const Item& i) { return i.id == id; });
    if (item == items_.end())
        return std::nullopt;
    const auto index = static_cast<std::uint32_t>(item - items_.begin());
    const auto it = std::find(sorted_.begin(), sorted_.end(), index);
    if (it == sorted_.end())
        return std::nullopt; // removed earlier
    return static_cast<int>(it - sorted_.begin());
}

int CustomOrder::insertSorted(std::uint32_t item) {
    const auto at = std::upper_bound(
        sorted_.begin(), sorted_.end(), item,
        [this](std::uint32_t a, std::uint32_t b) { return before(items_[a], items_[b]); });
    return static_cast<int>(sorted_.insert(at, item) - sorted_.begin());
}

std::optional<std::pair<int, int>> CustomOrder::toggled(const HostEntry& entry) {
    const auto from = positionOf(entry.id());
    if (!from)
        return std::nullopt;
    const std::uint32_t item = sorted_[static_cast<std::size_t>(*from)];
    items_[item].enabled = entry.isEnabled();
    sorted_.erase(sorted_.begin() + *from);
    return std::pair{*from, insertSorted(item)};
}

std::optional<int> CustomOrder::removed(const Uuid& id) {
    const auto at = positionOf(id);
    if (at)
        sorted_.erase(sorted_.begin() + *at);
    return at;
}

int CustomOrder::added(const HostEntry& entry) {
    items_.push_back(makeItem(entry, nextSequence_++));
    return insertSorted(static_cast<std::uint32_t>(items_.size() - 1));
}
