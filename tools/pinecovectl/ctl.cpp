// SPDX-License-Identifier: MIT
#include "ctl.h"

#include "backups.h"
#include "ctl_arguments.h"
#include "typed_input.h"
#include "unified_diff.h"
#include "utf8.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QThread>
#include <unordered_set>

using namespace pinecove;

namespace {

constexpr int done = 0;
constexpr int refused = 1;
constexpr int badUsage = 2;

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

class Ctl {
public:
    Ctl(const CtlArguments& arguments, HostsStore::Environment environment, QTextStream& out,
        QTextStream& err)
        : arguments_(arguments)
        , backups_(environment.backupsFolder ? environment.backupsFolder : Backups::defaultFolder)
        , store_(std::move(environment))
        , out_(out)
        , err_(err) {}

    int run() {
        const QString& command = arguments_.command;
        if (command == QLatin1String("backups"))
            return listBackups();
        if (store_.hasError())
            return fail(store_.lastErrorText());
        if (command == QLatin1String("list"))
            return list();
        if (command == QLatin1String("add"))
            return add();
        if (command == QLatin1String("restore"))
            return restore();
        return switchOrRemove();
    }

private:
    int fail(const QString& message) {
        err_ << message << Qt::endl;
        return refused;
    }

    int list() {
        std::vector<HostEntry> entries = store_.customEntries();
        if (arguments_.all)
            for (HostEntry& entry : store_.systemEntries())
                entries.push_back(std::move(entry));
        if (arguments_.json) {
            // One object at a time, so a 200,000-entry block list never sits in memory twice.
            out_ << '[';
            for (std::size_t i = 0; i < entries.size(); ++i) {
                const HostEntry& entry = entries[i];
                const QJsonObject object{
                    {QStringLiteral("enabled"), entry.isEnabled()},
                    {QStringLiteral("ip"), text(entry.ip())},
                    {QStringLiteral("hostnames"), QJsonArray::fromStringList(namesOf(entry))},
                    {QStringLiteral("system"), entry.isSystem()}};
                out_ << (i ? "," : "") << QJsonDocument(object).toJson(QJsonDocument::Compact);
            }
            out_ << ']' << Qt::endl;
            return done;
        }
        qsizetype width = 0;
        for (const HostEntry& entry : entries)
            width = std::max(width, static_cast<qsizetype>(entry.ip().size()));
        for (const HostEntry& entry : entries) {
            out_ << (entry.isEnabled() ? "on   " : "off  ")
                 << text(entry.ip()).leftJustified(width + 2)
                 << namesOf(entry).join(QLatin1Char(' '))
                 << (entry.isSystem() ? "  (system, locked)" : "") << Qt::endl;
        }
        return done;
    }

    int add() {
        const QString text = arguments_.operands.join(QLatin1Char(' '));
        const auto parsed = parseTypedInput(text.toStdString());
        if (!parsed)
            return fail(QStringLiteral("'%1' is not a mapping: give an optional IPv4 or IPv6 "
                                       "address and one or more hostnames (letters, digits, "
                                       "hyphens, dots).")
                            .arg(text));
        if (!store_.add(parsed->ip, parsed->hosts)) {
            out_ << "Nothing to do: every name is already in the hosts file." << Qt::endl;
            return done;
        }
        return write(store_.serialized(), false);
    }

