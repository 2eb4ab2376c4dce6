// SPDX-License-Identifier: MIT
#pragma once

#include "ctl_arguments.h"
#include "hosts_store.h"

// Carries out one edit (add, set, on, off, remove) on the store's model, writing nothing.
// Returns CtlStatus::done when the edit's end state holds, changed or already so; otherwise the
// status, with why in `error`, and the model possibly half edited: the caller then writes nothing.
//
// No edit changes what another name resolves to unless asked (--whole-lines): a name on several
// lines, or switched on or off on a line it shares, is refused with those lines listed.
int applyEdit(HostsStore& store, const CtlArguments& edit, QString& error);
