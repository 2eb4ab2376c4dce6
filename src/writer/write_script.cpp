// SPDX-License-Identifier: MIT
#include "write_script.h"

#include <algorithm>
#include <array>
#include <random>

namespace PrivilegedWriter {

namespace {

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

} // namespace

std::string newDelimiter() {
    // The text runs as root inside a here-document: a delimiter anyone could predict would let a
    // line of the hosts file end it early, so every digit comes from the system's random source.
    static constexpr char digits[] = "0123456789ABCDEF";
    std::random_device source;
    std::string delimiter(delimiterPrefix);
    for (int word = 0; word < 4; ++word) {
        const std::uint32_t bits = source();
        for (int shift = 28; shift >= 0; shift -= 4)
            delimiter += digits[(bits >> shift) & 0xF];
    }
    return delimiter;
}

std::string writeScript(std::string_view text, std::string_view delimiter) {
    std::string body(text);
    if (!body.ends_with('\n'))
        body += '\n';
    const std::array<std::string, 9> lines = {
        "set -e",
        "T=$(/usr/bin/mktemp /etc/hosts.pinecove.XXXXXX)",
        "/bin/cat > \"$T\" <<'" + std::string(delimiter) + "'",
        body + std::string(delimiter),
        "/bin/chmod 644 \"$T\"",
        "/usr/sbin/chown root:wheel \"$T\"",
        "/bin/mv \"$T\" /etc/hosts",
        "/usr/bin/dscacheutil -flushcache",
        "/usr/bin/killall -HUP mDNSResponder 2>/dev/null || /usr/bin/true",
    };
    std::string script;
    for (const std::string& line : lines) {
        if (!script.empty())
            script += '\n';
        script += line;
    }
    return script;
}

std::string escapeForAppleScript(std::string_view script) {
    std::string escaped(script);
    // Backslashes first, so the ones the later steps insert are not doubled again.
    replaceAll(escaped, "\\", "\\\\");
    replaceAll(escaped, "\"", "\\\"");
    replaceAll(escaped, "\n", "\\n");
    return escaped;
}

std::string appleScriptCommand(std::string_view script) {
    return "do shell script \"" + escapeForAppleScript(script) +
           "\" with administrator privileges with prompt \"" + std::string(prompt) + "\"";
}

} // namespace PrivilegedWriter
