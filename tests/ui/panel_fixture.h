// SPDX-License-Identifier: MIT
#pragma once

#include "fake_script_runner.h"
#include "hosts_store.h"

#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTemporaryDir>
#include <memory>

// A panel on a store over a temporary hosts file, with the fake runner: what the UI tests and
// renders drive. The store is made before the engine, as in the app.
class PanelFixture {
public:
    explicit PanelFixture(const std::string& hostsText);
    ~PanelFixture();

    HostsStore& store() { return *store_; }
    FakeScriptRunner& runner() { return *runner_; }
    QQuickView& view() { return *view_; }
    QQuickItem* panel() const;
    QQuickItem* find(const char* objectName) const;
    QString hostsPath() const { return dir_.filePath(QStringLiteral("hosts")); }
    // Pins the appearance, so renders do not depend on the machine's palette.
    void setDark(bool dark);

private:
    QTemporaryDir dir_;
    std::shared_ptr<FakeScriptRunner> runner_;
    std::unique_ptr<HostsStore> store_;
    std::unique_ptr<QQuickView> view_;
};
