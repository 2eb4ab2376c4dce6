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

    // Writers in the same second (two scripts, a script and the panel) each keep their backup:
    // a copy never overwrites, so a name another took first, even between the check and the
    // copy, is followed by "_02", "_03"…, which sort after it.
    const QString dated = folder + QLatin1Char('/') + fileName(when);
    for (int attempt = 1; attempt <= maxSameSecond; ++attempt) {
        const QString destination =
            attempt == 1 ? dated
                         : dated + QStringLiteral("_%1").arg(attempt, 2, 10, QLatin1Char('0'));
        if (QFile::exists(destination))
            continue;
        QFile file(source);
        if (file.copy(destination)) {
            prune(folder);
            return std::nullopt;
        }
        if (!QFile::exists(destination))
            return QStringLiteral("Could not back up the hosts file: %1.").arg(file.errorString());
    }
    return QStringLiteral("Could not back up the hosts file: %1 backups in one second already.")
        .arg(maxSameSecond);
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
