// SPDX-License-Identifier: MIT
#pragma once

#include "hosts_store.h"

#include <QStringList>
#include <QTextStream>

// Runs one pinecovectl command line through a HostsStore made with `environment`: load, edit,
// then the store's own apply flow. Returns the exit status (see CtlStatus): the reason for any
// status but 0 goes to `err`.
int runPinecovectl(const QStringList& words, HostsStore::Environment environment, QTextStream& out,
                   QTextStream& err);
