// SPDX-License-Identifier: MIT
#pragma once

#include "hosts_store.h"

#include <QStringList>
#include <QTextStream>

// Runs one pinecovectl command line through a HostsStore made with `environment`: load, edit,
// then the store's own apply flow. Returns the exit status: 0 done or nothing to do, 1 refused
// or failed (the store's message on `err`), 2 bad usage.
int runPinecovectl(const QStringList& words, HostsStore::Environment environment, QTextStream& out,
                   QTextStream& err);

// A clock for backups that never names one that exists: a call in the same second as the last
// backup waits for the next second, so scripted calls back to back all keep their backups.
std::function<QDateTime()> backupClock(std::function<QString()> folder);
