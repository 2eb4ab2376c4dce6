// SPDX-License-Identifier: MIT
#pragma once

#include <QLocalServer>
#include <QObject>

// One Pinecove per user: a second start asks the running one to show its panel, then exits.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    SingleInstance();
    // True when another instance answered (and was asked to show itself).
    bool handedToRunningInstance();
    // Starts listening for later starts.
    void listen();

signals:
    void showRequested();

private:
    QString name_;
    QLocalServer server_;
};
