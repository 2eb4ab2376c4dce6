// SPDX-License-Identifier: MIT
#pragma once

#include "host_entry.h"

#include <optional>
#include <string>

// What a row says about its entry: the texts on screen and the ones a screen reader speaks.
// Plain C++, so the rules are tested without a view.
struct EntryRowText {
    std::string title;                       // the first hostname
    std::optional<std::string> badge;        // "+N" when there are N more names
    std::optional<std::string> badgeTooltip; // those names, joined by two spaces
    std::string address;
    std::string accessibleLabel; // names, address, and for system rows ", system entry, locked"
    std::string accessibleValue; // "on" or "off"
    std::string accessibleHint;  // empty for system rows
};

EntryRowText entryRowText(const pinecove::HostEntry& entry);

// "No custom entries", "3 active" or "3 active · 2 off".
std::string panelSubtitle(int customCount, int activeCount);
