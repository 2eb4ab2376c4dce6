// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QImage>
#include <QPointF>
#include <QRectF>
#include <array>

// The menu-bar (tray) icon: three nodes joined by dotted edges on an 18 x 18 point canvas, plus
// a dot at the top right while there are unapplied edits. Black on transparent; on macOS a
// template image, so the menu bar tints it.
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

// The icon drawn at a device pixel ratio.
QImage draw(bool dirty, qreal devicePixelRatio);

// The two icons, each made once (at 1x, 2x and 3x) and shared for the life of the process.
const QIcon& normal();
const QIcon& dirty();

} // namespace MenuBarIcon
