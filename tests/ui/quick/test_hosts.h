// SPDX-License-Identifier: MIT
#pragma once

#include "hosts_fixture.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

// Lets a QML test set the scene: the hosts file's text, and how the next writes go.
class TestHosts : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    static void setUp(HostsFixture* hosts, HostsStore* store);
    // Writes the file and loads it, as if the panel had just opened on it.
    Q_INVOKABLE void reset(const QString& text);
    // Writes the file behind the store's back, as another program would.
    Q_INVOKABLE void writeBehind(const QString& text);
    Q_INVOKABLE QString fileText() const;
    Q_INVOKABLE void failWrites(const QString& message);
    Q_INVOKABLE void holdWrites(bool hold);
    Q_INVOKABLE void releaseWrite();
    Q_INVOKABLE int writesRequested() const;
};
