// SPDX-License-Identifier: MIT
#include "hosts_store.h"

#include "backups.h"
#include "hosts_edits.h"
#include "privileged_writer.h"
#include "utf8.h"

#include <QFile>

using namespace pinecove;

namespace {

HostsStore::Environment withDefaults(HostsStore::Environment environment) {
    if (!environment.backupsFolder)
        environment.backupsFolder = Backups::defaultFolder;
    if (!environment.clock)
        environment.clock = [] {
            return QDateTime::currentDateTime();
        };
    if (!environment.runner)
        environment.runner = platformScriptRunner();
    return environment;
}

} // namespace

HostsStore::HostsStore(QObject* parent)
    : HostsStore(Environment{}, parent) {}

HostsStore::HostsStore(Environment environment, QObject* parent)
    : QObject(parent)
    , environment_(withDefaults(std::move(environment)))
    , collation_(environment_.locale)
    , customOrder_(collation_) {
    customOrder_.rebuild(document_);
    load();
}

HostsStore::~HostsStore() {
    *alive_ = false;
}

std::optional<std::string> HostsStore::readHostsFile() const {
    QFile file(environment_.hostsPath);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError ||
        !isValidUtf8(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size()))))
        return std::nullopt;
    return bytes.toStdString();
}

void HostsStore::load() {
    auto text = readHostsFile();
    if (!text) {
        setLastError(readFailureMessage);
        return;
    }
    auto shared = std::make_shared<const std::string>(std::move(*text));
    document_ = parseHostsText(shared);
    customOrder_.rebuild(document_);
    baseline_ = serialized();
    loadedDiskText_ = std::move(shared); // the same buffer the lines point into
    emit customEntriesReset();
    emit systemEntriesReset();
    announceDirty();
    setLastError(std::nullopt);
}

void HostsStore::toggle(const Uuid& id) {
    if (!toggleEntry(document_, id))
        return;
    if (const auto moved = customOrder_.toggled(*document_.entries.find(id))) {
        if (moved->first != moved->second)
            emit customEntryMoved(moved->first, moved->second);
        emit customEntryChanged(moved->second);
    }
    announceDirty();
}

void HostsStore::remove(Uuid id) {
    if (!deleteEntry(document_, id))
        return;
    if (const auto at = customOrder_.removed(id))
        emit customEntryRemoved(*at);
    announceDirty();
}

bool HostsStore::add(const std::string& ip, const std::vector<std::string>& hostnames) {
    const auto id = addEntry(document_, ip, hostnames);
    if (!id)
        return false;
    const HostEntry& entry = *document_.entries.find(*id);
    if (entry.isSystem())
        emit systemEntriesReset();
    else
        emit customEntryInserted(customOrder_.added(entry));
    announceDirty();
    return true;
}

bool HostsStore::removeName(Uuid id, const std::string& name) {
    if (!removeHostname(document_, id, name))
        return false;
    customOrder_.rebuild(document_);
    emit customEntriesReset();
    announceDirty();
    return true;
}

void HostsStore::append(const std::string& ip, const std::vector<std::string>& hostnames) {
    appendEntry(document_, ip, hostnames);
    customOrder_.rebuild(document_);
    emit customEntriesReset();
    emit systemEntriesReset();
    announceDirty();
}

std::vector<HostEntry> HostsStore::systemEntries() const {
    // The entry lines stand in file order, then additions, and each knows where its entry sits,
    // so this reads the table front to back without hashing.
    std::vector<HostEntry> entries;
    for (const pinecove::Line& line : document_.lines)
        if (line.isEntry())
            if (const HostEntry* entry = document_.entries.find(line.entryId(), line.entryHint());
                entry && entry->isSystem())
                entries.push_back(*entry);
    return entries;
}

std::vector<HostEntry> HostsStore::customEntries() const {
    std::vector<HostEntry> entries;
    entries.reserve(static_cast<std::size_t>(customOrder_.size()));
    for (int i = 0; i < customOrder_.size(); ++i)
        entries.push_back(*document_.entries.find(customOrder_.idAt(i)));
    return entries;
}

int HostsStore::activeCustomCount() const {
    return customOrder_.enabledCount();
}

void HostsStore::setApplying(bool applying) {
    if (isApplying_ == applying)
        return;
    isApplying_ = applying;
    emit isApplyingChanged();
}

void HostsStore::setLastError(std::optional<QString> error) {
    if (lastError_ == error)
        return;
    lastError_ = std::move(error);
    emit lastErrorChanged();
}

void HostsStore::apply() {
    if (isDirty())
        applyText(serialized());
}

void HostsStore::applyText(const std::string& text) {
    if (isApplying_ || text == *loadedDiskText_)
        return;
    // Another program may have written the file since we read it; never overwrite that.
    const auto onDisk = readHostsFile();
    if (!onDisk || *onDisk != *loadedDiskText_) {
        setLastError(conflictMessage);
        return;
    }
    setApplying(true);
    setLastError(std::nullopt);

    if (const auto failure = Backups::backUp(environment_.hostsPath, environment_.backupsFolder(),
                                             environment_.clock())) {
        finishApply(*failure);
        return;
    }
    PrivilegedWriter::writeHostsFile(
        text, *loadedDiskText_, *environment_.runner,
        [this, alive = alive_](std::optional<PrivilegedWriter::WriteFailure> failure) {
            if (!*alive)
                return;
            if (!failure) {
                load();
                finishApply(std::nullopt, true);
            } else if (failure->isWriteError &&
                       failure->message.find(HelperProtocol::cancelMarker) != std::string::npos) {
                finishApply(std::nullopt); // the user dismissed the prompt: nothing to report
            } else {
                finishApply(QString::fromStdString(failure->message));
            }
        });
}

void HostsStore::finishApply(std::optional<QString> error, bool written) {
    if (error)
        setLastError(std::move(error));
    setApplying(false);
    emit applyFinished(written);
}
