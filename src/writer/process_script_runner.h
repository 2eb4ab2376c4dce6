// SPDX-License-Identifier: MIT
#pragma once

#include "helper_protocol.h"
#include "script_runner.h"

#include <QString>
#include <QStringList>
#include <optional>

// Runs a program as a child process and reads its outcome the way the administrator runners
// report it: status 0 is success; otherwise standard error, trimmed, is the message.
class ProcessScriptRunner : public ScriptRunner {
public:
    enum class Delivery {
        // One more argument: the text, or what `transform` makes of the request (osascript -e
        // and the AppleScript command).
        LastArgument,
        // The helper's data: "--expected-size N --size M" appended, and standard input reading
        // the expected text, then the new one, from a sealed in-memory file. Nothing can be
        // added to it while the prompt waits (Linux).
        HelperInput
    };
    using PromptStatuses = HelperProtocol::PromptStatuses;

    // `promptStatuses`: the runner's own statuses, if it has any (pkexec's are
    // HelperProtocol::pkexecStatuses). `runsAsRoot`: the file that will run as root, checked
    // before each run; the run is refused unless only root can change it.
    ProcessScriptRunner(QString program, QStringList arguments, Delivery delivery,
                        std::function<std::string(const WriteRequest&)> transform = {},
                        std::optional<PromptStatuses> promptStatuses = std::nullopt,
                        QString runsAsRoot = {});

    void run(const WriteRequest& request, std::function<void(Outcome)> done) override;

    // The user's message for a runner that failed after writing `standardError`.
    static std::string failureMessage(const QByteArray& standardError);

private:
    QString program_;
    QStringList arguments_;
    Delivery delivery_;
    std::function<std::string(const WriteRequest&)> transform_;
    std::optional<PromptStatuses> promptStatuses_;
    QString runsAsRoot_;
};
