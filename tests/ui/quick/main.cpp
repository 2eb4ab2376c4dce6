// SPDX-License-Identifier: MIT
// Runs tst_*.qml against the real panel, a store over a temporary hosts file, and the fake
// administrator runner.

#include "fake_script_runner.h"
#include "hosts_store.h"
#include "panel_engine.h"
#include "test_hosts.h"

#include <QQmlEngine>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(PinecovePlugin)

class Setup : public QObject {
    Q_OBJECT

public slots:
    void applicationAvailable() {
        QStandardPaths::setTestModeEnabled(true);
        usePanelRenderer();
    }

    void qmlEngineAvailable(QQmlEngine* engine) {
        const QString path = dir_.filePath(QStringLiteral("hosts"));
        runner_ = std::make_shared<FakeScriptRunner>(path);
        HostsStore::Environment environment;
        environment.hostsPath = path;
        const QString backups = dir_.filePath(QStringLiteral("backups"));
        // Every apply gets a name of its own: tests apply several times a second.
        environment.backupsFolder = [backups] {
            return backups;
        };
        environment.clock = [tick = std::make_shared<QDateTime>(QDateTime::currentDateTime())] {
            return *tick = tick->addSecs(1);
        };
        environment.runner = runner_;
        store_ = std::make_unique<HostsStore>(environment);
        TestHosts::setUp(store_.get(), runner_.get(), path);
        setUpPanelEngine(*engine, *store_);
    }

private:
    QTemporaryDir dir_;
    std::shared_ptr<FakeScriptRunner> runner_;
    std::unique_ptr<HostsStore> store_;
};

QUICK_TEST_MAIN_WITH_SETUP(panel, Setup)

#include "main.moc"
