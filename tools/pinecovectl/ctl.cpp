// SPDX-License-Identifier: MIT
#include "ctl.h"

#include "backups.h"
#include "batch.h"
#include "ctl_arguments.h"
#include "edits.h"
#include "helper_protocol.h"
#include "raw_write.h"
#include "unified_diff.h"
#include "user_lock.h"
#include "utf8.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <nlohmann/json.hpp>
#include <optional>
#include <unordered_map>

using namespace pinecove;

namespace {

QString text(std::string_view bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

QStringList namesOf(const HostEntry& entry) {
    QStringList names;
    for (const std::string_view name : entry.hostnames())
        names << text(name);
    return names;
}

std::optional<std::string> readBytes(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.readAll().toStdString();
}

// The store's messages speak of the panel; these speak to a terminal.
QString forTerminal(const QString& message) {
    if (message == HostsStore::conflictMessage)
        return QStringLiteral("/etc/hosts changed while pinecovectl was working, so it was left "
                              "as the other program wrote it. Run the command again.");
    if (message == QString::fromUtf8(HelperProtocol::tooLargeMessage.data()))
        return QStringLiteral("The new /etc/hosts is too large to write.");
    QString said = message;
    if (said.endsWith(QLatin1String("apply again.")))
        said.replace(said.size() - 12, 12, QStringLiteral("run the command again."));
    return said;
}

class Ctl {
public:
    Ctl(const CtlArguments& arguments, HostsStore::Environment environment, QTextStream& out,
        QTextStream& err)
        : arguments_(arguments)
        , environment_(environment)
        , hostsPath_(environment.hostsPath)
        , backups_(environment.backupsFolder ? environment.backupsFolder : Backups::defaultFolder)
        , store_(std::move(environment))
        , out_(out)
        , err_(err) {}

    int run() {
        const QString& command = arguments_.command;
        if (command == QLatin1String("backups"))
            return listBackups();
        if (command == QLatin1String("restore"))
            return restore();
        if (store_.hasError())
            return fail(readProblem());
        if (command == QLatin1String("list"))
            return list();
        QString error;
        const int status = command == QLatin1String("batch")
                               ? applyBatch(store_, arguments_.operands.front(), error)
                               : applyEdit(store_, arguments_, error);
        if (status != CtlStatus::done)
            return fail(error, status);
        if (!store_.isDirty()) {
            out_ << "Nothing to do: /etc/hosts already says so." << Qt::endl;
            return CtlStatus::done;
        }
        return write(store_.serialized(), false);
    }

private:
    int fail(const QString& message, int status = CtlStatus::refused) {
        err_ << "pinecovectl: " << message << "\nNothing was written." << Qt::endl;
        return status;
    }

    // Why the store could not load the file, in words a terminal user can act on.
    QString readProblem() const {
        QFile file(hostsPath_);
        if (!file.open(QIODevice::ReadOnly))
            return QStringLiteral("Could not read %1: %2.").arg(hostsPath_, file.errorString());
        const QByteArray bytes = file.readAll();
        if (!isValidUtf8(
                std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size()))))
            return QStringLiteral("%1 is not UTF-8 text, and Pinecove edits only UTF-8. "
                                  "'pinecovectl restore' can put a backup back.")
                .arg(hostsPath_);
        return store_.lastErrorText();
    }

    int list() {
        std::vector<HostEntry> entries = store_.customEntries();
        if (arguments_.all)
            for (HostEntry& entry : store_.systemEntries())
                entries.push_back(std::move(entry));
        std::unordered_map<Uuid, int> lineOf;
        const std::vector<Line>& lines = store_.document().lines;
        for (std::size_t i = 0; i < lines.size(); ++i)
            if (lines[i].isEntry())
                lineOf.emplace(lines[i].entryId(), static_cast<int>(i + 1));
        if (arguments_.json) {
            // One object at a time, so a 200,000-entry block list never sits in memory twice.
            out_ << '[';
            for (std::size_t i = 0; i < entries.size(); ++i) {
                const HostEntry& entry = entries[i];
                const auto comment = entry.comment();
                // nlohmann::json, not ordered_json: its keys come out sorted, the order scripts
                // have always read.
                const nlohmann::json object{
                    {"enabled", entry.isEnabled()},
                    {"ip", entry.ip()},
                    {"hostnames", entry.hostnames().toVector()},
                    {"system", entry.isSystem()},
                    {"line", lineOf[entry.id()]},
                    {"comment", comment ? nlohmann::json(*comment) : nlohmann::json(nullptr)}};
                // The store loads only UTF-8, so strict mode cannot throw.
                out_ << (i ? "," : "")
                     << text(object.dump(-1, ' ', false, nlohmann::json::error_handler_t::strict));
            }
            out_ << ']' << Qt::endl;
            return CtlStatus::done;
        }
        qsizetype width = 0;
        for (const HostEntry& entry : entries)
            width = std::max(width, static_cast<qsizetype>(entry.ip().size()));
        const auto numberWidth = QString::number(lines.size()).size();
        for (const HostEntry& entry : entries) {
            const auto comment = entry.comment();
            out_ << QString::number(lineOf[entry.id()]).rightJustified(numberWidth) << "  "
                 << (entry.isEnabled() ? "on   " : "off  ")
                 << text(entry.ip()).leftJustified(width + 2)
                 << namesOf(entry).join(QLatin1Char(' '))
                 << (comment && !comment->empty() ? "  # " + text(*comment) : QString())
                 << (entry.isSystem() ? "  (system, locked)" : "") << Qt::endl;
        }
        return CtlStatus::done;
    }

