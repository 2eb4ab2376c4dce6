// SPDX-License-Identifier: MIT
#include "entry_table.h"

#include <algorithm>
#include <bit>

namespace pinecove {

namespace {

constexpr std::size_t minimumIndexSize = 16;
constexpr int homeGroupBits = 12; // 4,096 groups: the counts stay in the first-level cache

std::size_t indexSizeFor(std::size_t count) {
    return std::max(minimumIndexSize, std::bit_ceil(count * 2));
}

} // namespace

EntryTable::EntryTable(std::vector<HostEntry> entries)
    : entries_(std::move(entries)) {
    rebuildIndex(indexSizeFor(entries_.size()));
}

std::size_t EntryTable::slotOf(const Uuid& id) const {
    const std::size_t hash = id.hash();
    const std::uint32_t tag = tagOf(hash);
    const std::size_t mask = index_.size() - 1;
    for (std::size_t slot = hash & mask;; slot = (slot + 1) & mask) {
        const Slot& s = index_[slot];
        if (s.entryPlusOne == 0 || (s.tag == tag && entries_[s.entryPlusOne - 1].id() == id))
            return slot;
    }
}

const HostEntry* EntryTable::find(const Uuid& id) const {
    if (index_.empty())
        return nullptr;
    const Slot& s = index_[slotOf(id)];
    return s.entryPlusOne == 0 ? nullptr : &entries_[s.entryPlusOne - 1];
}

// Random ids scatter entries across the index, and inserting them in file order would touch it at
// random. Placing them grouped by the high bits of their home slot walks it front to back
// instead; linear probing gives a valid table whatever the insertion order.
void EntryTable::rebuildIndex(std::size_t capacity) {
    index_.assign(capacity, Slot{});
    const std::size_t mask = capacity - 1;
    const int indexBits = static_cast<int>(std::bit_width(capacity)) - 1;
    const int shift = std::max(0, indexBits - homeGroupBits);

    // One sequential pass over the entries; everything after works on the hashes alone.
    std::vector<std::size_t> hashes(entries_.size());
    std::vector<std::uint32_t> groupStart((std::size_t{1} << homeGroupBits) + 1, 0);
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        hashes[i] = entries_[i].id().hash();
        ++groupStart[((hashes[i] & mask) >> shift) + 1];
    }
    for (std::size_t g = 1; g < groupStart.size(); ++g)
        groupStart[g] += groupStart[g - 1];
    std::vector<std::uint32_t> grouped(entries_.size());
    for (std::size_t i = 0; i < hashes.size(); ++i)
        grouped[groupStart[(hashes[i] & mask) >> shift]++] = static_cast<std::uint32_t>(i);

    for (const std::uint32_t position : grouped) {
        const std::size_t hash = hashes[position];
        std::size_t slot = hash & mask;
        while (index_[slot].entryPlusOne != 0)
            slot = (slot + 1) & mask;
        index_[slot] = Slot{position + 1, tagOf(hash)};
    }
}

std::uint32_t EntryTable::insert(HostEntry entry) {
    if ((entries_.size() + 1) * 2 > index_.size())
        rebuildIndex(indexSizeFor(entries_.size() + 1));
    const std::size_t slot = slotOf(entry.id());
    if (index_[slot].entryPlusOne != 0) {
        const std::uint32_t position = index_[slot].entryPlusOne - 1;
        entries_[position] = std::move(entry);
        return position;
    }
    const auto position = static_cast<std::uint32_t>(entries_.size());
    index_[slot] = Slot{position + 1, tagOf(entry.id().hash())};
    entries_.push_back(std::move(entry));
    return position;
}

// Backward-shift deletion keeps every run unbroken, so lookups never need tombstones.
void EntryTable::removeSlot(std::size_t slot) {
    const std::size_t mask = index_.size() - 1;
    std::size_t hole = slot;
    for (std::size_t next = (hole + 1) & mask; index_[next].entryPlusOne != 0;
         next = (next + 1) & mask) {
        const std::size_t home = entries_[index_[next].entryPlusOne - 1].id().hash() & mask;
        // An entry may fill the hole only if its home does not lie in the cyclic range (hole,
        // next].
        if (((next - home) & mask) >= ((next - hole) & mask)) {
            index_[hole] = index_[next];
            hole = next;
        }
    }
    index_[hole] = Slot{};
}

bool EntryTable::erase(const Uuid& id) {
    if (index_.empty())
        return false;
    const std::size_t slot = slotOf(id);
    if (index_[slot].entryPlusOne == 0)
        return false;
    const std::size_t position = index_[slot].entryPlusOne - 1;
    removeSlot(slot);

    // Keep the vector dense: the last entry takes the freed place.
    const std::size_t last = entries_.size() - 1;
    if (position != last) {
        Slot& moved = index_[slotOf(entries_[last].id())];
        entries_[position] = std::move(entries_[last]);
        moved.entryPlusOne = static_cast<std::uint32_t>(position + 1);
    }
    entries_.pop_back();
    return true;
}

} // namespace pinecove
