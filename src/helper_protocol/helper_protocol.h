// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// What Pinecove and its Linux root helper say to each other through pkexec: the limits, every
// exit status the app can see and what it stands for, and the messages both sides give. Plain
// C++, so that the helper links it without Qt; the app, pinecovectl and pinecove-inspect link the
// same definitions, so the two sides cannot drift apart.
namespace HelperProtocol {

// `pinecove-write-hosts --expected-size N --size M` (see helper_request.h).
inline constexpr std::string_view expectedSizeOption = "--expected-size";
inline constexpr std::string_view sizeOption = "--size";

// The largest text written, on every platform.
inline constexpr std::size_t maxTextBytes = 199'999;
// The hosts file the app loaded may be larger than what may be written (a user thinning a block
// list), but not without bound.
inline constexpr std::size_t maxExpectedBytes = 64u << 20;

// A text of more than maxTextBytes UTF-8 bytes is refused before anything runs.
bool isTooLarge(std::string_view text);

// The helper's exit statuses, clear of pkexec's own (below), which reach the app the same way.
namespace Status {
inline constexpr int usage = 2;
inline constexpr int refusedInput = 3;
inline constexpr int changedOnDisk = 4;
inline constexpr int writeFailed = 5;
} // namespace Status

// The exit statuses by which a runner says its prompt was dismissed, or that the user may not do
// this.
struct PromptStatuses {
    int dismissed;
    int notAuthorized;
};
// pkexec has no other way to say either.
inline constexpr PromptStatuses pkexecStatuses{126, 127};

// Said by the helper (Status::refusedInput) and by the app before anything runs.
inline constexpr std::string_view tooLargeMessage =
    "The hosts file is unexpectedly large. Refusing to write.";
// Said by the helper (Status::changedOnDisk), and by the apply flow before it asks.
inline constexpr std::string_view conflictMessage =
    "The hosts file was changed by another app. Choose Refresh from the menu to load the "
    "latest version, then apply again.";
// Any other failure whose standard error says nothing the user could read (a killed helper).
inline constexpr std::string_view fallbackMessage = "Writing the hosts file failed.";
// pkexec's notAuthorized: polkit refused.
inline constexpr std::string_view notAuthorizedMessage = "Not authorized to update the hosts file.";
// pkexec's notAuthorized when no polkit agent runs to show the prompt (sway ships none).
inline constexpr std::string_view noAgentMessage =
    "No password prompt could be shown: no polkit authentication agent is running. Start your "
    "desktop's agent, or install one (Debian: sudo apt install lxpolkit) and log in again, then "
    "apply again.";
// How a dismissed administrator dialog shows in an error's message (AppleScript's "user
// canceled" number); the Linux runner reports a dismissal the same way.
inline constexpr std::string_view cancelMarker = "-128";
// pkexec's dismissed; it carries the cancel marker.
std::string dismissedMessage();

} // namespace HelperProtocol
