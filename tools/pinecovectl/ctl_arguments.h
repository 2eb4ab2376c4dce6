// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

// Exit statuses: 0 the end state holds (changed, or already so), 1 refused or failed, 2 bad usage
// or a bad operand. --changed-exit N replaces 0 by N when the call changed (or, in a dry run,
// would change) /etc/hosts.
namespace CtlStatus {
inline constexpr int done = 0;
inline constexpr int refused = 1;
inline constexpr int badUsage = 2;
} // namespace CtlStatus

// A pinecovectl command line, read but not yet carried out.
struct CtlArguments {
    QString command; // list, add, set, on, off, remove, batch, backups, restore
    QStringList operands;
    std::optional<QString> address; // --address: only the lines with this address
    bool wholeLines = false;
    bool all = false;
    bool json = false;
    bool dryRun = false;
    bool quiet = false;
    std::optional<int> changedExit;
    bool help = false;
    bool version = false;
};

// The words after "pinecovectl"; nothing when they are not a command line it knows, with
// `error` saying why. Words after "--" are operands whatever they look like.
std::optional<CtlArguments> parseCtlArguments(const QStringList& words, QString& error);

// The commands that edit the model, the ones a batch may hold.
bool isEditCommand(const QString& command);

// The help for one command, or for them all when `command` is empty.
QString ctlHelp(const QString& command);
