#pragma once

#include "script_runner.h"

#include <QString>
#include <QStringList>
#include <optional>

// Runs a program as a child process and reads its outcome the way the administrator runners
// report it: status 0 is success; otherwise standard error, trimmed, is the message.
class ProcessScriptRunner : public ScriptRunner {
public:
    enum class Delivery {
        LastArgument, // the text is appended as one argument (osascript -e COMMAND)
        StandardInput // the text is written to the child's standard input (sh -s)
    };
    // `transform` turns the script into what is delivered (macOS wraps it in AppleScript).
    // `dismissedStatus` is an exit status by which the runner says its prompt was dismissed
    // (pkexec has no other way to say so).
    ProcessScriptRunner(QString program, QStringList arguments, Delivery delivery,
                        std::function<std::string(const std::string&)> transform = {},
                        std::optional<int> dismissedStatus = std::nullopt);

    void run(const std::string& script, std::function<void(Outcome)> done) override;

    // The user's message for a runner that failed after writing `standardError`.
    static std::string failureMessage(const QByteArray& standardError);
    // The message of a dismissed prompt; it carries the cancel marker.
    static std::string dismissedMessage();

    // Exit status with which pkexec reports a dismissed authentication dialog.
    static constexpr int pkexecDismissed = 126;

private:
    QString program_;
    QStringList arguments_;
    Delivery delivery_;
    std::function<std::string(const std::string&)> transform_;
    std::optional<int> dismissedStatus_;
};
