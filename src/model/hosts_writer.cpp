// SPDX-License-Identifier: MIT
#include "hosts_writer.h"

#include "whitespace.h"

namespace pinecove {

namespace {

constexpr std::string_view disabledPrefix = "# ";

void appendFromRaw(std::string& out, const HostEntry& entry, std::string_view raw) {
    if (entry.isEnabled() == entry.originalEnabled()) {
        out += raw;
    } else if (entry.isEnabled()) {
        std::string_view text = trimWhitespace(raw);
        if (!text.empty() && text.front() == '#')
            text = trimWhitespace(text.substr(1));
        out += text;
    } else {
        out += disabledPrefix;
        out += raw;
    }
}

void appendFromFields(std::string& out, const HostEntry& entry) {
    if (!entry.isEnabled())
        out += disabledPrefix;
    out += entry.ip();
    out += '\t';
    bool first = true;
    for (const std::string_view name : entry.hostnames()) {
        if (!first)
            out += ' ';
        first = false;
        out += name;
    }
    if (const auto comment = entry.comment(); comment && !comment->empty()) {
        out += " # ";
        out += *comment;
    }
}

} // namespace

void appendLineText(std::string& out, const HostEntry& entry) {
    if (const auto raw = entry.raw())
        appendFromRaw(out, entry, *raw);
    else
        appendFromFields(out, entry);
}

std::string lineText(const HostEntry& entry) {
    std::string text;
    appendLineText(text, entry);
    return text;
}

std::string serialized(const std::vector<Line>& lines, const EntryTable& entries,
                       std::size_t expectedSize) {
    std::string text;
    text.reserve(expectedSize);
    bool first = true;
    for (const Line& line : lines) {
        const HostEntry* entry = nullptr;
        if (line.isEntry()) {
            entry = entries.find(line.entryId(), line.entryHint());
            if (!entry)
                continue; // deleted: no piece at all, not even an empty one
        }
        if (!first)
            text += '\n';
        first = false;
        if (entry)
            appendLineText(text, *entry);
        else
            text += line.rawText();
    }
    while (text.size() >= 2 && text.ends_with("\n\n"))
        text.pop_back();
    if (!text.ends_with('\n'))
        text += '\n';
    return text;
}

} // namespace pinecove
