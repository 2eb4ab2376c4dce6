// SPDX-License-Identifier: MIT
#pragma once

#include "hosts_store.h"
#include "script_runner.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTimer>
#include <memory>
#include <vector>

// Stands in for the administrator runner: on success it hands the text to `write`, as the real
// helper writes /etc/hosts; otherwise it reports `outcome`. With `hold` set, a run waits for
// release().
class FakeScriptRunner : public ScriptRunner {
public:
    explicit FakeScriptRunner(std::function<void(const std::string&)> write)
        : write_(std::move(write)) {}
    void run(const WriteRequest& request, std::function<void(Outcome)> done) override {
        requests.push_back(request);
        held_ = std::move(done);
        if (!hold)
            QTimer::singleShot(0, &alive_, [this] { release(); });
    }
    void release() {
        if (held_ && std::holds_alternative<Succeeded>(outcome))
            write_(requests.back().text);
        if (held_)
            std::exchange(held_, nullptr)(outcome);
    }

    Outcome outcome = Succeeded{};
    bool hold = false;
    std::vector<WriteRequest> requests; // every write it was asked for

private:
    std::function<void(const std::string&)> write_;
    std::function<void(Outcome)> held_;
    QObject alive_; // a completion still queued when the runner goes is dropped with it
};

// A hosts file of the test's own, with a backups folder beside it, a clock that starts at `now`
// and the fake runner: what a store needs to run without touching the machine.
class HostsFixture {
public:
    explicit HostsFixture(const std::string& text = {}) { write(text); }
    HostsStore::Environment environment() {
        // Each apply a second later than the one before, so each gets a backup of its own.
        return {.hostsPath = hostsPath(),
                .backupsFolder = [folder = backupsFolder()] { return folder; },
                .clock = [this] { return std::exchange(now, now.addSecs(1)); },
                .runner = runner,
                .locale = {}};
    }
    std::unique_ptr<HostsStore> store() { return std::make_unique<HostsStore>(environment()); }
    QString hostsPath() const { return dir_.filePath(QStringLiteral("hosts")); }
    QString backupsFolder() const { return dir_.filePath(QStringLiteral("Pinecove/Backups")); }
    // Writes the hosts file, or the file at `path`, making its folder.
    void write(const std::string& text, const QString& path = {}) const {
        QFile file(path.isEmpty() ? hostsPath() : path);
        QDir().mkpath(QFileInfo(file).path());
        if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            file.write(text.data(), static_cast<qint64>(text.size()));
    }
    std::string read(const QString& path = {}) const { // the hosts file unless told
        QFile file(path.isEmpty() ? hostsPath() : path);
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "<unreadable>";
    }
    int backupCount() const {
        return static_cast<int>(QDir(backupsFolder()).entryList(QDir::Files).size());
    }

    std::shared_ptr<FakeScriptRunner> runner =
        std::make_shared<FakeScriptRunner>([this](const std::string& text) { write(text); });
    QDateTime now = QDateTime(QDate(2026, 11, 16), QTime(21, 35, 7));

private:
    QTemporaryDir dir_;
};
