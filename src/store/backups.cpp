// SPDX-License-Identifier: MIT
#include "backups.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <algorithm>

namespace Backups {

QString defaultFolder() {
    const QString base = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return base.isEmpty() ? QString() : base + QStringLiteral("/Pinecove/Backups");
}

QString fileName(const QDateTime& when) {
    // Fixed digits and separators whatever the locale, so names sort in the order they were made.
    return namePrefix + when.toString(QStringLiteral("yyyy-MM-dd_HH.mm.ss"));
}

std::optional<QString> backUp(const QString& source, const QString& folder, const QDateTime& when) {
    if (folder.isEmpty())
        return QStringLiteral("There is no folder to keep backups in.");
    if (!QDir().mkpath(folder))
        return QStringLiteral("Could not create the backups folder %1.").arg(folder);

    const QString destination = folder + QLatin1Char('/') + fileName(when);
    if (QFile::exists(destination))
        return QStringLiteral("Could not back up the hosts file: %1 already exists.")
            .arg(destination);
    QFile file(source);
    if (!file.copy(destination))
        return QStringLiteral("Could not back up the hosts file: %1.").arg(file.errorString());
    prune(folder);
    return std::nullopt;
}

QStringList names(const QString& folder) {
    // Only names that begin with "hosts_" exactly: a user's HOSTS_README is none of ours.
    QStringList names = QDir(folder).entryList(
        {namePrefix + QLatin1Char('*')},
        QDir::Files | QDir::Hidden | QDir::System | QDir::CaseSensitive, QDir::NoSort);
    std::sort(names.begin(), names.end(), std::greater<>());
    return names;
}

void prune(const QString& folder) {
    const QDir dir(folder);
    const QStringList backups = names(folder);
    for (qsizetype i = kept; i < backups.size(); ++i)
        QFile::remove(dir.filePath(backups[i])); // a failure leaves one extra backup; no harm done
}

} // namespace Backups
