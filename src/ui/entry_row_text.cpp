// SPDX-License-Identifier: MIT
#include "entry_row_text.h"

using namespace pinecove;

EntryRowText entryRowText(const HostEntry& entry) {
    EntryRowText text;
    const HostnameList& names = entry.hostnames();
    text.address = entry.ip();
    std::size_t index = 0;
    for (const std::string_view name : names) {
        if (index == 0) {
            text.title = name;
        } else {
            text.badgeTooltip = text.badgeTooltip ? *text.badgeTooltip + "  " + std::string(name)
                                                  : std::string(name);
        }
        text.accessibleLabel += std::string(name) + ", ";
        ++index;
    }
    if (names.size() >= 2)
        text.badge = "+" + std::to_string(names.size() - 1);
    text.accessibleLabel += text.address;
    if (entry.isSystem())
        text.accessibleLabel += ", system entry, locked";
    text.accessibleValue = entry.isEnabled() ? "on" : "off";
    text.accessibleHint = entry.isSystem() ? "" : "Toggles this entry on or off.";
    return text;
}

std::string panelSubtitle(int customCount, int activeCount) {
    if (customCount == 0)
        return "No custom entries";
    const int off = customCount - activeCount;
    if (off == 0)
        return std::to_string(activeCount) + " active";
    return std::to_string(activeCount) + " active \u00B7 " + std::to_string(off) + " off";
}
