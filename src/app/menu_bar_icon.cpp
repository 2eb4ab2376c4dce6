// SPDX-License-Identifier: MIT
#include "menu_bar_icon.h"

#include <QPainter>
#include <QPainterPath>
#include <cmath>

namespace MenuBarIcon {

namespace {

struct Node {
    QPointF centre;
    double radius;
};

constexpr std::array<Node, 3> nodes{{{{9, 13.8}, 2.4}, {{3.4, 4.9}, 1.9}, {{14.6, 4.9}, 1.9}}};

QRectF ovalOf(const Node& node) {
    // Computed in double precision: 4.9 - 1.9 gives 3.0000000000000004, as intended.
    return {node.centre.x() - node.radius, node.centre.y() - node.radius, 2 * node.radius,
            2 * node.radius};
}

Edge shortened(QPointF a, QPointF b) {
    const QPointF d = b - a;
    const double length = std::hypot(d.x(), d.y());
    const QPointF step = d * (edgeInset / length);
    return {a + step, b - step};
}

} // namespace

std::array<QRectF, 3> nodeOvals() {
    return {ovalOf(nodes[0]), ovalOf(nodes[1]), ovalOf(nodes[2])};
}

std::array<Edge, 3> edges() {
    const auto& [top, left, right] = nodes;
    return {shortened(top.centre, left.centre), shortened(left.centre, right.centre),
            shortened(right.centre, top.centre)};
}

QColor foreground(bool darkScheme) {
#if defined(__APPLE__)
    (void)darkScheme;
    return Qt::black; // a template: only its alpha counts
#else
    return darkScheme ? QColor(Qt::white) : QColor(Qt::black);
#endif
}

QColor foregroundOn(const QColor& background) {
    // WCAG's relative luminance; white and black meet at about 0.18.
    const auto channel = [](double c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    const double luminance = 0.2126 * channel(background.redF()) +
                             0.7152 * channel(background.greenF()) +
                             0.0722 * channel(background.blueF());
    return luminance > 0.179 ? QColor(Qt::black) : QColor(Qt::white);
}

QIcon icon(bool dirty, const QColor& colour) {
    QIcon result;
    for (const qreal ratio : {1.0, 2.0, 3.0})
        result.addPixmap(QPixmap::fromImage(draw(dirty, ratio, colour)));
#if defined(__APPLE__)
    result.setIsMask(true); // a template image: only its alpha counts
#endif
    return result;
}

QImage draw(bool dirty, qreal devicePixelRatio, const QColor& colour) {
    const int pixels = static_cast<int>(std::lround(canvas * devicePixelRatio));
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    image.setDevicePixelRatio(devicePixelRatio);

    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    // Points with the origin at the bottom left and y growing upward.
    painter.translate(0, canvas);
    painter.scale(1, -1);

    QPainterPath path;
    for (const Edge& edge : edges()) {
        path.moveTo(edge.from);
        path.lineTo(edge.to);
    }
    QPen pen(colour, lineWidth, Qt::CustomDashLine, Qt::RoundCap);
    // Qt measures dashes in pen widths: 0.1 drawn and 1.75 gap, in points, with round caps,
    // make a row of dots 1.85 points apart.
    pen.setDashPattern({0.1 / lineWidth, 1.75 / lineWidth});
    pen.setDashOffset(0);
    painter.strokePath(path, pen);

    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    for (const QRectF& oval : nodeOvals())
        painter.drawEllipse(oval);
    if (dirty)
        painter.drawEllipse(unsavedDot);
    return image;
}

} // namespace MenuBarIcon
