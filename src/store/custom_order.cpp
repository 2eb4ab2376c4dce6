// SPDX-License-Identifier: MIT
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
        collation_.appendKey(keys_, item.name);
        const std::string_view key = std::string_view(keys_).substr(item.keyOffset);
        // Weights start at 1, so zero padding sorts a shorter key first, as a full compare would.
        for (std::size_t i = 0; i < 16; ++i) {
            std::uint64_t& prefix = i < 8 ? item.keyPrefix : item.keyPrefix2;
            prefix = (prefix << 8) | (i < key.size() ? static_cast<std::uint8_t>(key[i]) : 0u);
        }
    }
    return item;
}

bool CustomOrder::before(const Item& a, const Item& b) const {
    if (a.enabled != b.enabled)
        return a.enabled;
    int byName = 0;
    if (collation_.hasFastKeys()) {
        if (a.keyPrefix != b.keyPrefix)
            return a.keyPrefix < b.keyPrefix;
        if (a.keyPrefix2 != b.keyPrefix2)
            return a.keyPrefix2 < b.keyPrefix2;
        // Equal prefixes of names that fit in them are equal names; block lists repeat short
        // names often, so this spares most full compares.
        constexpr std::size_t prefixBytes = 16;
        if (a.name.size() > prefixBytes || b.name.size() > prefixBytes) {
            const std::string_view keys(keys_);
            byName = keys.substr(a.keyOffset, a.name.size())
                         .compare(keys.substr(b.keyOffset, b.name.size()));
        }
    } else {
        byName = collation_.compare(a.name, b.name);
    }
    if (byName != 0)
        return byName < 0;
    if (a.ip != b.ip)
        return a.ip < b.ip; // UTF-8 byte order is code point order
    return a.sequence < b.sequence;
}

void CustomOrder::rebuild(const HostsDocument& document) {
    items_.clear();
    itemIds_.clear();
    sorted_.clear();
    keys_.clear();
    items_.reserve(document.order.size());
    std::uint32_t sequence = 0;
    for (const Uuid& id : document.order) {
        // Right after a load the table holds the entries in file order, so the position is a
        // hint that saves a hash lookup per entry.
        const HostEntry* entry = document.entries.find(id, sequence);
        if (entry && !entry->isSystem()) {
            items_.push_back(makeItem(*entry, sequence));
            itemIds_.push_back(entry->id());
        }
        ++sequence;
    }
    nextSequence_ = sequence;

    // A block list sorts hundreds of thousands of entries here. Sorting small records of the
    // leading key bytes (the enabled state folded into the top bit: weights never use it) makes
    // nearly every comparison two integer compares; only ties look at the whole entry. The
    // sequence breaks every tie, so a plain sort is as stable as the rule asks.
    struct Record {
        std::uint64_t first;
        std::uint64_t second;
        std::uint32_t item;
    };
    std::vector<Record> records(items_.size());
    for (std::size_t i = 0; i < items_.size(); ++i) {
        const Item& item = items_[i];
        const std::uint64_t disabled = item.enabled ? 0 : std::uint64_t{1} << 63;
        const auto index = static_cast<std::uint32_t>(i);
        records[i] = collation_.hasFastKeys()
                         ? Record{disabled | item.keyPrefix, item.keyPrefix2, index}
                         : Record{disabled, 0, index};
    }
    std::sort(records.begin(), records.end(), [this](const Record& a, const Record& b) {
        if (a.first != b.first)
            return a.first < b.first;
        if (a.second != b.second)
            return a.second < b.second;
        return before(items_[a.item], items_[b.item]);
    });
    sorted_.resize(records.size());
    for (std::size_t i = 0; i < records.size(); ++i)
        sorted_[i] = records[i].item;
}

int CustomOrder::enabledCount() const {
    const auto firstDisabled =
        std::partition_point(sorted_.begin(), sorted_.end(),
                             [this](std::uint32_t item) { return items_[item].enabled; });
    return static_cast<int>(firstDisabled - sorted_.begin());
}

std::optional<int> CustomOrder::positionOf(const Uuid& id) const {
    // Two sequential scans: the item by id, then its place in the list.
    const auto item = std::find(itemIds_.begin(), itemIds_.end(), id);
    if (item == itemIds_.end())
        return std::nullopt;
    const auto index = static_cast<std::uint32_t>(item - itemIds_.begin());
    const auto it = std::find(sorted_.begin(), sorted_.end(), index);
    if (it == sorted_.end())
        return std::nullopt; // removed earlier
    return static_cast<int>(it - sorted_.begin());
}

int CustomOrder::insertSorted(std::uint32_t item) {
    const auto at = std::upper_bound(
        sorted_.begin(), sorted_.end(), item,
        [this](std::uint32_t a, std::uint32_t b) { return before(items_[a], items_[b]); });
    // insert() may reallocate, so begin() is read only after it: within one expression the
    // order of the two calls is the compiler's choice, and g++ reads begin() first.
    const auto inserted = sorted_.insert(at, item);
    return static_cast<int>(inserted - sorted_.begin());
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
    itemIds_.push_back(entry.id());
    return insertSorted(static_cast<std::uint32_t>(items_.size() - 1));
}
