// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace pinecove {

// Strict UTF-8: no overlong forms, no surrogates, nothing above U+10FFFF. A hosts file that fails
// this is refused rather than read with replacement characters, which would corrupt it on write.
bool isValidUtf8(std::string_view bytes);

} // namespace pinecove
