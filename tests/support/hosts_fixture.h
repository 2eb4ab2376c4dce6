// SPDX-License-Identifier: MIT
#pragma once

#include "hosts_store.h"
#include "script_runner.h"

#include <QTemporaryDir>
#include <memory>
#include <vector>

// Stands in for the administrator runner. On success it writes the requested text to
// `hostsPath`, as the real helper writes /etc/hosts; otherwise it reports `outcome`.
class FakeScriptRunner : public ScriptRunner {
public:
    explicit FakeScriptRunner(QString hostsPath)
        : hostsPath_(std::move(hostsPath)) {}

    void run(const WriteRequest& request, std::function<void(Outcome)> done) override;
    // With `hold` set, runs wait for release().
    void release();

    Outcome outcome = Succeeded{};
    bool hold = false;
    std::vector<WriteRequest> requests; // every write it was asked for

private:
    void complete(std::function<void(Outcome)> done);

    QString hostsPath_;
    std::function<void(Outcome)> held_;
};

// A hosts file of the test's own, with a backups folder beside it, a clock that starts at `now`
// and the fake runner: what a store needs to run without touching the machine.
class HostsFixture {
public:
    explicit HostsFixture(const std::string& text = {});
    HostsStore::Environment environment();
    std::unique_ptr<HostsStore> store() { return std::make_unique<HostsStore>(environment()); }
    QString hostsPath() const { return dir_.filePath(QStringLiteral("hosts")); }
    QString backupsFolder() const { return dir_.filePath(QStringLiteral("Pinecove/Backups")); }
    void write(const std::string& text) const;
    std::string read(const QString& path = {}) const; // the hosts file unless told
    int backupCount() const;

private:
    QTemporaryDir dir_; // first: the runner is made with its path

public:
    std::shared_ptr<FakeScriptRunner> runner;
    QDateTime now = QDateTime(QDate(2026, 11, 16), QTime(21, 35, 7));
};
