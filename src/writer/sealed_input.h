// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

// An in-memory file holding `first` then `second`, sealed so that nobody (not even another
// program of the same user reopening it through /proc) can change, grow or shrink it, and
// positioned at its start. The helper reads it as standard input. Returns -1 on failure.
int sealedInput(std::string_view first, std::string_view second);
