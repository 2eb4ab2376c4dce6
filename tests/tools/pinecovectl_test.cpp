// SPDX-License-Identifier: MIT
// pinecovectl in-process, on a hosts file of the test's own with the fake administrator runner:
// what each command writes, says and returns.
#include "ctl.h"
#include "hosts_fixture.h"

#include <QTest>

namespace {

const std::string sample = "127.0.0.1\tlocalhost\n"
                           "::1 localhost ip6-localhost\n"
                           "# dev\n"
                           "127.0.0.1 Api.test\n"
                           "#10.0.0.5 staging.test # off for now\n"
                           "10.0.0.5 web.test\tadmin.test # shared\n"
                           "10.0.0.8 alt.test\n"
                           "#10.0.0.9 alt.test\n";

// The sample after `changes`, separated by '|': "OLD=>NEW" replaces the whole line OLD (NEW
// empty: the line goes), "+LINE" appends LINE, after one blank line before the first; "|" alone
// is the sample as it is.
std::string edited(const QString& changes) {
    QString text = '\n' + QString::fromStdString(sample); // every line between two line feeds
    QString added;
    for (const QString& change : changes.split(QLatin1Char('|'), Qt::SkipEmptyParts)) {
        const QStringList parts = change.split(QStringLiteral("=>"));
        const QString old = '\n' + parts.front() + '\n';
        if (change.startsWith(QLatin1Char('+')))
            added += change.mid(1) + '\n';
        else if (!text.contains(old))
            return "no line " + parts.front().toStdString();
        else
            text.replace(old, parts.back().isEmpty() ? QStringLiteral("\n")
                                                     : '\n' + parts.back() + '\n');
    }
    return (text.mid(1) + (added.isEmpty() ? QString() : '\n' + added)).toStdString();
}

} // namespace

