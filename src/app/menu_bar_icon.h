// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QIcon>
#include <QImage>
#include <QPointF>
#include <QRectF>
#include <array>

// The menu-bar (tray) icon: three nodes joined by dotted edges on an 18 x 18 point canvas, plus
// a dot at the top right while there are unapplied edits. On macOS a black template image, which
// the menu bar tints; elsewhere nothing tints it, so it is drawn in the panel's foreground colour
// for the desktop's light or dark scheme.
namespace MenuBarIcon {

struct Edge {
    QPointF from;
    QPointF to;
};

inline constexpr double canvas = 18.0;
inline constexpr double lineWidth = 1.1;
inline constexpr double edgeInset = 3.1; // edges stop this far from both node centres
inline const QRectF unsavedDot(14.6, 14.4, 3.2, 3.2);

// In points, origin at the bottom left, y upward: top, bottom-left, bottom-right.
std::array<QRectF, 3> nodeOvals();
// Top to bottom-left, bottom-left to bottom-right, bottom-right to top.
std::array<Edge, 3> edges();

// What the icon is drawn in: black for a light scheme, white for a dark one. Each reads at better
// than 10:1 on the panels of its scheme (light #f6f5f4; dark #303030 and black).
QColor foreground(bool darkScheme);

// Black or white, whichever reads better on `background`: for a tray whose colour is known.
QColor foregroundOn(const QColor& background);

// The names of the symbolic icons installed in the icon theme, clean and with the dot. Hosts
// that load icons by name recolour symbolic ones to their panel.
inline constexpr const char* symbolicName = "io.pinecove.Pinecove-symbolic";
inline constexpr const char* symbolicUnsavedName = "io.pinecove.Pinecove-unsaved-symbolic";

// The icon drawn at a device pixel ratio.
QImage draw(bool dirty, qreal devicePixelRatio, const QColor& colour = Qt::black);

// The icon in one colour, at 1x, 2x and 3x.
QIcon icon(bool dirty, const QColor& colour);

} // namespace MenuBarIcon
