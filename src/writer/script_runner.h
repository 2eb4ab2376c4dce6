// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <variant>

// What one privileged write asks for: replace /etc/hosts with `text`. `expected` is the file's
// text as the store loaded it; the Linux helper writes only while the file still holds it.
struct WriteRequest {
    std::string text;
    std::string expected;
};

// Runs the root write behind the system's administrator prompt: the script through osascript on
// macOS, the data-only helper through pkexec on Linux.
class ScriptRunner {
public:
    struct Succeeded {};
    // The runner ran and reported a failure; `message` is meant for the user.
    struct Failed {
        std::string message;
    };
    // The runner could not be started at all.
    struct NotStarted {
        std::string message;
    };
    using Outcome = std::variant<Succeeded, Failed, NotStarted>;

    virtual ~ScriptRunner() = default;
    // Completes exactly once, on the calling thread's event loop, never before returning.
    virtual void run(const WriteRequest& request, std::function<void(Outcome)> done) = 0;
};

// The runner of this platform: osascript on macOS; on Linux the helper, through pkexec, or
// directly when already root.
std::shared_ptr<ScriptRunner> platformScriptRunner();
