// SPDX-License-Identifier: MIT
#pragma once

#include "script_runner.h"

#include <functional>
#include <optional>
#include <string>

namespace PrivilegedWriter {

// Why a write did not happen: the size check or the runner refused (`isWriteError`), or a runner
// that could not be started (its own description).
struct WriteFailure {
    std::string message;
    bool isWriteError = true;
};

// Replaces /etc/hosts with `text` through `runner`, while it still holds `expected` (checked by
// the Linux helper as root). Too large a text is refused before anything runs. `done` is called
// exactly once, with nothing on success.
void writeHostsFile(const std::string& text, const std::string& expected, ScriptRunner& runner,
                    std::function<void(std::optional<WriteFailure>)> done);

} // namespace PrivilegedWriter
