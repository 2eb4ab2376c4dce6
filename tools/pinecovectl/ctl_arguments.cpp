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

const QStringList writing{QStringLiteral("--dry-run"), QStringLiteral("--quiet"),
                          QStringLiteral("--changed-exit")};
const QStringList selecting =
    writing + QStringList{QStringLiteral("--address"), QStringLiteral("--whole-lines")};
const QStringList taking{QStringLiteral("--address"), QStringLiteral("--changed-exit")};

const QMap<QString, CommandForm>& commands() {
    static const QString shared = QStringLiteral(
        "  A name on several lines needs --address ADDRESS (those lines) or --whole-lines (all "
        "of\n"
        "  them, whole); so does a line shared with other names, which switches them too.\n");
    static const QMap<QString, CommandForm> forms{
        {QStringLiteral("list"),
         {0,
          0,
          {QStringLiteral("--all"), QStringLiteral("--json")},
          QStringLiteral("pinecovectl list [--all] [--json]\n"
                         "  The custom entries in the panel's order (switched on first, then by "
                         "name, then by\n"
                         "  address), each with its line number, state, address, names and "
                         "comment.\n"
                         "  --all   also the system's own entries, marked locked\n"
                         "  --json  one JSON array, for scripts\n")}},
        {QStringLiteral("add"),
         {1, -1, writing,
          QStringLiteral("pinecovectl add [ADDRESS] NAME...\n"
                         "  Adds one line mapping the names to ADDRESS (127.0.0.1 when left "
                         "out). A name that already\n"
                         "  resolves to ADDRESS is left out; one on another line is refused "
                         "(see set).\n")}},
        {QStringLiteral("set"),
         {2, -1, writing,
          QStringLiteral("pinecovectl set ADDRESS NAME...\n"
                         "  Makes each NAME resolve to ADDRESS through one switched-on line. "
                         "Other lines that held it\n"
                         "  are switched off (its own lines) or lose just that name (shared "
                         "lines); no other name moves.\n")}},
        {QStringLiteral("on"),
         {1, -1, selecting,
          QStringLiteral("pinecovectl on NAME... [--address ADDRESS] [--whole-lines]\n"
                         "  Switches on the line that lists NAME.\n") +
              shared}},
        {QStringLiteral("off"),
         {1, -1, selecting,
          QStringLiteral("pinecovectl off NAME... [--address ADDRESS] [--whole-lines]\n"
                         "  Switches off (comments out) the line that lists NAME.\n") +
              shared}},
        {QStringLiteral("remove"),
         {1, -1, selecting,
          QStringLiteral("pinecovectl remove NAME... [--address ADDRESS] [--whole-lines]\n"
                         "  Removes NAME: its line, or only the name from a line it shares. A "
                         "name no line lists is\n"
                         "  already removed. A name on several lines needs --address ADDRESS "
                         "(those lines) or\n"
                         "  --whole-lines (all of them, whole).\n")}},
        {QStringLiteral("batch"),
         {1, 1, writing,
          QStringLiteral("pinecovectl batch FILE|-\n"
                         "  The edits in FILE (- for standard input), one add, set, on, off or "
                         "remove command a line\n"
                         "  (blank lines and lines starting with # skipped), written as one: one "
                         "prompt, one backup,\n"
                         "  all or nothing.\n")}},
        {QStringLiteral("backups"),
         {0,
          0,
          {},
          QStringLiteral("pinecovectl backups\n"
                         "  The backups made before each write, newest first, with "
                         "their sizes.\n")}},
        {QStringLiteral("restore"),
         {0, 1, writing,
          QStringLiteral("pinecovectl restore [BACKUP]\n"
                         "  Writes the newest backup (or BACKUP: a name from 'pinecovectl "
                         "backups', or a path with\n"
                         "  a slash such as ./hosts.old) back to /etc/hosts byte for byte, "
                         "after a fresh backup of\n"
                         "  the current file. UTF-8 text without NUL bytes only.\n")}},
    };
    return forms;
}

} // namespace

bool isEditCommand(const QString& command) {
    static const QStringList edits{QStringLiteral("add"), QStringLiteral("set"),
                                   QStringLiteral("on"), QStringLiteral("off"),
                                   QStringLiteral("remove")};
    return edits.contains(command);
}

