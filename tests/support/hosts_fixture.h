// SPDX-License-Identifier: MIT
#pragma once

#include "fake_script_runner.h"
#include "hosts_store.h"

#include <QTemporaryDir>
#include <memory>

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
