// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// The few things the panel asks of the desktop, which differ by platform.
namespace DesktopActions {

// Opens a text file in the user's default text editor, without waiting; failures are ignored.
void openInTextEditor(const QString& path);
// Shows a folder in the file manager (Finder on macOS).
void revealFolder(const QString& path);
// The user's accessibility setting to reduce motion.
bool prefersReducedMotion();

} // namespace DesktopActions
