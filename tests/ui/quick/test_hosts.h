// SPDX-License-Identifier: MIT
#pragma once

#include "hosts_fixture.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QPalette>
#include <QtQml/qqmlregistration.h>

// Lets a QML test set the scene: the hosts file's text, and how the next writes go.
class TestHosts : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    inline static HostsFixture* hosts = nullptr;
    inline static HostsStore* store = nullptr;

    // Writes the file and loads it, as if the panel had just opened on it.
    Q_INVOKABLE void reset(const QString& text) {
        hosts->write(text.toStdString());
        hosts->runner->outcome = ScriptRunner::Succeeded{};
        hosts->runner->hold = false;
        hosts->runner->requests.clear();
        store->load();
    }
    // Writes the file behind the store's back, as another program would.
    Q_INVOKABLE void writeBehind(const QString& text) { hosts->write(text.toStdString()); }
    Q_INVOKABLE QString fileText() const { return QString::fromStdString(hosts->read()); }
    Q_INVOKABLE void failWrites(const QString& message) {
        hosts->runner->outcome = ScriptRunner::Failed{message.toStdString()};
    }
    Q_INVOKABLE void holdWrites(bool hold) { hosts->runner->hold = hold; }
    Q_INVOKABLE void releaseWrite() { hosts->runner->release(); }
    Q_INVOKABLE int writesRequested() const { return int(hosts->runner->requests.size()); }
    // What a screen reader does and reads, through the item's accessible interface.
    Q_INVOKABLE void accessibleAction(QObject* item, const QString& name) {
        QAccessible::queryAccessibleInterface(item)->actionInterface()->doAction(name);
    }
    Q_INVOKABLE bool readAsOffscreen(QObject* item) const {
        return QAccessible::queryAccessibleInterface(item)->state().offscreen;
    }
    // The desktop's palette, as a change of theme sets it: dark windows, or the one at start.
    Q_INVOKABLE void usePalette(bool dark) {
        static const QPalette original = QGuiApplication::palette();
        QGuiApplication::setPalette(dark ? QPalette(QColor(0x20, 0x20, 0x20)) : original);
    }
};
