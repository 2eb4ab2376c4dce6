// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

// Builds the root shell script that replaces /etc/hosts, and the AppleScript command that runs
// it behind the macOS administrator dialog. Pure string building: what runs as root can be read,
// tested and printed (pinecove-inspect --script) without running it.
namespace PrivilegedWriter {

inline constexpr std::size_t maxTextBytes = 199'999;
inline constexpr std::string_view tooLargeMessage =
    "The hosts file is unexpectedly large. Refusing to write.";
inline constexpr std::string_view delimiterPrefix = "PINECOVE_EOF_";
inline constexpr std::string_view prompt = "Pinecove wants to update your hosts file.";
inline constexpr std::string_view fallbackMessage = "Writing the hosts file failed.";
// Said by the apply flow, and by the Linux helper when the file changed during the prompt.
inline constexpr std::string_view conflictMessage =
    "The hosts file was changed by another app. Choose Refresh from the menu to load the "
    "latest version, then apply again.";
// How a dismissed administrator dialog shows in an error's message (AppleScript's "user
// canceled" number); the Linux runner reports a dismissal the same way.
inline constexpr std::string_view cancelMarker = "-128";

// A text of more than maxTextBytes UTF-8 bytes is refused before anything runs.
bool isTooLarge(std::string_view text);

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
