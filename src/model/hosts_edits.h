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

} // namespace pinecove
