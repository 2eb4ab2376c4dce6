// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

// Builds the root shell script that replaces /etc/hosts, and the AppleScript command that runs
// it behind the macOS administrator dialog. Pure string building: what runs as root can be read,
// tested and printed (pinecove-inspect --script) without running it. The size limit and the
// messages it shares with Linux are the helper protocol's (helper_protocol.h).
namespace PrivilegedWriter {

inline constexpr std::string_view delimiterPrefix = "PINECOVE_EOF_";
inline constexpr std::string_view prompt = "Pinecove wants to update your hosts file.";
// "PINECOVE_EOF_" and 32 hexadecimal digits, new on every call.
std::string newDelimiter();

// The nine-line script that writes `text` to a temporary file in /etc, gives it the hosts file's
// mode and owner, renames it over /etc/hosts and flushes the name caches. The here-document is
// quoted, so the shell expands nothing in the text.
std::string writeScript(std::string_view text, std::string_view delimiter);

// Backslashes doubled, then double quotes and line feeds escaped, for an AppleScript literal.
std::string escapeForAppleScript(std::string_view script);

// do shell script "…" with administrator privileges with prompt "…"
std::string appleScriptCommand(std::string_view script);

} // namespace PrivilegedWriter
