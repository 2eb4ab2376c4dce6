// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

// Whole transfers on a file descriptor, retried across interruptions: what the app hands the
// root helper, and what the helper reads and writes.
namespace pinecove {

// Writes every byte; false on an error or a write that makes no progress.
bool writeAll(int fd, std::string_view bytes);
// Fills `out` with exactly out.size() bytes; false on an error or an early end.
bool readExactly(int fd, std::string& out);

} // namespace pinecove
