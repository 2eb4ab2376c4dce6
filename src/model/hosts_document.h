// SPDX-License-Identifier: MIT
#pragma once

#include "entry_table.h"
#include "line.h"

#include <memory>
#include <string>
#include <vector>

namespace pinecove {

// The hosts file in memory: its lines in file order, its entries by id, and the ids in file
// order followed by added ones. The store and the command-line tool share this one form.
struct HostsDocument {
    std::shared_ptr<const std::string>
        text; // the text the lines were read from; raw lines point into it
    std::vector<Line> lines;
    EntryTable entries;
    std::vector<Uuid> order;
};

// Splits at every line feed (k line feeds give k + 1 lines) and parses each line; every mapping
// becomes an entry with a new random id. Lines keep pointing into `text`.
HostsDocument parseHostsText(std::shared_ptr<const std::string> text);
HostsDocument parseHostsText(std::string text);

std::string serialized(const HostsDocument& document);

} // namespace pinecove
