// SPDX-License-Identifier: MIT
#include "single_instance.h"

#include <QLocalServer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <unistd.h>

class SingleInstanceTest : public QObject {
    Q_OBJECT

private slots:
    // Someone else's listener where the name used to live (/tmp/pinecove-<uid>) must not make
    // Pinecove hand itself over and quit; a second start of the same session still finds the
    // first.
    void aSquattedNameIsIgnoredAndTheSessionsOwnIsFound() {
        QTemporaryDir runtime, temp;
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime.path()));
        qputenv("TMPDIR", QFile::encodeName(temp.path()));
        QLocalServer squatter;
        QVERIFY(squatter.listen(temp.filePath(QStringLiteral("pinecove-%1").arg(::getuid()))));

        SingleInstance first;
        QVERIFY(!first.handedToRunningInstance());
        first.listen();
        QSignalSpy shown(&first, &SingleInstance::showRequested);
        SingleInstance second;
        QVERIFY(second.handedToRunningInstance());
        QTRY_COMPARE(shown.count(), 1);
    }
};

QTEST_GUILESS_MAIN(SingleInstanceTest)
#include "single_instance_test.moc"