    int listBackups() {
        const QDir folder(backups_());
        for (const QString& name : Backups::names(backups_()))
            out_ << name << "  " << QFileInfo(folder.filePath(name)).size() << " bytes" << Qt::endl;
        return CtlStatus::done;
    }

    int restore() {
        const QStringList names = Backups::names(backups_());
        QString path;
        if (!arguments_.operands.isEmpty()) {
            // A path has a slash ("./hosts.old"); a bare name is always a backup's.
            const QString given = arguments_.operands.front();
            path = given.contains(QLatin1Char('/')) ? given : QDir(backups_()).filePath(given);
        } else if (!names.isEmpty()) {
            path = QDir(backups_()).filePath(names.front());
        } else {
            return fail(QStringLiteral("There is no backup in %1.").arg(backups_()));
        }
        const auto bytes = readBytes(path);
        if (!bytes)
            return fail(QStringLiteral("Could not read the backup %1.").arg(path));
        if (!isValidUtf8(*bytes) || bytes->find('\0') != std::string::npos)
            return fail(QStringLiteral("%1 is not UTF-8 text without NUL bytes; Pinecove will not "
                                       "write it to /etc/hosts.")
                            .arg(path));
        if (!store_.hasError())
            return write(*bytes, true);
        // A file the store cannot load (not UTF-8, or missing) is replaced as it stands.
        const auto current =
            QFileInfo::exists(hostsPath_) ? readBytes(hostsPath_) : std::optional<std::string>("");
        if (!current || (isValidUtf8(*current) && QFileInfo::exists(hostsPath_)))
            return fail(readProblem());
        if (arguments_.dryRun || !arguments_.quiet)
            out_ << unifiedDiff(*current, *bytes);
        if (arguments_.dryRun)
            return changed();
        return finish(replaceUnloadable(*bytes, *current, environment_), bytes->size());
    }

    // The outcome of a write that got under way: `failure` as the runner said it, if any.
    int finish(const std::optional<std::string>& failure, std::size_t size) {
        if (failure && failure->find(HelperProtocol::cancelMarker) != std::string::npos) {
            err_ << "pinecovectl: Cancelled; nothing was written." << Qt::endl;
            return CtlStatus::refused;
        }
        if (failure)
            return fail(forTerminal(QString::fromStdString(*failure)));
        if (arguments_.quiet)
            out_ << "Wrote /etc/hosts (" << size << " bytes); the old one is backed up."
                 << Qt::endl;
        return changed();
    }

    // The status of a call that changed the file, or would in a dry run.
    int changed() const { return arguments_.changedExit.value_or(CtlStatus::done); }

    // Shows the difference, then (unless a dry run) writes through the store's apply flow. A dry
    // run makes every check the write makes before the prompt, and returns what it would.
    int write(const std::string& text, bool wholeText) {
        if (text == store_.loadedText()) {
            out_ << "Nothing to do: /etc/hosts already holds that text." << Qt::endl;
            return CtlStatus::done;
        }
        if (HelperProtocol::isTooLarge(text))
            return fail(QStringLiteral("The new /etc/hosts would be %1 bytes; Pinecove writes at "
                                       "most %2.")
                            .arg(text.size())
                            .arg(HelperProtocol::maxTextBytes));
        if (arguments_.dryRun && readBytes(hostsPath_) != store_.loadedText())
            return fail(forTerminal(HostsStore::conflictMessage));
        if (arguments_.dryRun || !arguments_.quiet)
            out_ << unifiedDiff(store_.loadedText(), text);
        if (arguments_.dryRun)
            return changed();
        QEventLoop loop;
        bool written = false;
        QObject::connect(&store_, &HostsStore::applyFinished, &loop, [&](bool wrote) {
            written = wrote;
            loop.quit();
        });
        if (wholeText)
            store_.applyText(text);
        else
            store_.apply();
        if (store_.isApplying())
            loop.exec();
        if (store_.hasError())
            return fail(forTerminal(store_.lastErrorText()));
        return finish(written ? std::nullopt
                              : std::optional<std::string>(HelperProtocol::cancelMarker),
                      text.size());
    }

    const CtlArguments& arguments_;
    const HostsStore::Environment environment_;
    QString hostsPath_;
    std::function<QString()> backups_;
    HostsStore store_;
    QTextStream& out_;
    QTextStream& err_;
};

} // namespace

int runPinecovectl(const QStringList& words, HostsStore::Environment environment, QTextStream& out,
                   QTextStream& err) {
    QString error;
    const auto arguments = parseCtlArguments(words, error);
    if (!arguments) {
        err << "pinecovectl: " << error << "\nTry 'pinecovectl --help'." << Qt::endl;
        return CtlStatus::badUsage;
    }
    if (arguments->help) {
        out << ctlHelp(arguments->command);
        return CtlStatus::done;
    }
    if (arguments->version) {
        out << "pinecovectl " << PINECOVE_VERSION << Qt::endl;
        return CtlStatus::done;
    }
    std::optional<UserLock> lock;
    const bool writes = isEditCommand(arguments->command) ||
                        arguments->command == QLatin1String("batch") ||
                        arguments->command == QLatin1String("restore");
    if (writes && !arguments->dryRun)
        lock.emplace(environment.backupsFolder ? environment.backupsFolder()
                                               : Backups::defaultFolder());
    return Ctl(*arguments, std::move(environment), out, err).run();
}
