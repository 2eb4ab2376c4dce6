// SPDX-License-Identifier: MIT
#pragma once

#include "hostname_list.h"
#include "uuid.h"

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace pinecove {

// One mapping of an address to hostnames, read from a line of the file or added by the user.
//
// An entry read from the file points into the text of that file, which it keeps alive; an added
// entry keeps a small text of its own. Either way an entry is a cheap value to copy.
class HostEntry {
public:
    HostEntry() = default;

    // A mapping line of a loaded file. `ip`, `hostnamesText` (the names with whatever separators
    // stand between them), `comment` and `line` all lie inside `*text`.
    static HostEntry fromLine(std::shared_ptr<const std::string> text, std::string_view line,
                              std::string_view ip, HostnameList hostnames,
                              std::optional<std::string_view> comment, bool enabled);
    // A mapping typed by the user: enabled, no comment, no raw line. Names hold no white space.
    static HostEntry added(std::string_view ip, const std::vector<std::string>& hostnames);

    const Uuid& id() const { return id_; }
    std::string_view ip() const { return ip_; }
    const HostnameList& hostnames() const { return hostnames_; }
    // Present and empty differs from absent: a line ending in "#" has an empty comment.
    std::optional<std::string_view> comment() const {
        return hasComment_ ? std::optional(comment_) : std::nullopt;
    }
    bool isEnabled() const { return isEnabled_; }
    // The line exactly as read; absent for added entries.
    std::optional<std::string_view> raw() const {
        return hasRaw_ ? std::optional(raw_) : std::nullopt;
    }
    bool originalEnabled() const { return originalEnabled_; }

    // The only change ever made to an entry after it is made.
    void setEnabled(bool enabled) { isEnabled_ = enabled; }

    // Names that mark a mapping as the system's own; such entries are locked.
    static const std::set<std::string, std::less<>>& systemHostnames();
    bool isSystem() const;

    // All seven fields, in the order id, ip, hostnames, comment, isEnabled, raw, originalEnabled.
    friend bool operator==(const HostEntry& a, const HostEntry& b);

private:
    Uuid id_;
    std::shared_ptr<const std::string> storage_; // keeps the views below valid
    std::string_view ip_;
    HostnameList hostnames_;
    std::string_view comment_;
    std::string_view raw_;
    bool hasComment_ = false;
    bool hasRaw_ = false;
    bool isEnabled_ = true;
    bool originalEnabled_ = true;
};

} // namespace pinecove
