// SPDX-License-Identifier: MIT
#include "edits.h"

#include "ascii.h"
#include "hosts_parser.h"
#include "hosts_writer.h"
#include "operands.h"

#include <algorithm>
#include <iterator>

using namespace pinecove;

namespace {

// A custom entry and its line number in the file (lines added in this call count on past the
// end).
struct Listed {
    HostEntry entry;
    int line;
};

bool lists(const HostEntry& entry, std::string_view name) {
    for (const std::string_view each : entry.hostnames())
        if (equalsIgnoringCase(each, name))
            return true;
    return false;
}

bool listsOnly(const HostEntry& entry, std::string_view name) {
    for (const std::string_view each : entry.hostnames())
        if (!equalsIgnoringCase(each, name))
            return false;
    return true;
}

bool listsAlready(const std::vector<std::string>& names, std::string_view name) {
    return std::any_of(names.begin(), names.end(),
                       [&](const std::string& other) { return equalsIgnoringCase(other, name); });
}

bool at(const HostEntry& entry, const std::string& address) {
    return equalsIgnoringCase(entry.ip(), address);
}

QString described(const std::vector<Listed>& lines) {
    QString text;
    for (const Listed& each : lines)
        text += QStringLiteral("\n  line %1: %2")
                    .arg(QString::number(each.line), QString::fromStdString(lineText(each.entry)));
    return text;
}

class Editor {
public:
    Editor(HostsStore& store, const CtlArguments& edit, QString& error)
        : store_(store)
        , edit_(edit)
        , error_(error) {}

    int run() {
        if (edit_.command == QLatin1String("add"))
            return add();
        if (edit_.command == QLatin1String("set"))
            return set();
        return select();
    }

private:
    int refuse(int status, const QString& why) {
        error_ = why;
        return status;
    }

    // The custom lines that list `name`, with `address` only when given.
    std::vector<Listed> linesListing(const std::string& name,
                                     const std::optional<std::string>& address = {}) const {
        const HostsDocument& document = store_.document();
        std::vector<Listed> found;
        for (std::size_t i = 0; i < document.lines.size(); ++i) {
            const Line& line = document.lines[i];
            if (!line.isEntry())
                continue;
            const HostEntry* entry = document.entries.find(line.entryId(), line.entryHint());
            if (entry && !entry->isSystem() && lists(*entry, name) &&
                (!address || at(*entry, *address)))
                found.push_back({*entry, static_cast<int>(i + 1)});
        }
        return found;
    }

    // Bad names first (status 2), then system names (1); nothing when every name may be edited.
    std::optional<int> checkNames(const QStringList& names) {
        for (const QString& name : names)
            if (const auto problem = Operands::nameProblem(name))
                return refuse(CtlStatus::badUsage, *problem);
        for (const QString& name : names)
            if (Operands::isSystemName(name))
                return refuse(
                    CtlStatus::refused,
                    QStringLiteral("%1 is a system name, which Pinecove leaves alone.").arg(name));
        return std::nullopt;
    }

    int add() {
        QStringList names = edit_.operands;
        std::string address(HostsParser::defaultAddress);
        if (Operands::isAddress(names.front())) {
            address = names.takeFirst().toStdString();
            if (names.isEmpty())
                return refuse(CtlStatus::badUsage, QStringLiteral("add needs a NAME after the "
                                                                  "address."));
        }
        if (const auto status = checkNames(names))
            return *status;
        std::vector<std::string> fresh;
        for (const QString& each : names) {
            const std::string name = each.toStdString();
            const std::vector<Listed> listed = linesListing(name);
            if (listed.empty()) {
                if (!listsAlready(fresh, name))
                    fresh.push_back(name);
                continue;
            }
            if (std::none_of(listed.begin(), listed.end(), [&](const Listed& line) {
                    return line.entry.isEnabled() && at(line.entry, address);
                }))
                return refuse(CtlStatus::refused,
                              QStringLiteral("%1 is already in /etc/hosts, not switched on at "
                                             "%2:%3\n'pinecovectl set %2 %1' points it there.")
                                  .arg(each, QString::fromStdString(address), described(listed)));
        }
        if (!fresh.empty())
            store_.add(address, fresh);
        return CtlStatus::done;
    }

