// SPDX-License-Identifier: MIT
#include "hosts_document.h"

#include "hosts_parser.h"
#include "hosts_writer.h"

#include <algorithm>

namespace pinecove {

namespace {

HostEntry makeEntry(const std::shared_ptr<const std::string>& text, std::string_view line,
                    const HostsParser::EntryView& view) {
    // The names, with whatever separators stand between them in the line.
    const std::string_view first = view.hosts.front();
    const std::string_view last = view.hosts.back();
    const std::string_view names(
        first.data(), static_cast<std::size_t>(last.data() + last.size() - first.data()));
    return HostEntry::fromLine(text, line, view.ip,
                               HostnameList(names, static_cast<std::uint32_t>(view.hosts.size())),
                               view.comment, view.enabled);
}

} // namespace

HostsDocument parseHostsText(std::shared_ptr<const std::string> text) {
    HostsDocument document;
    document.text = std::move(text);
    const std::string_view all = *document.text;
    const auto lineCount = static_cast<std::size_t>(std::count(all.begin(), all.end(), '\n')) + 1;
    document.lines.reserve(lineCount);
    document.order.reserve(lineCount);
    std::vector<HostEntry> entries;
    entries.reserve(lineCount);

    HostsParser::EntryView view;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = std::min(all.find('\n', start), all.size());
        const std::string_view piece = all.substr(start, end - start);
        if (HostsParser::parseEntryView(piece, view)) {
            const auto position = static_cast<std::uint32_t>(entries.size());
            const Uuid id = entries.emplace_back(makeEntry(document.text, piece, view)).id();
            document.lines.push_back(Line::entry(id, position));
            document.order.push_back(id);
        } else {
            document.lines.push_back(Line::raw(piece));
        }
        if (end == all.size())
            break;
        start = end + 1;
    }
    document.entries = EntryTable(std::move(entries));
    return document;
}

HostsDocument parseHostsText(std::string text) {
    return parseHostsText(std::make_shared<const std::string>(std::move(text)));
}

std::string serialized(const HostsDocument& document) {
    // Edits change the length by a few lines at most, so the loaded size is a close guess.
    const std::size_t expected = document.text ? document.text->size() + 256 : 0;
    return serialized(document.lines, document.entries, expected);
}

} // namespace pinecove
