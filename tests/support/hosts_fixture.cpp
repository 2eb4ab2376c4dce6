// SPDX-License-Identifier: MIT
#include "hosts_fixture.h"

#include <QDir>
#include <QFile>

HostsStore::Environment HostsFixture::environment() {
    HostsStore::Environment environment;
    environment.hostsPath = hostsPath();
    environment.backupsFolder = [folder = backupsFolder()] {
        return folder;
    };
    environment.clock = [this] {
        // Each apply a second later than the one before, so each gets a backup of its own.
        return std::exchange(now, now.addSecs(1));
    };
    environment.runner = runner;
    return environment;
}

void HostsFixture::write(const std::string& text) const {
    QFile file(hostsPath());
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(text.data(), static_cast<qint64>(text.size()));
}

std::string HostsFixture::read(const QString& path) const {
    QFile file(path.isEmpty() ? hostsPath() : path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "<unreadable>";
}

int HostsFixture::backupCount() const {
    return static_cast<int>(QDir(backupsFolder()).entryList(QDir::Files).size());
}
