#include "process_script_runner.h"

#include "write_script.h"

#include <QFileInfo>
#include <QProcess>
#include <QStringDecoder>
#include <unistd.h>

ProcessScriptRunner::ProcessScriptRunner(QString program, QStringList arguments, Delivery delivery,
                                         std::function<std::string(const std::string&)> transform,
                                         std::optional<int> dismissedStatus)
    : program_(std::move(program))
    , arguments_(std::move(arguments))
    , delivery_(delivery)
    , transform_(std::move(transform))
    , dismissedStatus_(dismissedStatus) {}

std::string ProcessScriptRunner::failureMessage(const QByteArray& standardError) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded = utf8.decode(standardError);
    // Text that is not UTF-8 says nothing the user could read.
    const QString message = utf8.hasError() ? QString() : decoded.trimmed();
    return message.isEmpty() ? std::string(PrivilegedWriter::fallbackMessage)
                             : message.toStdString();
}

std::string ProcessScriptRunner::dismissedMessage() {
    // The same cancel marker that a dismissed macOS dialog carries, so that the apply flow
    // treats both alike.
    return "The administrator prompt was dismissed. (" +
           std::string(PrivilegedWriter::cancelMarker) + ")";
}

void ProcessScriptRunner::run(const std::string& script, std::function<void(Outcome)> done) {
    auto* process = new QProcess();
    const std::string payload = transform_ ? transform_(script) : script;
    QStringList arguments = arguments_;
    if (delivery_ == Delivery::LastArgument)
        arguments << QString::fromStdString(payload);
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
        [process, shared, dismissed = dismissedStatus_](int exitCode, QProcess::ExitStatus status) {
            const bool normal = status == QProcess::NormalExit;
            if (normal && exitCode == 0)
                (*shared)(Succeeded{});
            else if (normal && dismissed && exitCode == *dismissed)
                (*shared)(Failed{dismissedMessage()});
            else
                (*shared)(Failed{failureMessage(process->readAllStandardError())});
        });
    process->start();
    if (delivery_ == Delivery::StandardInput && process->state() != QProcess::NotRunning) {
        process->write(payload.data(), static_cast<qint64>(payload.size()));
        process->closeWriteChannel();
    }
}

std::shared_ptr<ScriptRunner> platformScriptRunner() {
#if defined(__APPLE__)
    return std::make_shared<ProcessScriptRunner>(
        QStringLiteral("/usr/bin/osascript"), QStringList{QStringLiteral("-e")},
        ProcessScriptRunner::Delivery::LastArgument,
        [](const std::string& script) { return PrivilegedWriter::appleScriptCommand(script); });
#else
    if (::geteuid() == 0)
        return std::make_shared<ProcessScriptRunner>(QStringLiteral("/bin/sh"),
                                                     QStringList{QStringLiteral("-s")},
                                                     ProcessScriptRunner::Delivery::StandardInput);
    // The installed helper carries Pinecove's own polkit prompt; a build run from its folder
    // falls back to the generic one.
    const QString helper = QStringLiteral(PINECOVE_WRITE_HELPER);
    const QStringList command = QFileInfo::exists(helper)
                                    ? QStringList{helper}
                                    : QStringList{QStringLiteral("/bin/sh"), QStringLiteral("-s")};
    return std::make_shared<ProcessScriptRunner>(QStringLiteral("/usr/bin/pkexec"), command,
                                                 ProcessScriptRunner::Delivery::StandardInput,
                                                 nullptr, ProcessScriptRunner::pkexecDismissed);
#endif
}
