// SPDX-License-Identifier: MIT
#pragma once

#include "hosts_document.h"

#include <optional>
#include <string>
#include <vector>

namespace pinecove {

// In-memory edits of a document. System entries are locked, and an unknown id changes nothing.

// Flips isEnabled; false when nothing changed.
bool toggleEntry(HostsDocument& document, const Uuid& id);
// Removes the entry and its id from the order. Its line stays but writes nothing. The id is a
// copy: a reference into the table would be overwritten by the erase it asks for.
bool deleteEntry(HostsDocument& document, Uuid id);
// Appends an enabled entry holding those names that no entry has yet (ignoring case), as the new
// last line; no entry when every name is taken.
std::optional<Uuid> addEntry(HostsDocument& document, const std::string& ip,
                             const std::vector<std::string>& hostnames);
// Appends an enabled entry holding all the names, taken or not, as the new last line.
Uuid appendEntry(HostsDocument& document, const std::string& ip,
                 const std::vector<std::string>& hostnames);
// Takes every occurrence of `name` (ignoring case) out of the entry's names. The line keeps its
// other names, the separators before them, its address, comment, state and place; only the
// entry's id changes. With no name left the entry is deleted. False when nothing changed.
bool removeHostname(HostsDocument& document, Uuid id, std::string_view name);

} // namespace pinecove
