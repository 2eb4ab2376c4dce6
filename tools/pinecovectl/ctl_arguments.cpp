// SPDX-License-Identifier: MIT
#include "ctl_arguments.h"

#include <QMap>

namespace {

struct CommandForm {
    int minOperands;
    int maxOperands; // -1: any number
    QStringList options;
    QString help;
};

const QMap<QString, CommandForm>& commands() {
    static const QMap<QString, CommandForm> forms{
        {QStringLiteral("list"),
         {0,
          0,
          {QStringLiteral("--all"), QStringLiteral("--json")},
          QStringLiteral("pinecovectl list [--all] [--json]\n"
                         "  The custom entries in the panel's order: switched on first, then by "
                         "name, then by address.\n"
                         "  --all   also the system's own entries, marked locked\n"
                         "  --json  one JSON array, for scripts\n")}},
        {QStringLiteral("add"),
         {1,
          -1,
          {QStringLiteral("--dry-run"), QStringLiteral("--quiet")},
          QStringLiteral("pinecovectl add [ADDRESS] NAME... [--dry-run] [--quiet]\n"
                         "  Maps the names to ADDRESS (127.0.0.1 when left out), exactly as the "
                         "panel's input bar does.\n"
                         "  Names some entry already has, in any case, are left out.\n")}},
        {QStringLiteral("on"),
         {1,
          -1,
          {QStringLiteral("--dry-run"), QStringLiteral("--quiet")},
          QStringLiteral("pinecovectl on NAME... [--dry-run] [--quiet]\n"
                         "  Switches on every custom entry that lists one of the names.\n")}},
        {QStringLiteral("off"),
         {1,
          -1,
          {QStringLiteral("--dry-run"), QStringLiteral("--quiet")},
          QStringLiteral("pinecovectl off NAME... [--dry-run] [--quiet]\n"
                         "  Switches off (comments out) every custom entry that lists one of "
                         "the names.\n")}},
        {QStringLiteral("remove"),
         {1,
          -1,
          {QStringLiteral("--dry-run"), QStringLiteral("--quiet")},
          QStringLiteral("pinecovectl remove NAME... [--dry-run] [--quiet]\n"
                         "  Removes every custom entry that lists one of the names.\n")}},
        {QStringLiteral("backups"),
         {0,
          0,
          {},
          QStringLiteral("pinecovectl backups\n"
                         "  The backups made before each write, newest first, with "
                         "their sizes.\n")}},
        {QStringLiteral("restore"),
         {0,
          1,
          {QStringLiteral("--dry-run"), QStringLiteral("--quiet")},
          QStringLiteral("pinecovectl restore [BACKUP] [--dry-run] [--quiet]\n"
                         "  Writes the newest backup (or BACKUP, a name from 'pinecovectl "
                         "backups' or a path) back\n"
                         "  to /etc/hosts byte for byte, after a fresh backup of the current "
                         "file.\n")}},
    };
    return forms;
}

} // namespace

QString ctlHelp(const QString& command) {
    if (commands().contains(command))
        return commands()[command].help;
    QString text = QStringLiteral(
        "Usage: pinecovectl COMMAND [OPTIONS]\n"
        "Edits /etc/hosts with Pinecove's guarantees: untouched lines stay byte for byte, a "
        "change\nmade by another program is never overwritten, a dated backup comes first, and "
        "the file is\nreplaced atomically behind the administrator prompt.\n\n");
    for (const CommandForm& form : commands())
        text += form.help + QLatin1Char('\n');
    text += QStringLiteral(
        "A writing command prints the difference it makes, then applies it; --dry-run prints it\n"
        "and writes nothing, --quiet prints one line instead. Exit status: 0 done (or nothing "
        "to do),\n1 refused or failed, 2 bad usage. 'pinecovectl COMMAND --help' shows one "
        "command.\n");
    return text;
}

std::optional<CtlArguments> parseCtlArguments(const QStringList& words, QString& error) {
    CtlArguments arguments;
    QStringList options;
    for (const QString& word : words) {
        if (word == QLatin1String("--help") || word == QLatin1String("-h"))
            arguments.help = true;
        else if (word.startsWith(QLatin1String("--")))
            options << word;
        else if (arguments.command.isEmpty())
            arguments.command = word;
        else
            arguments.operands << word;
    }
    if (arguments.command == QLatin1String("help")) {
        arguments.help = true;
        arguments.command = arguments.operands.value(0);
        return arguments;
    }
    if (arguments.help)
        return arguments;
    if (arguments.command.isEmpty()) {
        error = QStringLiteral("no command given");
        return std::nullopt;
    }
    if (!commands().contains(arguments.command)) {
        error = QStringLiteral("unknown command '%1'").arg(arguments.command);
        return std::nullopt;
    }
    const CommandForm& form = commands()[arguments.command];
    for (const QString& option : options) {
        if (!form.options.contains(option)) {
            error = QStringLiteral("'%1' does not take %2").arg(arguments.command, option);
            return std::nullopt;
        }
    }
    const auto count = arguments.operands.size();
    if (count < form.minOperands || (form.maxOperands >= 0 && count > form.maxOperands)) {
        error = QStringLiteral("wrong number of operands for '%1'").arg(arguments.command);
        return std::nullopt;
    }
    arguments.all = options.contains(QLatin1String("--all"));
    arguments.json = options.contains(QLatin1String("--json"));
    arguments.dryRun = options.contains(QLatin1String("--dry-run"));
    arguments.quiet = options.contains(QLatin1String("--quiet"));
    return arguments;
}
