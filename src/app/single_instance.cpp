// SPDX-License-Identifier: MIT
#include "single_instance.h"

#include <QLocalSocket>
#include <QStandardPaths>
#include <unistd.h>

SingleInstance::SingleInstance()
    : name_(QStringLiteral("pinecove-%1").arg(::getuid())) {
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
    server_.listen(name_);
}