    int set() {
        QStringList names = edit_.operands;
        const QString given = names.takeFirst();
        if (const auto problem = Operands::addressProblem(given))
            return refuse(CtlStatus::badUsage, *problem);
        if (const auto status = checkNames(names))
            return *status;
        const std::string address = given.toStdString();
        std::vector<std::string> fresh;
        for (const QString& each : names) {
            const std::string name = each.toStdString();
            const std::vector<Listed> listed = linesListing(name);
            std::vector<Listed> enabled;
            std::copy_if(listed.begin(), listed.end(), std::back_inserter(enabled),
                         [](const Listed& line) { return line.entry.isEnabled(); });
            const auto kept = std::find_if(enabled.begin(), enabled.end(), [&](const Listed& line) {
                return at(line.entry, address);
            });
            if (kept != enabled.end() && enabled.size() == 1)
                continue; // already so
            // Every other switched-on line stops giving the name: its own lines are switched
            // off, kept as alternatives; a shared line loses just this name.
            for (auto line = enabled.begin(); line != enabled.end(); ++line) {
                if (line == kept)
                    continue;
                if (listsOnly(line->entry, name))
                    store_.toggle(line->entry.id());
                else
                    store_.removeName(line->entry.id(), name);
            }
            if (kept != enabled.end())
                continue;
            const auto alternative =
                std::find_if(listed.begin(), listed.end(), [&](const Listed& line) {
                    return !line.entry.isEnabled() && at(line.entry, address) &&
                           listsOnly(line.entry, name);
                });
            if (alternative != listed.end())
                store_.toggle(alternative->entry.id());
            else if (!listsAlready(fresh, name))
                fresh.push_back(name);
        }
        if (!fresh.empty())
            store_.append(address, fresh);
        return CtlStatus::done;
    }

    // on, off and remove.
    int select() {
        if (edit_.address)
            if (const auto problem = Operands::addressProblem(*edit_.address))
                return refuse(CtlStatus::badUsage, *problem);
        if (const auto status = checkNames(edit_.operands))
            return *status;
        const bool remove = edit_.command == QLatin1String("remove");
        const bool on = edit_.command == QLatin1String("on");
        std::optional<std::string> address;
        if (edit_.address)
            address = edit_.address->toStdString();
        for (const QString& each : edit_.operands) {
            const std::string name = each.toStdString();
            const std::vector<Listed> listed = linesListing(name, address);
            if (listed.empty() && remove)
                continue; // already so
            if (listed.empty())
                return refuse(CtlStatus::refused,
                              address
                                  ? QStringLiteral("No line of /etc/hosts maps %1 to %2.")
                                        .arg(each, *edit_.address)
                                  : QStringLiteral("No line of /etc/hosts lists %1.").arg(each));
            const bool resolves = std::any_of(listed.begin(), listed.end(),
                                              [](const Listed& l) { return l.entry.isEnabled(); });
            if (on && resolves && !address)
                continue; // already on, through one of its lines
            std::vector<Listed> changing;
            std::copy_if(
                listed.begin(), listed.end(), std::back_inserter(changing),
                [&](const Listed& line) { return remove || line.entry.isEnabled() != on; });
            if (edit_.wholeLines) {
                for (const Listed& line : changing)
                    remove ? store_.remove(line.entry.id()) : store_.toggle(line.entry.id());
                continue;
            }
            if (changing.size() > 1)
                return refuse(
                    CtlStatus::refused,
                    QStringLiteral("%1 is on %2 lines:%3\nPick one with --address "
                                   "ADDRESS, or act on all of them, whole, with "
                                   "--whole-lines.")
                        .arg(each, QString::number(changing.size()), described(changing)));
            if (changing.empty())
                continue;
            const HostEntry& entry = changing.front().entry;
            if (listsOnly(entry, name))
                remove ? store_.remove(entry.id()) : store_.toggle(entry.id());
            else if (remove)
                store_.removeName(entry.id(), name);
            else
                return refuse(CtlStatus::refused,
                              QStringLiteral("%1 shares its line with other names:%2\nSwitching "
                                             "it %3 would switch them too: add --whole-lines to "
                                             "switch the whole line, or use 'pinecovectl set "
                                             "ADDRESS %1' to move %1 alone.")
                                  .arg(each, described(changing), edit_.command));
        }
        return CtlStatus::done;
    }

    HostsStore& store_;
    const CtlArguments& edit_;
    QString& error_;
};

} // namespace

int applyEdit(HostsStore& store, const CtlArguments& edit, QString& error) {
    return Editor(store, edit, error).run();
}
