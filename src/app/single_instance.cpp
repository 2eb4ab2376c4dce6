// SPDX-License-Identifier: MIT
#include "single_instance.h"

#include <QDir>
#include <QLocalSocket>
#include <QStandardPaths>

namespace {

// In the user's runtime folder, which only the user can enter (Qt makes a private one when
// XDG_RUNTIME_DIR is unset): another user cannot squat the name, and each session has its own.
QString socketPath() {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty()) {
        folder = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
        QDir().mkpath(folder);
    }
    return folder + QStringLiteral("/pinecove.socket");
}

} // namespace

SingleInstance::SingleInstance()
    : name_(socketPath()) {
    connect(&server_, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* socket = server_.nextPendingConnection()) {
            socket->deleteLater();
            emit showRequested();
        }
    });
}

bool SingleInstance::handedToRunningInstance() {
    QLocalSocket socket;
    socket.connectToServer(name_);
    if (!socket.waitForConnected(500))
        return false;
    socket.write("show\n");
    socket.waitForBytesWritten(500);
    return true;
}

void SingleInstance::listen() {
    // A server left behind by a crash would block the name; no instance answered, so it is stale.
    QLocalServer::removeServer(name_);
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    // Pinecove still works without it; only a second start then opens a second Pinecove.
    if (!server_.listen(name_))
        qWarning("Pinecove cannot listen for later starts at %s (%s); starting it again will "
                 "open a second Pinecove.",
                 qPrintable(name_), qPrintable(server_.errorString()));
}
