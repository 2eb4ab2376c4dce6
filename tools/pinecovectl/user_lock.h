// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Serialises one user's writing pinecovectl calls: held from the load to the end of the write,
// so a call started while another writes waits, then loads what that one wrote, instead of
// meeting it as a conflict. An flock on ".pinecovectl.lock" in `folder` (the backups folder, made
// if missing); released by the destructor or when the process ends. Where the lock cannot be
// had, the call goes on without it: the root helper's own lock still keeps every change.
class UserLock {
public:
    explicit UserLock(const QString& folder);
    ~UserLock();
    UserLock(const UserLock&) = delete;
    UserLock& operator=(const UserLock&) = delete;

private:
    int fd_ = -1;
};