QString ctlHelp(const QString& command) {
    if (commands().contains(command))
        return commands()[command].help;
    QString text = QStringLiteral(
        "Usage: pinecovectl COMMAND [OPTIONS] [--] OPERAND...\n"
        "Edits /etc/hosts with Pinecove's guarantees: untouched lines stay byte for byte, a "
        "change\nmade by another program is never overwritten, a dated backup comes first, and "
        "the file is\nreplaced atomically behind the administrator prompt.\n\n");
    for (const CommandForm& form : commands())
        text += form.help + QLatin1Char('\n');
    text += QStringLiteral(
        "An operand is one hostname or one address; anything else is refused with status 2.\n"
        "A writing command prints the difference it makes, then applies it.\n"
        "  --dry-run         print it, write nothing; every check runs and the status is the "
        "same\n"
        "  --quiet           print one line instead\n"
        "  --changed-exit N  exit N (3 to 125) instead of 0 when /etc/hosts changed (or would)\n"
        "Exit status: 0 done or already so, 1 refused or failed, 2 bad usage or operand.\n"
        "'pinecovectl COMMAND --help' shows one command; --version the version.\n");
    return text;
}

std::optional<CtlArguments> parseCtlArguments(const QStringList& words, QString& error) {
    CtlArguments arguments;
    QMap<QString, QString> options;
    bool operandsOnly = false;
    for (qsizetype i = 0; i < words.size(); ++i) {
        const QString& word = words[i];
        if (operandsOnly || !word.startsWith(QLatin1Char('-')) || word == QLatin1String("-")) {
            if (arguments.command.isEmpty() && !operandsOnly)
                arguments.command = word;
            else
                arguments.operands << word;
        } else if (word == QLatin1String("--")) {
            operandsOnly = true;
        } else if (word == QLatin1String("--help") || word == QLatin1String("-h")) {
            arguments.help = true;
        } else if (word == QLatin1String("--version")) {
            arguments.version = true;
        } else {
            const qsizetype equals = word.indexOf(QLatin1Char('='));
            const QString name = equals < 0 ? word : word.left(equals);
            if (!taking.contains(name) && equals >= 0) {
                error = QStringLiteral("%1 takes no value").arg(name);
                return std::nullopt;
            }
            QString value = equals < 0 ? QString() : word.mid(equals + 1);
            if (taking.contains(name) && equals < 0) {
                if (++i == words.size()) {
                    error = QStringLiteral("%1 needs a value").arg(name);
                    return std::nullopt;
                }
                value = words[i];
            }
            options.insert(name, value);
        }
    }
    if (arguments.command == QLatin1String("help")) {
        arguments.command = arguments.operands.value(0);
        if (arguments.operands.size() > 1 ||
            (!arguments.command.isEmpty() && !commands().contains(arguments.command))) {
            error =
                QStringLiteral("no help for '%1'").arg(arguments.operands.join(QLatin1Char(' ')));
            return std::nullopt;
        }
        arguments.help = true;
    }
    if (arguments.version && arguments.command.isEmpty())
        return arguments;
    if (!arguments.command.isEmpty() && !commands().contains(arguments.command)) {
        error = QStringLiteral("unknown command '%1'").arg(arguments.command);
        return std::nullopt;
    }
    if (arguments.help)
        return arguments;
    if (arguments.command.isEmpty()) {
        error = QStringLiteral("no command given");
        return std::nullopt;
    }
    const CommandForm& form = commands()[arguments.command];
    for (auto option = options.cbegin(); option != options.cend(); ++option) {
        if (!form.options.contains(option.key())) {
            error = QStringLiteral("'%1' does not take %2").arg(arguments.command, option.key());
            return std::nullopt;
        }
    }
    const auto count = arguments.operands.size();
    if (count < form.minOperands || (form.maxOperands >= 0 && count > form.maxOperands)) {
        error = QStringLiteral("wrong number of operands for '%1'").arg(arguments.command);
        return std::nullopt;
    }
    if (options.contains(QStringLiteral("--changed-exit"))) {
        bool number = false;
        const int status = options.value(QStringLiteral("--changed-exit")).toInt(&number);
        if (!number || status < 3 || status > 125) {
            error = QStringLiteral("--changed-exit takes a number from 3 to 125");
            return std::nullopt;
        }
        arguments.changedExit = status;
    }
    if (options.contains(QStringLiteral("--address")))
        arguments.address = options.value(QStringLiteral("--address"));
    arguments.wholeLines = options.contains(QStringLiteral("--whole-lines"));
    arguments.all = options.contains(QStringLiteral("--all"));
    arguments.json = options.contains(QStringLiteral("--json"));
    arguments.dryRun = options.contains(QStringLiteral("--dry-run"));
    arguments.quiet = options.contains(QStringLiteral("--quiet"));
    return arguments;
}
