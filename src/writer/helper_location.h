// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>
#include <string>

// Where the Linux root helper lives, and whether a file there may be run as root.
namespace HelperLocation {

// The installed helper. A program run from its own build folder (the folder above it holds
// CMakeCache.txt) uses the helper built beside it instead; no build path is compiled in, so an
// installed program can never be pointed at a file someone planted in a temporary folder.
QString path();

// Why `path` must not be run as root, or nothing when it may: it must be a regular file owned by
// root that no one else can write, in folders that only root can change (a root-owned sticky
// folder such as /tmp counts as unchangeable: others cannot replace what root put in it).
std::optional<std::string> refusalToRunAsRoot(const QString& path);

} // namespace HelperLocation
