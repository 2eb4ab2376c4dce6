// SPDX-License-Identifier: MIT
#pragma once

#include "host_entry.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace pinecove {

// The entries of a document by id.
//
// Block lists run to hundreds of thousands of entries, and the dirty test looks every one of them
// up after each edit. Entries therefore live in one dense vector, in the order they were added,
// with a compact open-addressing index beside it. Lines remember where their entry sits
// (Line::entryHint), so walking a file in order reads the vector front to back and needs the
// index only for entries that have moved.
//
// Pointers returned by find() are invalidated by insert() and erase().
class EntryTable {
public:
    EntryTable() = default;
    // Takes entries with distinct ids, in bulk: the index is built in one cache-friendly pass.
    explicit EntryTable(std::vector<HostEntry> entries);

    const HostEntry* find(const Uuid& id) const;
    HostEntry* find(const Uuid& id) {
        return const_cast<HostEntry*>(std::as_const(*this).find(id));
    }
    // Tries position `hint` first.
    const HostEntry* find(const Uuid& id, std::uint32_t hint) const {
        if (hint < entries_.size() && entries_[hint].id() == id)
            return &entries_[hint];
        return find(id);
    }

    // Replaces an entry with the same id. Returns the entry's position, a hint for find().
    std::uint32_t insert(HostEntry entry);
    bool erase(const Uuid& id);

    std::size_t size() const { return entries_.size(); }
    bool empty() const { return entries_.empty(); }

    // In no particular order.
    auto begin() const { return entries_.begin(); }
    auto end() const { return entries_.end(); }

private:
    struct Slot {
        std::uint32_t entryPlusOne = 0; // 0 marks an empty slot
        std::uint32_t tag = 0;          // high hash bits, to skip most entry reads on collisions
    };

    static std::uint32_t tagOf(std::size_t hash) { return static_cast<std::uint32_t>(hash >> 32); }
    std::size_t
    slotOf(const Uuid& id) const; // the slot holding id, or the empty slot ending its run
    void rebuildIndex(std::size_t capacity);
    void removeSlot(std::size_t slot);

    std::vector<HostEntry> entries_;
    std::vector<Slot> index_; // size is zero or a power of two, at most half full
};

} // namespace pinecove
