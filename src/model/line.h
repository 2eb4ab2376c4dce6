// SPDX-License-Identifier: MIT
#pragma once

#include "uuid.h"

#include <cstdint>
#include <string_view>

namespace pinecove {

// One line of the hosts file: either text kept byte for byte, or a reference to the entry that
// stands for a mapping line. A reference may outlive its entry (after a delete); such a line
// vanishes from the written text.
//
// Raw text points into the buffer that the owning document keeps alive (HostsDocument::text), so
// a line must not outlive its document. Raw lines only ever come from a load.
class Line {
public:
    static Line raw(std::string_view text) {
        Line line;
        line.raw_ = text;
        return line;
    }
    // `hint` is where the entry was last seen in its table; a stale hint only costs a lookup.
    static Line entry(const Uuid& id, std::uint32_t hint = 0) {
        Line line;
        line.id_ = id;
        line.hint_ = hint;
        line.isEntry_ = true;
        return line;
    }

    bool isRaw() const { return !isEntry_; }
    bool isEntry() const { return isEntry_; }
    // Only meaningful for the matching case.
    std::string_view rawText() const { return isEntry_ ? std::string_view() : raw_; }
    const Uuid& entryId() const { return id_; }
    std::uint32_t entryHint() const { return hint_; }

private:
    Line() {}

    // Block lists have hundreds of thousands of lines, so a line is kept to 24 bytes.
    union {
        std::string_view raw_;
        Uuid id_;
    };
    std::uint32_t hint_ = 0;
    bool isEntry_ = false;
};

} // namespace pinecove
