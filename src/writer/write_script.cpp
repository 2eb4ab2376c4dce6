// SPDX-License-Identifier: MIT
#include "write_script.h"

#include "uuid.h"

#include <algorithm>
#include <array>

namespace PrivilegedWriter {

namespace {

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

} // namespace

bool isTooLarge(std::string_view text) {
    return text.size() > maxTextBytes;
}

std::string newDelimiter() {
    std::string hex = pinecove::Uuid::random().toString();
    std::erase(hex, '-');
    return std::string(delimiterPrefix) + hex;
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