class PinecovectlTest : public QObject {
    Q_OBJECT

private slots:
    // One row a command line, split at spaces: "␣" stands for a space inside a word, a word ""
    // for an empty one, "FILE" for the batch file written from `setup` ("batch:TEXT"). Other
    // setups: "failed:MESSAGE" (the runner's answer), "large" (a file near the limit), "latin1"
    // (a file that is not UTF-8), "latin1, backup" (and a backup holding the sample).
    void commands_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("setup");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("said");
        QTest::addColumn<QString>("changes"); // see edited(); empty: the file is left as it is
        const auto row = [](const char* name, const char* line, int status, const char* said,
                            const QString& changes = {}, const QString& setup = {}) {
            QTest::newRow(name) << QString::fromUtf8(line) << setup << status
                                << QString::fromUtf8(said) << changes;
        };
        const QString apiOff = "127.0.0.1 Api.test=># 127.0.0.1 Api.test";
        const QString webMoved = "10.0.0.5 web.test\tadmin.test # shared=>10.0.0.5 admin.test # "
                                 "shared";
        // Operands: one hostname or one address each, or status 2 and nothing written.
        row("invalid address", "add 999.1.1.1 bad.test", 2, "\"999.1.1.1\" is not a valid IPv4");
        row("leading zero", "add 010.0.0.1 lead.test", 2, "\"010.0.0.1\" is not a valid IPv4");
        row("empty", "add \"\" x.test", 2, "An empty operand");
        row("tab", "add 10.0.0.7 a\tb.test", 2, "\"a\\tb.test\" holds white space");
        row("line feed", "set 10.0.0.7 a\nb.test", 2, "\"a\\nb.test\" holds");
        row("space", "remove a␣b.test", 2, "\"a b.test\" holds white space");
        row("escape", "on a\x01\"\\", 2, "\"a\\x01\\\"\\\\\" holds");
        row("bad name", "add 10.0.0.7 bad!name", 2, "not a valid hostname");
        row("address as name", "set 10.0.0.7 10.0.0.8", 2, "is an address where a hostname");
        row("name as address", "set web.test x.test", 2, "\"web.test\" is not a valid IPv4");
        row("address alone", "add 10.0.0.7", 2, "needs a NAME");
        row("bad --address", "off web.test --address 10.0.0", 2, "\"10.0.0\" is not a valid");
        // add: a new name, already so, or a name elsewhere (see set).
        row("add", "add 10.0.0.7 new.test NEW.test", 0, "+10.0.0.7\tnew.test",
            "+10.0.0.7\tnew.test");
        row("add default address", "add new.test", 0, "+127.0.0.1\tnew.test",
            "+127.0.0.1\tnew.test");
        row("add already so", "add api.test", 0, "Nothing to do");
        row("add elsewhere", "add 10.0.0.7 new.test api.test", 1, "set 10.0.0.7 api.test");
        row("add switched off", "add 10.0.0.5 staging.test", 1, "line 5: #10.0.0.5");
        // System names, in any case, whatever line they are on.
        row("off localhost", "off localhost", 1, "localhost is a system name");
        row("remove LOCALHOST", "remove web.test LOCALHOST", 1, "system name");
        row("set broadcasthost", "set 10.0.0.1 BroadcastHost", 1, "system name");
        row("line with localhost", "off ip6-localhost", 1, "shares its line");
        // Selection: a shared line or several lines only when asked.
        row("off shared", "off web.test", 1, "line 6: 10.0.0.5 web.test\tadmin.test");
        row("off whole line", "off web.test --whole-lines", 0, "+# 10.0.0.5",
            "10.0.0.5 web.test\tadmin.test # shared=># 10.0.0.5 web.test\tadmin.test # shared");
        row("remove from shared", "remove web.test", 0, "+10.0.0.5 admin.test # shared", webMoved);
        row("remove last name", "remove ADMIN.test", 0, "",
            "10.0.0.5 web.test\tadmin.test # shared=>10.0.0.5 web.test # shared");
        row("remove both", "remove admin.test web.test", 0, "",
            "10.0.0.5 web.test\tadmin.test # shared=>");
        row("several lines", "remove alt.test", 1,
            "alt.test is on 2 lines:\n  line 7: 10.0.0.8 alt.test\n  line 8: #10.0.0.9");
        row("pick by address", "remove alt.test --address 10.0.0.9", 0, "", "#10.0.0.9 alt.test=>");
        row("on already", "on alt.test", 0, "Nothing to do");
        row("on an alternative", "on alt.test --address 10.0.0.9", 0, "",
            "#10.0.0.9 alt.test=>10.0.0.9 alt.test");
        row("off the one on", "off alt.test", 0, "", "10.0.0.8 alt.test=># 10.0.0.8 alt.test");
        row("on, one already on", "on staging.test API.test", 0,
            "+10.0.0.5 staging.test # off for now",
            "#10.0.0.5 staging.test # off for now=>10.0.0.5 staging.test # off for now");
        row("off", "off API.test --changed-exit 3", 3, "+# 127.0.0.1 Api.test", apiOff);
        row("on absent", "on nothing.test", 1, "No line of /etc/hosts lists nothing.test");
        // set: one switched-on line at the address; no other name moves.
        row("set shared", "set 10.0.0.7 web.test", 0, "", webMoved + "|+10.0.0.7\tweb.test");
        row("set to an alternative", "set 10.0.0.9 alt.test", 0, "",
            "10.0.0.8 alt.test=># 10.0.0.8 alt.test|#10.0.0.9 alt.test=>10.0.0.9 alt.test");
        row("set already so", "set 10.0.0.8 alt.test", 0, "Nothing to do");
        row("set several", "set 10.0.0.5 staging.test new.test api.test", 0, "",
            "#10.0.0.5 staging.test # off for now=>10.0.0.5 staging.test # off for now|"
            "127.0.0.1 Api.test=># 127.0.0.1 Api.test|+10.0.0.5\tnew.test api.test");
        // Batches: one write, one backup, one blank line; all or nothing.
        row("batch of five", "batch FILE", 0, "",
            apiOff + "|" + webMoved + "|#10.0.0.5 staging.test # off for now=>10.0.0.5 " +
                "staging.test # off for now|+10.0.0.7\tone.test|+10.0.0.7\ttwo.test",
            "batch:add 10.0.0.7 one.test\n# set up\n\r\nset 10.0.0.7 two.test\r\n"
            "  remove\tweb.test\noff api.test --address 127.0.0.1\non staging.test");
        row("batch, a name out of a line switched off", "batch FILE", 0,
            "+# 10.0.0.5 web.test # shared",
            "10.0.0.5 web.test\tadmin.test # shared=># 10.0.0.5 web.test # shared",
            "batch:off web.test --whole-lines\nremove admin.test\n");
        row("batch bad operand", "batch FILE", 2, "line 2 of the batch: \"999.1.1.1\"", "",
            "batch:add a.test\nadd 999.1.1.1 b.test\n");
        row("batch refusal", "batch FILE", 1, "line 2 of the batch: web.test shares", "",
            "batch:add a.test\noff web.test\n");
        row("batch not an edit", "batch FILE", 2, "a batch holds", "", "batch:add a.test\nlist\n");
        row("batch option", "batch FILE", 2, "a batch holds", "", "batch:add a.test --dry-run\n");
        // Exit statuses and what scripts can tell from them.
        row("remove absent", "remove nothing.test --changed-exit=3", 0, "Nothing to do");
        row("dry run", "add x.test --dry-run --changed-exit 3", 3, "+127.0.0.1\tx.test");
        row("dry run, too large", "add 10.0.0.7 big.test --dry-run", 1,
            "would be 200004 bytes; Pinecove writes at most 199999", "", "large");
        row("conflict", "add x.test", 1, "changed while pinecovectl", "",
            "failed:" + HostsStore::conflictMessage);
        row("dismissed", "add x.test", 1, "Cancelled", "", "failed:Request dismissed (-128)");
        row("panel wording", "add x.test", 1, "Install it and run the command again.", "",
            "failed:Install it and apply again.");
        row("not UTF-8", "list", 1, "is not UTF-8 text", "", "latin1");
        // A file the store cannot load is still replaced by a backup, after its own.
        row("restore over not UTF-8", "restore --quiet", 0, "Wrote", "|", "latin1, backup");
        row("quiet, after --", "remove --quiet -- api.test", 0, "Wrote /etc/hosts",
            "127.0.0.1 Api.test=>");
        row("version", "--version", 0, "pinecovectl 0.");
        row("backups", "backups", 0, "hosts_2026-11-16_21.00.00  185 bytes", "", "latin1, backup");
        row("help", "help restore", 0, "pinecovectl restore [BACKUP]");
        row("help bogus", "help bogus", 2, "no help for 'bogus'");
        row("short option", "-x", 2, "Try 'pinecovectl --help'");
        row("unknown option", "add -x", 2, "'add' does not take -x");
        row("changed-exit range", "add x.test --changed-exit 1", 2, "3 to 125");
        row("unknown command", "frob", 2, "unknown command");
        row("option elsewhere", "list --dry-run", 2, "does not take");
        row("no operand", "off", 2, "wrong number");
        row("list", "list", 0,
            "6  on   10.0.0.5   web.test admin.test  # shared\n8  off  10.0.0.9   alt.test\n");
        row("json", "list --all --json", 0,
            R"({"comment":null,"enabled":true,"hostnames":["localhost"],"ip":"127.0.0.1",)"
            R"("line":1,"system":true})");
    }

    void commands() {
        QFETCH(QString, line);
        QFETCH(QString, setup);
        QFETCH(int, status);
        QFETCH(QString, said);
        QFETCH(QString, changes);
        std::string start = sample;
        while (setup == QLatin1String("large") && start.size() < 199'985)
            start += "#";
        if (setup.startsWith(QLatin1String("latin1")))
            start += "# caf\xe9\n";
        HostsFixture hosts(start);
        const bool backup = setup.endsWith(QLatin1String("backup"));
        if (backup)
            hosts.write(sample,
                        hosts.backupsFolder() + QStringLiteral("/hosts_2026-11-16_21.00.00"));
        const bool ran = setup.startsWith(QLatin1String("failed:"));
        if (ran)
            hosts.runner->outcome = ScriptRunner::Failed{setup.mid(7).toStdString()};
        QStringList words = line.split(QLatin1Char(' '));
        for (QString& word : words) {
            word.replace(QStringLiteral("␣"), QStringLiteral(" "));
            if (word == QLatin1String("\"\""))
                word.clear();
            if (word == QLatin1String("FILE")) {
                word = hosts.hostsPath() + QStringLiteral(".batch");
                hosts.write(setup.mid(6).toStdString(), word);
            }
        }
        QString output;
        QTextStream out(&output), err(&output);
        HostsStore::Environment environment = hosts.environment();
        environment.clock = nullptr; // the real one: the store must never reuse a backup's name
        const int returned = runPinecovectl(words, environment, out, err);
        QVERIFY2(returned == status && output.contains(said), qPrintable(output));
        QVERIFY2(!line.contains(QLatin1String("--quiet")) || output.count('\n') == 1,
                 qPrintable(output));
        const std::string expected = changes.isEmpty() ? start : edited(changes);
        QCOMPARE(hosts.read(), expected);
        // One backup and one run of the runner for each write (also one the runner then failed),
        // none for a dry run.
        const int writes = changes.isEmpty() && !ran ? 0 : 1; // a batch's too: one prompt
        QCOMPARE(hosts.backupCount(), writes + int(backup));
        QCOMPARE(static_cast<int>(hosts.runner->requests.size()), writes);
    }
};

QTEST_GUILESS_MAIN(PinecovectlTest)
#include "pinecovectl_test.moc"
