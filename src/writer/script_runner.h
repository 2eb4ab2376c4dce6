#pragma once

#include <functional>
#include <memory>
#include <string>
#include <variant>

// Runs the root write script behind the system's administrator prompt.
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
    virtual void run(const std::string& script, std::function<void(Outcome)> done) = 0;
};

// The runner of this platform: osascript on macOS; on Linux pkexec, or /bin/sh when already root.
std::shared_ptr<ScriptRunner> platformScriptRunner();
