// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pinecove::test {

// The text that loading `text` and writing it back unchanged must give: the same bytes, except
// that the end is cut or padded to exactly one line feed.
std::string expectedRoundTrip(std::string_view text);

// Checks, for one UTF-8 text, the promises the model makes about any hosts file:
// - one line per line feed, plus one;
// - load then serialize gives expectedRoundTrip, and doing it again changes nothing;
// - switching every custom entry off or on gives lines that read back as the same mappings in the
//   other state, and switching them all again restores the text exactly;
// - deleting every custom entry leaves exactly the other lines.
// Returns a description of the first broken promise, or nothing.
std::optional<std::string> checkModelInvariants(std::string_view text);

} // namespace pinecove::test
