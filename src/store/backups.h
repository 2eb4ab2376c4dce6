// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <optional>

// Dated copies of the hosts file, made before every write, of which the newest 20 are kept.
namespace Backups {

inline constexpr int kept = 20;
inline constexpr int maxSameSecond = 99;
inline const QString namePrefix = QStringLiteral("hosts_");

// The user's application-support folder (~/Library/Application Support on macOS,
// ~/.local/share on Linux) plus "Pinecove/Backups". Computed afresh on each call; empty when the
// platform reports no such folder.
QString defaultFolder();

// "hosts_" and the local date and time as yyyy-MM-dd_HH.mm.ss.
QString fileName(const QDateTime& when);

// Copies `source` into `folder` (made if missing) under the dated name, never overwriting (a
// name already taken gets "_02" to "_99" after it), then prunes. Returns the error's description,
// or nothing on success.
std::optional<QString> backUp(const QString& source, const QString& folder, const QDateTime& when);

// The backups in `folder`, newest first: the files whose names begin with "hosts_" (case counts).
QStringList names(const QString& folder);

// Removes all but the newest `kept` files whose names begin with "hosts_"; touches nothing else
// and swallows its own failures.
void prune(const QString& folder);

} // namespace Backups
