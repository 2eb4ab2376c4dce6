// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>

// What one operand of pinecovectl is: one hostname or one address, never a piece of a mapping.
namespace Operands {

// The operand in double quotes, with backslashes, quotes and control characters escaped (\t, \n,
// \r, \xNN, \uNNNN), so a message shows exactly what was given.
QString shown(const QString& operand);

// Whether the operand is a valid IPv4 or IPv6 address (a zone suffix allowed, no '#').
bool isAddress(const QString& operand);

// Why `operand` cannot be an address: nothing when it is one.
std::optional<QString> addressProblem(const QString& operand);
// Why `operand` cannot be a hostname: empty, white space or a control character, an address or
// something that looks like one (only digits and dots, or a colon), or not a valid hostname.
std::optional<QString> nameProblem(const QString& operand);

// localhost and broadcasthost, in any case: names Pinecove leaves alone.
bool isSystemName(const QString& operand);

} // namespace Operands
