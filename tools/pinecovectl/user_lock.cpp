// SPDX-License-Identifier: MIT
#include "user_lock.h"

#include <QDir>
#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

UserLock::UserLock(const QString& folder) {
    if (folder.isEmpty() || !QDir().mkpath(folder))
        return;
    const QByteArray path = QFile::encodeName(folder + QStringLiteral("/.pinecovectl.lock"));
    fd_ = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (fd_ < 0)
        return;
    int locked = 0;
    do
        locked = ::flock(fd_, LOCK_EX);
    while (locked != 0 && errno == EINTR);
}

UserLock::~UserLock() {
    if (fd_ >= 0)
        ::close(fd_);
}
