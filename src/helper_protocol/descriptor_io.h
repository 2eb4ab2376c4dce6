// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Whole transfers on a file descriptor, retried across interruptions: what the app hands the
// root helper, what the helper reads and writes, and the files pinecove-inspect reads.
namespace pinecove {

// Writes every byte; false on an error or a write that makes no progress.
bool writeAll(int fd, std::string_view bytes);
// Fills `out` with exactly out.size() bytes; false on an error or an early end.
bool readExactly(int fd, std::string& out);
// Appends everything up to the end to `out`; false on an error, or once more than `limit` bytes
// have arrived.
bool readToEnd(int fd, std::string& out, std::size_t limit);

} // namespace pinecove
