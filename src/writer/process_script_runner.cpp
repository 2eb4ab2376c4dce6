// SPDX-License-Identifier: MIT
#include "process_script_runner.h"

#include "helper_request.h"
#include "sealed_input.h"
#include "utf8.h"
#include "write_script.h"

#include <QFileInfo>
#include <QProcess>
#include <QTimer>
#include <unistd.h>

#if !defined(__APPLE__)
#include "helper_location.h"
#endif

ProcessScriptRunner::ProcessScriptRunner(QString program, QStringList arguments, Delivery delivery,
                                         std::function<std::string(const WriteRequest&)> transform,
                                         std::optional<PromptStatuses> promptStatuses,
                                         QString runsAsRoot)
    : program_(std::move(program))
    , arguments_(std::move(arguments))
    , delivery_(delivery)
    , transform_(std::move(transform))
    , promptStatuses_(promptStatuses)
    , runsAsRoot_(std::move(runsAsRoot)) {}

std::string ProcessScriptRunner::failureMessage(const QByteArray& standardError) {
    // Text that is not UTF-8 says nothing the user could read.
    const std::string_view bytes(standardError.constData(),
                                 static_cast<std::size_t>(standardError.size()));
    const QString message =
        pinecove::isValidUtf8(bytes) ? QString::fromUtf8(standardError).trimmed() : QString();
    return message.isEmpty() ? std::string(HelperProtocol::fallbackMessage) : message.toStdString();
}

namespace {

bool noAgent(const QByteArray& standardError) {
    return standardError.contains("No authentication agent found") ||
           standardError.contains("Error creating textual authentication agent");
}

} // namespace

void ProcessScriptRunner::run(const WriteRequest& request, std::function<void(Outcome)> done) {
    auto* process = new QProcess();
#if !defined(__APPLE__)
    // Checked on every run, not once: the file can change while Pinecove runs.
    if (!runsAsRoot_.isEmpty()) {
        if (auto refusal = HelperLocation::refusalToRunAsRoot(runsAsRoot_)) {
            QTimer::singleShot(0, process,
                               [process, done = std::move(done), message = std::move(*refusal)] {
                                   process->deleteLater();
                                   done(NotStarted{message});
                               });
            return;
        }
    }
#endif
    QStringList arguments = arguments_;
    int input = -1;
    if (delivery_ == Delivery::LastArgument) {
        arguments << QString::fromStdString(transform_ ? transform_(request) : request.text);
    } else {
        for (const std::string& argument :
             requestArguments(request.expected.size(), request.text.size()))
            arguments << QString::fromStdString(argument);
        input = sealedInput(request.expected, request.text);
        if (input < 0) {
            QTimer::singleShot(0, process, [process, done = std::move(done)] {
                process->deleteLater();
                done(NotStarted{"Could not hand the new hosts text to the helper."});
            });
            return;
        }
        // QProcess opens this path itself, read-only: the child's standard input is the sealed
        // file, and no pipe stays open for anyone to write into while the prompt waits.
        process->setStandardInputFile(QStringLiteral("/proc/self/fd/%1").arg(input));
    }
    process->setProgram(program_);
    process->setArguments(arguments);
    // The prompt belongs to the system; nothing the child prints on standard output matters.
    process->setStandardOutputFile(QProcess::nullDevice());

    // Both signals can fire for one child (a crash reports an error and then finishes), so the
    // first to arrive completes the call and the process object goes away after it.
    auto finish = [process, done = std::move(done)](Outcome outcome) mutable {
        if (!done)
            return;
        auto callback = std::move(done);
        done = nullptr;
        process->deleteLater();
        callback(std::move(outcome));
    };
    auto shared = std::make_shared<decltype(finish)>(std::move(finish));

    QObject::connect(process, &QProcess::errorOccurred, process,
                     [process, shared](QProcess::ProcessError error) {
                         if (error == QProcess::FailedToStart)
                             (*shared)(NotStarted{process->errorString().toStdString()});
                     });
    QObject::connect(
        process, &QProcess::finished, process,
        [process, shared, prompt = promptStatuses_](int exitCode, QProcess::ExitStatus status) {
            const bool normal = status == QProcess::NormalExit;
            if (normal && exitCode == 0)
                (*shared)(Succeeded{});
            else if (normal && prompt && exitCode == prompt->dismissed)
                (*shared)(Failed{HelperProtocol::dismissedMessage()});
            else if (normal && prompt && exitCode == prompt->notAuthorized)
                // pkexec gives one status for both; only its words tell a refusal from a
                // session with no agent to show the prompt (and, without a terminal, no
                // text prompt of pkexec's own either).
                (*shared)(Failed{std::string(noAgent(process->readAllStandardError())
                                                 ? HelperProtocol::noAgentMessage
                                                 : HelperProtocol::notAuthorizedMessage)});
            else
                (*shared)(Failed{failureMessage(process->readAllStandardError())});
        });
    if (!QFileInfo(program_).isExecutable()) {
        // Said before trying, so the user reads what to install rather than "execvp: …".
        QTimer::singleShot(0, process, [program = program_, shared] {
            (*shared)(NotStarted{program.toStdString() +
                                 " is missing, so Pinecove cannot ask for the administrator "
                                 "password. Install it (Debian: sudo apt install pkexec) and "
                                 "apply again."});
        });
    } else {
        process->start();
    }
    if (input >= 0)
        ::close(input);
}

std::shared_ptr<ScriptRunner> platformScriptRunner() {
#if defined(__APPLE__)
    return std::make_shared<ProcessScriptRunner>(
        QStringLiteral("/usr/bin/osascript"), QStringList{QStringLiteral("-e")},
        ProcessScriptRunner::Delivery::LastArgument, [](const WriteRequest& request) {
            return PrivilegedWriter::appleScriptCommand(
                PrivilegedWriter::writeScript(request.text, PrivilegedWriter::newDelimiter()));
        });
#else
    const QString helper = HelperLocation::path();
    if (::geteuid() == 0)
        return std::make_shared<ProcessScriptRunner>(helper, QStringList{},
                                                     ProcessScriptRunner::Delivery::HelperInput,
                                                     nullptr, std::nullopt, helper);
    return std::make_shared<ProcessScriptRunner>(QStringLiteral("/usr/bin/pkexec"),
                                                 QStringList{helper},
                                                 ProcessScriptRunner::Delivery::HelperInput,
                                                 nullptr, HelperProtocol::pkexecStatuses, helper);
#endif
}
