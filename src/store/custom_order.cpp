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
        item.keyOffset = static_cast<std::uint32_t>(keys_.size());
        keys_ += collation_.key(item.name);
    }
    return item;
}

bool CustomOrder::before(const Item& a, const Item& b) const {
    if (a.enabled != b.enabled)
        return a.enabled;
    int byName;
    if (collation_.hasFastKeys())
        byName = std::string_view(keys_).substr(a.keyOffset, a.name.size())
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
    keys_.clear();
    items_.reserve(document.order.size());
    std::uint32_t sequence = 0;
    for (const Uuid& id : document.order) {
        const HostEntry* entry = document.entries.find(id);
        if (entry && !entry->isSystem())
            items_.push_back(makeItem(*entry, sequence));
        ++sequence;
    }
    nextSequence_ = sequence;
    // The sequence breaks every tie, so a plain sort is as stable as the rule asks.
    std::sort(items_.begin(), items_.end(), [this](const Item& a, const Item& b) { return before(a, b); });
}

std::optional<int> CustomOrder::positionOf(const Uuid& id) const {
    const auto it = std::find_if(items_.begin(), items_.end(), [&](const Item& item) { return item.id == id; });
    if (it == items_.end())
        return std::nullopt;
    return static_cast<int>(it - items_.begin());
}

int CustomOrder::insertSorted(Item item) {
    const auto at = std::upper_bound(items_.begin(), items_.end(), item,
                                     [this](const Item& a, const Item& b) { return before(a, b); });
    return static_cast<int>(items_.insert(at, item) - items_.begin());
}

std::optional<std::pair<int, int>> CustomOrder::toggled(const HostEntry& entry) {
    const auto from = positionOf(entry.id());
    if (!from)
        return std::nullopt;
    Item item = items_[static_cast<std::size_t>(*from)];
    item.enabled = entry.isEnabled();
    items_.erase(items_.begin() + *from);
    return std::pair{*from, insertSorted(item)};
}

std::optional<int> CustomOrder::removed(const Uuid& id) {
    const auto at = positionOf(id);
    if (at)
        items_.erase(items_.begin() + *at);
    return at;
}

int CustomOrder::added(const HostEntry& entry) { return insertSorted(makeItem(entry, nextSequence_++)); }
