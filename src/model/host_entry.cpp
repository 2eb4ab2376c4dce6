// SPDX-License-Identifier: MIT
#include "host_entry.h"

#include "ascii.h"

#include <algorithm>

namespace pinecove {

HostEntry HostEntry::fromLine(std::shared_ptr<const std::string> text, std::string_view line,
                              std::string_view ip, HostnameList hostnames,
                              std::optional<std::string_view> comment, bool enabled) {
    HostEntry entry;
    entry.id_ = Uuid::random();
    entry.storage_ = std::move(text);
    entry.ip_ = ip;
    entry.hostnames_ = hostnames;
    entry.hasComment_ = comment.has_value();
    entry.comment_ = comment.value_or(std::string_view());
    entry.hasRaw_ = true;
    entry.raw_ = line;
    entry.isEnabled_ = enabled;
    entry.originalEnabled_ = enabled;
    return entry;
}

HostEntry HostEntry::added(std::string_view ip, const std::vector<std::string>& hostnames) {
    // One buffer: the address, then the names joined by single spaces.
    std::string text(ip);
    for (const std::string& name : hostnames) {
        text += ' ';
        text += name;
    }
    HostEntry entry;
    entry.id_ = Uuid::random();
    auto storage = std::make_shared<const std::string>(std::move(text));
    const std::string_view all = *storage;
    entry.ip_ = all.substr(0, ip.size());
    entry.hostnames_ = HostnameList(all.substr(std::min(all.size(), ip.size() + 1)),
                                    static_cast<std::uint32_t>(hostnames.size()));
    entry.storage_ = std::move(storage);
    return entry;
}

const std::set<std::string, std::less<>>& HostEntry::systemHostnames() {
    static const std::set<std::string, std::less<>> names{"localhost", "broadcasthost"};
    return names;
}

bool HostEntry::isSystem() const {
    if (hostnames_.empty())
        return false;
    // Lists are partitioned by this on every change, so it compares in place, against a plain
    // array rather than the set, and without lower-cased copies of the names.
    static const std::vector<std::string_view> system(systemHostnames().begin(),
                                                      systemHostnames().end());
    for (const std::string_view name : hostnames_) {
        const bool known = std::any_of(system.begin(), system.end(), [&](std::string_view s) {
            return equalsLowercased(name, s);
        });
        if (!known)
            return false;
    }
    return true;
}

bool operator==(const HostEntry& a, const HostEntry& b) {
    return a.id_ == b.id_ && a.ip_ == b.ip_ && a.hostnames_ == b.hostnames_ &&
           a.comment() == b.comment() && a.isEnabled_ == b.isEnabled_ && a.raw() == b.raw() &&
           a.originalEnabled_ == b.originalEnabled_;
}

} // namespace pinecove