    int switchOrRemove() {
        const QString& command = arguments_.command;
        std::unordered_set<Uuid> chosen;
        std::vector<HostEntry> all = store_.customEntries();
        const std::vector<HostEntry> system = store_.systemEntries();
        for (const QString& name : arguments_.operands) {
            const auto lists = [&](const HostEntry& entry) {
                return namesOf(entry).contains(name, Qt::CaseInsensitive);
            };
            bool found = false;
            for (const HostEntry& entry : all)
                if (lists(entry)) {
                    chosen.insert(entry.id());
                    found = true;
                }
            if (found)
                continue;
            if (std::any_of(system.begin(), system.end(), lists))
                return fail(QStringLiteral("%1 is one of the system's own entries, which "
                                           "Pinecove leaves alone.")
                                .arg(name));
            return fail(QStringLiteral("No entry has the name %1.").arg(name));
        }
        for (const HostEntry& entry : all) {
            if (!chosen.contains(entry.id()))
                continue;
            if (command == QLatin1String("remove"))
                store_.remove(entry.id());
            else if (entry.isEnabled() != (command == QLatin1String("on")))
                store_.toggle(entry.id());
        }
        if (!store_.isDirty()) {
            out_ << "Nothing to do: those entries are already " << command << '.' << Qt::endl;
            return done;
        }
        return write(store_.serialized(), false);
    }

    int listBackups() {
        const QDir folder(backups_());
        for (const QString& name : Backups::names(backups_()))
            out_ << name << "  " << QFileInfo(folder.filePath(name)).size() << " bytes" << Qt::endl;
        return done;
    }

    int restore() {
        const QStringList names = Backups::names(backups_());
        QString path;
        if (!arguments_.operands.isEmpty()) {
            const QString given = arguments_.operands.front();
            path = QFileInfo::exists(given) ? given : QDir(backups_()).filePath(given);
        } else if (!names.isEmpty()) {
            path = QDir(backups_()).filePath(names.front());
        } else {
            return fail(QStringLiteral("There is no backup in %1.").arg(backups_()));
        }
        const auto bytes = readBytes(path);
        if (!bytes)
            return fail(QStringLiteral("Could not read the backup %1.").arg(path));
        if (!isValidUtf8(*bytes))
            return fail(QStringLiteral("The backup %1 is not UTF-8; Pinecove will not write it.")
                            .arg(path));
        return write(*bytes, true);
    }

    // Shows the difference, then (unless a dry run) writes through the store's apply flow.
    int write(const std::string& text, bool wholeText) {
        const QString diff = unifiedDiff(store_.loadedText(), text);
        if (diff.isEmpty()) {
            out_ << "Nothing to do: /etc/hosts already holds that text." << Qt::endl;
            return done;
        }
        if (arguments_.dryRun || !arguments_.quiet)
            out_ << diff;
        if (arguments_.dryRun)
            return done;
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
            return fail(store_.lastErrorText());
        if (!written)
            return fail(QStringLiteral("Cancelled."));
        if (arguments_.quiet)
            out_ << "Wrote /etc/hosts (" << text.size() << " bytes); the old one is backed up."
                 << Qt::endl;
        return done;
    }

    const CtlArguments& arguments_;
    std::function<QString()> backups_;
    HostsStore store_;
    QTextStream& out_;
    QTextStream& err_;
};

} // namespace

std::function<QDateTime()> backupClock(std::function<QString()> folder) {
    return [folder = std::move(folder)] {
        QDateTime now = QDateTime::currentDateTime();
        while (QFile::exists(QDir(folder()).filePath(Backups::fileName(now)))) {
            QThread::msleep(static_cast<unsigned long>(1000 - now.time().msec()));
            now = QDateTime::currentDateTime();
        }
        return now;
    };
}

int runPinecovectl(const QStringList& words, HostsStore::Environment environment, QTextStream& out,
                   QTextStream& err) {
    QString error;
    const auto arguments = parseCtlArguments(words, error);
    if (!arguments) {
        err << "pinecovectl: " << error << "\nTry 'pinecovectl --help'." << Qt::endl;
        return badUsage;
    }
    if (arguments->help) {
        out << ctlHelp(arguments->command);
        return done;
    }
    if (!environment.backupsFolder)
        environment.backupsFolder = Backups::defaultFolder;
    if (!environment.clock)
        environment.clock = backupClock(environment.backupsFolder);
    return Ctl(*arguments, std::move(environment), out, err).run();
}
