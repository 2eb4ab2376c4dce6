// SPDX-License-Identifier: MIT
#pragma once

#include "hostname_collation.h"
#include "hosts_document.h"

#include <optional>
#include <string>
#include <vector>

// The custom (non-system) entries in list order: enabled before disabled, then by first hostname
// in the user's collation ignoring case, then by address as plain text; entries alike in all
// three keep their file order (added ones after, in the order of adding).
//
// Sorting 200,000 entries takes far longer than a frame, so the order is sorted once per load
// and then kept by moving the one entry each edit touches.
class CustomOrder {
public:
    explicit CustomOrder(const HostnameCollation& collation)
        : collation_(collation) {}

    void rebuild(const pinecove::HostsDocument& document);
    // Each reports where the list changed: the entry's old and new place, or its place.
    std::optional<std::pair<int, int>> toggled(const pinecove::HostEntry& entry);
    std::optional<int> removed(const pinecove::Uuid& id);
    int added(const pinecove::HostEntry& entry);

    int size() const { return static_cast<int>(sorted_.size()); }
    // Enabled entries come first, so their count is where the disabled ones begin.
    int enabledCount() const;
    const pinecove::Uuid& idAt(int position) const {
        return items_[sorted_[static_cast<std::size_t>(position)]].id;
    }
    std::optional<int> positionOf(const pinecove::Uuid& id) const;

private:
    struct Item {
        pinecove::Uuid id;
        std::string_view name; // first hostname; points into the entry's own text
        std::string_view ip;
        // The key's first sixteen bytes, big-endian, zero-padded: most names differ in them, so
        // most comparisons are two integer compares.
        std::uint64_t keyPrefix = 0;
        std::uint64_t keyPrefix2 = 0;
        std::uint32_t keyOffset = 0; // the name's collation key in keys_, when fast keys are on
        std::uint32_t sequence = 0;  // file order, then order of adding
        bool enabled = true;
    };

    Item makeItem(const pinecove::HostEntry& entry, std::uint32_t sequence);
    bool before(const Item& a, const Item& b) const;
    int insertSorted(std::uint32_t item);

    const HostnameCollation& collation_;
    // Items never move; the order is a list of their indices, so an edit near the top of a huge
    // list shifts four bytes per entry rather than a whole item. A removed item stays behind,
    // unlisted, until the next rebuild.
    std::vector<Item> items_;
    std::vector<pinecove::Uuid> itemIds_; // items_[i].id, packed: finding an item scans only these
    std::vector<std::uint32_t> sorted_;
    std::string keys_; // every key, back to back; a key is as long as its name
    std::uint32_t nextSequence_ = 0;
};
