// SPDX-License-Identifier: MIT
#include "raw_write.h"

#include "backups.h"
#include "privileged_writer.h"

#include <QEventLoop>
#include <QFileInfo>

std::optional<std::string> replaceUnloadable(const std::string& text, const std::string& before,
                                             const HostsStore::Environment& environment) {
    const QString folder =
        environment.backupsFolder ? environment.backupsFolder() : Backups::defaultFolder();
    const QDateTime when = environment.clock ? environment.clock() : QDateTime::currentDateTime();
    // A missing file has nothing to back up.
    if (QFileInfo::exists(environment.hostsPath))
        if (const auto failure = Backups::backUp(environment.hostsPath, folder, when))
            return failure->toStdString();
    const std::shared_ptr<ScriptRunner> runner =
        environment.runner ? environment.runner : platformScriptRunner();
    std::optional<std::string> result;
    QEventLoop loop;
    PrivilegedWriter::writeHostsFile(
        text, before, *runner,
        [&result, &loop](std::optional<PrivilegedWriter::WriteFailure> failure) {
            if (failure)
                result = failure->message;
            loop.quit();
        });
    loop.exec(); // the runner never completes before returning
    return result;
}
