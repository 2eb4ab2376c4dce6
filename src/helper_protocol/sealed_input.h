// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

// An in-memory file holding `first` then `second`, positioned at its start; the helper reads it
// as standard input. Until it is sealed, another program of the same user can reopen it through
// /proc and write into it, so once sealed it is read back and compared with both texts: from
// then on nobody can change, grow or shrink it. Returns -1 on failure or on any difference.
int sealedInput(std::string_view first, std::string_view second);
