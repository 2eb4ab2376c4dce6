// SPDX-License-Identifier: MIT
#pragma once

#include "hosts_store.h"

// Carries out, on the store's model, the edits of a batch file (`-` for standard input): one
// add, set, on, off or remove command a line, words split at spaces and tabs, with its own
// --address and --whole-lines; blank lines and lines starting with # are skipped. Stops at the
// first edit that fails, with its status and, in `error`, the line and why. Nothing is written
// here: the caller writes the result once.
int applyBatch(HostsStore& store, const QString& file, QString& error);
