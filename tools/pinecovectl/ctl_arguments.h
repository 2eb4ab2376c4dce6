// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

// A pinecovectl command line, read but not yet carried out.
struct CtlArguments {
    QString command; // list, add, on, off, remove, backups, restore, help
    QStringList operands;
    bool all = false;
    bool json = false;
    bool dryRun = false;
    bool quiet = false;
    bool help = false;
};

// The words after "pinecovectl"; nothing when they are not a command line it knows, with
// `error` saying why.
std::optional<CtlArguments> parseCtlArguments(const QStringList& words, QString& error);

// The help for one command, or for them all when `command` is empty or unknown.
QString ctlHelp(const QString& command);
