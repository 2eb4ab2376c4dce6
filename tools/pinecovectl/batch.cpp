// SPDX-License-Identifier: MIT
#include "batch.h"

#include "ctl_arguments.h"
#include "edits.h"
#include "utf8.h"

#include <QFile>
#include <QRegularExpression>
#include <cstdio>

namespace {

std::optional<QByteArray> readBatch(const QString& file, QString& error) {
    QFile input(file);
    const bool opened = file == QLatin1String("-") ? input.open(stdin, QIODevice::ReadOnly)
                                                   : input.open(QIODevice::ReadOnly);
    QByteArray bytes = opened ? input.readAll() : QByteArray();
    if (!opened || input.error() != QFileDevice::NoError) {
        error = QStringLiteral("Could not read the batch %1: %2.").arg(file, input.errorString());
        return std::nullopt;
    }
    return bytes;
}

} // namespace

int applyBatch(HostsStore& store, const QString& file, QString& error) {
    const auto bytes = readBatch(file, error);
    if (!bytes)
        return CtlStatus::refused;
    if (!pinecove::isValidUtf8(
            std::string_view(bytes->constData(), static_cast<std::size_t>(bytes->size())))) {
        error = QStringLiteral("The batch %1 is not UTF-8 text.").arg(file);
        return CtlStatus::badUsage;
    }
    const QStringList lines = QString::fromUtf8(*bytes).split(QLatin1Char('\n'));
    static const QRegularExpression separators(QStringLiteral("[ \t]+"));
    for (qsizetype i = 0; i < lines.size(); ++i) {
        QString line = lines[i];
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1); // written on Windows
        const QStringList words = line.split(separators, Qt::SkipEmptyParts);
        if (words.isEmpty() || words.front().startsWith(QLatin1Char('#')))
            continue;
        const QString where = QStringLiteral("line %1 of the batch: ").arg(i + 1);
        QString why;
        const auto edit = parseCtlArguments(words, why);
        if (edit && (!isEditCommand(edit->command) || edit->help || edit->version || edit->dryRun ||
                     edit->quiet || edit->changedExit))
            why = QStringLiteral("a batch holds add, set, on, off and remove commands, with "
                                 "--address and --whole-lines only");
        if (!why.isEmpty()) {
            error = where + why + QLatin1Char('.');
            return CtlStatus::badUsage;
        }
        const int status = applyEdit(store, *edit, why);
        if (status != CtlStatus::done) {
            error = where + why;
            return status;
        }
    }
    return CtlStatus::done;
}
