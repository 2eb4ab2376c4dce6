// SPDX-License-Identifier: MIT
#include "backups.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QDateTime when(QDate(2026, 11, 16), QTime(21, 35, 7));

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(bytes);
}

QByteArray readFile(const QString& path) {
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

QStringList namesIn(const QString& folder) {
    QStringList names = QDir(folder).entryList(QDir::Files | QDir::Hidden);
    names.sort();
    return names;
}

} // namespace

class BackupsTest : public QObject {
    Q_OBJECT

    QTemporaryDir dir_;
    QString source_;

private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }

    void init() {
        QVERIFY(dir_.isValid());
        source_ = dir_.filePath(QStringLiteral("hosts"));
        writeFile(source_, "127.0.0.1 localhost\r\n\xC3\xA9 bytes as on disk");
    }

    void namesAreDatedAndSortable() {
        QCOMPARE(Backups::fileName(when), QStringLiteral("hosts_2026-11-16_21.35.07"));
        QVERIFY(Backups::fileName(when) < Backups::fileName(when.addSecs(1)));
        QVERIFY(Backups::defaultFolder().endsWith(QStringLiteral("/Pinecove/Backups")));
    }

    void firstUseCreatesTheFoldersAndCopiesTheBytes() {
        const QString folder = dir_.filePath(QStringLiteral("first/Pinecove/Backups"));
        QCOMPARE(Backups::backUp(source_, folder, when), std::nullopt);
        QCOMPARE(readFile(folder + QStringLiteral("/hosts_2026-11-16_21.35.07")),
                 readFile(source_));
    }

    void aSecondBackupInTheSameSecondFailsAndKeepsTheFirst() {
        const QString folder = dir_.filePath(QStringLiteral("same-second"));
        QCOMPARE(Backups::backUp(source_, folder, when), std::nullopt);
        const QByteArray first = readFile(folder + QStringLiteral("/hosts_2026-11-16_21.35.07"));
        writeFile(source_, "changed");
        QVERIFY(Backups::backUp(source_, folder, when).has_value());
        QCOMPARE(readFile(folder + QStringLiteral("/hosts_2026-11-16_21.35.07")), first);
    }

    void aMissingSourceOrFolderIsAnError() {
        QVERIFY(Backups::backUp(dir_.filePath(QStringLiteral("nope")),
                                dir_.filePath(QStringLiteral("b1")), when));
        writeFile(dir_.filePath(QStringLiteral("a-file")), "x");
        QVERIFY(Backups::backUp(source_, dir_.filePath(QStringLiteral("a-file/Backups")), when));
        QVERIFY(Backups::backUp(source_, QString(), when));
    }

    void prunesToTheNewestTwentyAndLeavesOtherFiles_data() {
        QTest::addColumn<int>("existing");
        QTest::addColumn<int>("removed");
        QTest::newRow("19 existing") << 19 << 0;
        QTest::newRow("20 existing") << 20 << 1;
        QTest::newRow("25 existing") << 25 << 6;
    }

    void prunesToTheNewestTwentyAndLeavesOtherFiles() {
        QFETCH(int, existing);
        QFETCH(int, removed);
        const QString folder = dir_.filePath(QStringLiteral("prune-%1").arg(existing));
        QDir().mkpath(folder);
        const QDateTime start(QDate(2025, 1, 1), QTime(8, 0, 0));
        for (int i = 0; i < existing; ++i)
            writeFile(folder + QLatin1Char('/') + Backups::fileName(start.addDays(i)), "old");
        writeFile(folder + QStringLiteral("/notes.txt"), "mine");
        writeFile(folder + QStringLiteral("/.DS_Store"), "finder");
        writeFile(folder + QStringLiteral("/HOSTS_README"), "not a backup: case counts");

        QCOMPARE(Backups::backUp(source_, folder, when), std::nullopt);

        const QStringList names = namesIn(folder);
        QVERIFY(names.contains(QStringLiteral("notes.txt")));
        QVERIFY(names.contains(QStringLiteral(".DS_Store")));
        QVERIFY(names.contains(QStringLiteral("HOSTS_README")));
        QCOMPARE(names.filter(QStringLiteral("hosts_"), Qt::CaseSensitive).size(),
                 std::min(existing + 1, 20));
        for (int i = 0; i < existing; ++i)
            QCOMPARE(names.contains(Backups::fileName(start.addDays(i))), i >= removed);
        QVERIFY(names.contains(Backups::fileName(when)));
    }

    void hostsOldCountsAndSortsAfterDatedNames() {
        const QString folder = dir_.filePath(QStringLiteral("old"));
        QDir().mkpath(folder);
        writeFile(folder + QStringLiteral("/hosts_old"), "by hand");
        const QDateTime start(QDate(2025, 1, 1), QTime(8, 0, 0));
        for (int i = 0; i < 20; ++i)
            writeFile(folder + QLatin1Char('/') + Backups::fileName(start.addDays(i)), "old");
        QCOMPARE(Backups::backUp(source_, folder, when), std::nullopt);
        const QStringList names = namesIn(folder);
        QCOMPARE(names.size(), 20);
        QVERIFY(names.contains(QStringLiteral("hosts_old")));
        QVERIFY(!names.contains(Backups::fileName(start)));
        QVERIFY(!names.contains(Backups::fileName(start.addDays(1))));
    }
};

QTEST_GUILESS_MAIN(BackupsTest)
#include "backups_test.moc"
