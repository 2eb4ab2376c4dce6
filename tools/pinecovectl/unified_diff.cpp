// SPDX-License-Identifier: MIT
#include "unified_diff.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace {

bool writeFile(const QString& path, const std::string& bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) &&
           file.write(bytes.data(), static_cast<qint64>(bytes.size())) ==
               static_cast<qint64>(bytes.size());
}

} // namespace

QString unifiedDiff(const std::string& before, const std::string& after) {
    if (before == after)
        return {};
    QTemporaryDir dir;
    const QString old = dir.filePath(QStringLiteral("old"));
    const QString fresh = dir.filePath(QStringLiteral("new"));
    if (!dir.isValid() || !writeFile(old, before) || !writeFile(fresh, after))
        return QStringLiteral("(the difference could not be shown)\n");
    QProcess diff;
    diff.start(QStringLiteral("diff"),
               {QStringLiteral("-u"), QStringLiteral("--label"), QStringLiteral("/etc/hosts"),
                QStringLiteral("--label"), QStringLiteral("/etc/hosts (new)"), old, fresh});
    if (!diff.waitForFinished(30000))
        return QStringLiteral("(the difference could not be shown)\n");
    return QString::fromUtf8(diff.readAllStandardOutput());
}
