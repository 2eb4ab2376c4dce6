// SPDX-License-Identifier: MIT
// Runs tst_*.qml against the real panel, a store over a hosts file of the test's own, and the
// fake administrator runner.
#include "panel_engine.h"
#include "test_hosts.h"

#include <QQmlEngine>
#include <QStandardPaths>
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
        store_ = hosts_.store();
        TestHosts::hosts = &hosts_;
        TestHosts::store = store_.get();
        setUpPanelEngine(*engine, *store_);
    }

private:
    HostsFixture hosts_;
    std::unique_ptr<HostsStore> store_;
};

QUICK_TEST_MAIN_WITH_SETUP(panel, Setup)

#include "main.moc"
