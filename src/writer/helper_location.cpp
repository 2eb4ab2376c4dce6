// SPDX-License-Identifier: MIT
#include "helper_location.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <sys/stat.h>

namespace HelperLocation {

QString path() {
    const QString installed = QStringLiteral(PINECOVE_WRITE_HELPER);
    if (QFileInfo::exists(installed))
        return installed;
    // Build layout: src/app/pinecove and tools/pinecovectl/pinecovectl, two folders below the
    // build folder, like tools/pinecove-write-hosts/pinecove-write-hosts.
    QDir build(QCoreApplication::applicationDirPath());
    if (build.cd(QStringLiteral("../..")) && build.exists(QStringLiteral("CMakeCache.txt"))) {
        const QString built =
            build.filePath(QStringLiteral("tools/pinecove-write-hosts/pinecove-write-hosts"));
        if (QFileInfo::exists(built))
            return built;
    }
    return installed;
}

namespace {

bool othersMayWrite(const struct stat& status) {
    return (status.st_mode & (S_IWGRP | S_IWOTH)) != 0;
}

} // namespace

std::optional<std::string> refusalToRunAsRoot(const QString& path) {
    const QString real = QFileInfo(path).canonicalFilePath();
    const std::string shown = path.toStdString();
    const auto refuse = [&](const std::string& why) {
        return "Pinecove will not run " + shown + " as administrator: " + why +
               ". Reinstall Pinecove (sudo apt install --reinstall pinecove).";
    };
    struct stat status {};
    if (real.isEmpty() || ::stat(QFile::encodeName(real).constData(), &status) != 0)
        return refuse("it is missing");
    if (!S_ISREG(status.st_mode))
        return refuse("it is not a regular file");
    if (status.st_uid != 0)
        return refuse("it is not owned by root");
    if (othersMayWrite(status))
        return refuse("users other than root can change it");
    // Every folder up to /: whoever can rename an entry on the way can swap the file.
    for (QString folder = QFileInfo(real).path();; folder = QFileInfo(folder).path()) {
        if (::stat(QFile::encodeName(folder).constData(), &status) != 0)
            return refuse("its folder " + folder.toStdString() + " cannot be read");
        const bool sticky = (status.st_mode & S_ISVTX) != 0;
        if (status.st_uid != 0 || (othersMayWrite(status) && !sticky))
            return refuse("users other than root can change its folder " + folder.toStdString());
        if (folder == QLatin1String("/"))
            return std::nullopt;
    }
}

} // namespace HelperLocation
