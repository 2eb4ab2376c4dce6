// SPDX-License-Identifier: MIT
#pragma once

#include "entry_table.h"
#include "line.h"

#include <string>
#include <vector>

namespace pinecove {

// The text of one entry's line, without a line feed. An entry read from the file is derived from
// its raw line, so switching it off and on again gives back the line exactly as read.
std::string lineText(const HostEntry& entry);
void appendLineText(std::string& out, const HostEntry& entry);

// The whole file: one piece per line (a line whose entry was deleted gives none), joined by line
// feeds, ending in exactly one line feed.
// `expectedSize` only pre-sizes the result.
std::string serialized(const std::vector<Line>& lines, const EntryTable& entries,
                       std::size_t expectedSize = 0);

} // namespace pinecove
