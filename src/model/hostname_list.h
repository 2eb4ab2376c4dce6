// SPDX-License-Identifier: MIT
#pragma once

#include "whitespace.h"

#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace pinecove {

// The hostnames of an entry, read in place from text in which they stand separated by runs of
// spaces and tabs (a stretch of the file's line, or the names the user typed joined by spaces).
// Hostnames never contain a space or a tab, so the text alone determines the list; this spares a
// block list of hundreds of thousands of entries two allocations per entry.
class HostnameList {
public:
    class Iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = std::string_view;
        using difference_type = std::ptrdiff_t;
        using pointer = const std::string_view*;
        using reference = std::string_view;

        Iterator() = default;
        std::string_view operator*() const { return current_; }
        Iterator& operator++() {
            advance();
            return *this;
        }
        Iterator operator++(int) {
            Iterator before = *this;
            advance();
            return before;
        }
        friend bool operator==(const Iterator& a, const Iterator& b) {
            return a.current_.data() == b.current_.data() && a.remaining_ == b.remaining_;
        }

    private:
        friend class HostnameList;
        Iterator(std::string_view text, std::uint32_t count)
            : rest_(text)
            , remaining_(count) {
            advance(false);
        }
        void advance(bool consume = true) {
            if (consume)
                --remaining_;
            if (remaining_ == 0) {
                current_ = {};
                return;
            }
            std::size_t start = 0;
            while (start < rest_.size() && isTokenSeparator(rest_[start]))
                ++start;
            std::size_t end = start;
            while (end < rest_.size() && !isTokenSeparator(rest_[end]))
                ++end;
            current_ = rest_.substr(start, end - start);
            rest_.remove_prefix(end);
        }

        std::string_view rest_;
        std::string_view current_;
        std::uint32_t remaining_ = 0;
    };

    HostnameList() = default;
    // `text` holds exactly `count` names separated by spaces and tabs.
    HostnameList(std::string_view text, std::uint32_t count)
        : text_(text)
        , count_(count) {}

    std::size_t size() const { return count_; }
    // The names with the separators between them as they stand: for a single name, the name.
    std::string_view text() const { return text_; }
    bool empty() const { return count_ == 0; }
    Iterator begin() const { return Iterator(text_, count_); }
    Iterator end() const { return Iterator(); }
    std::string_view front() const { return *begin(); }
    std::vector<std::string> toVector() const { return {begin(), end()}; }

    friend bool operator==(const HostnameList& a, const HostnameList& b) {
        if (a.count_ != b.count_)
            return false;
        for (auto i = a.begin(), j = b.begin(); i != a.end(); ++i, ++j)
            if (*i != *j)
                return false;
        return true;
    }

private:
    std::string_view text_;
    std::uint32_t count_ = 0;
};

} // namespace pinecove
