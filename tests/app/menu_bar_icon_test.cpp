// SPDX-License-Identifier: MIT
#include "menu_bar_icon.h"

#include <QDir>
#include <QGuiApplication>
#include <QPainter>
#include <QTest>
#include <cmath>

namespace {

double distance(QPointF a, QPointF b) {
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

// A point's pixel in an image drawn bottom-left up, at `ratio`.
QPoint pixelOf(QPointF point, qreal ratio) {
    return {static_cast<int>(point.x() * ratio),
            static_cast<int>((MenuBarIcon::canvas - point.y()) * ratio)};
}

} // namespace

class MenuBarIconTest : public QObject {
    Q_OBJECT

    static double luminance(QRgb rgb) {
        const auto channel = [](int value) {
            const double c = value / 255.0;
            return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * channel(qRed(rgb)) + 0.7152 * channel(qGreen(rgb)) +
               0.0722 * channel(qBlue(rgb));
    }

    // WCAG's contrast ratio.
    static double contrast(QRgb a, QRgb b) {
        const auto [dark, light] = std::minmax(luminance(a), luminance(b));
        return (light + 0.05) / (dark + 0.05);
    }

private slots:
    void theDirtyImageAddsOnlyTheDot_data() {
        QTest::addColumn<qreal>("ratio");
        QTest::newRow("1x") << 1.0;
        QTest::newRow("2x") << 2.0;
    }

    void theDirtyImageAddsOnlyTheDot() {
        QFETCH(qreal, ratio);
        const QImage normal = MenuBarIcon::draw(false, ratio);
        const QImage dirty = MenuBarIcon::draw(true, ratio);
        QCOMPARE(normal.size(), QSize(qRound(18 * ratio), qRound(18 * ratio)));
        // The dot's rectangle in pixels, y flipped, widened by one pixel for antialiasing.
        const QRectF dot = MenuBarIcon::unsavedDot;
        const QRect dotPixels(QPoint(static_cast<int>(std::floor(dot.left() * ratio)) - 1,
                                     static_cast<int>(std::floor((18 - dot.bottom()) * ratio)) - 1),
                              QPoint(static_cast<int>(std::ceil(dot.right() * ratio)),
                                     static_cast<int>(std::ceil((18 - dot.top()) * ratio))));
        int differing = 0;
        for (int y = 0; y < normal.height(); ++y)
            for (int x = 0; x < normal.width(); ++x)
                if (normal.pixel(x, y) != dirty.pixel(x, y)) {
                    QVERIFY2(dotPixels.contains(x, y),
                             qPrintable(QStringLiteral("pixel %1,%2 differs").arg(x).arg(y)));
                    ++differing;
                }
        QVERIFY(differing > 0);
        // The dot itself is opaque black; the nodes are drawn, the corners empty.
        QCOMPARE(qAlpha(dirty.pixel(pixelOf(dot.center(), ratio))), 255);
        QCOMPARE(qAlpha(normal.pixel(pixelOf(dot.center(), ratio))), 0);
        QCOMPARE(qAlpha(normal.pixel(pixelOf({9, 13.8}, ratio))), 255);
        QCOMPARE(qAlpha(normal.pixel(0, 0)), 0);
        QCOMPARE(qGray(normal.pixel(pixelOf({9, 13.8}, ratio))), 0);
    }

    void edgesStopShortOfTheNodes() {
        const auto ovals = MenuBarIcon::nodeOvals();
        QCOMPARE(ovals[1].top(), 3.0000000000000004); // 4.9 - 1.9 in double precision
        const auto edges = MenuBarIcon::edges();
        QCOMPARE(edges[0].from.x(), 7.3490608514084);
        QCOMPARE(edges[0].from.y(), 11.176185995988352);
        QCOMPARE(edges[1].from, QPointF(6.5, 4.9));
        QCOMPARE(edges[1].to, QPointF(11.5, 4.9));
        // Each end is 3.1 from its centre: clear of the node, even with the round cap.
        const std::array<std::pair<int, int>, 3> joins{{{0, 1}, {1, 2}, {2, 0}}};
        for (std::size_t i = 0; i < edges.size(); ++i) {
            const QRectF from = ovals[static_cast<std::size_t>(joins[i].first)];
            const QRectF to = ovals[static_cast<std::size_t>(joins[i].second)];
            QVERIFY(qFuzzyCompare(distance(edges[i].from, from.center()), 3.1));
            QVERIFY(qFuzzyCompare(distance(edges[i].to, to.center()), 3.1));
            QVERIFY(3.1 - MenuBarIcon::lineWidth / 2 > from.width() / 2);
            QVERIFY(3.1 - MenuBarIcon::lineWidth / 2 > to.width() / 2);
        }
        // And in the picture, at 4x: between the bottom-left node (edge at x 5.3) and the round cap
        // of the bottom edge (from x 6.5 - 0.55) lies a clear gap.
        const QImage image = MenuBarIcon::draw(false, 4.0);
        QCOMPARE(qAlpha(image.pixel(pixelOf({5.625, 4.9}, 4.0))), 0);
        QCOMPARE(qAlpha(image.pixel(pixelOf({6.5, 4.9}, 4.0))), 255); // the first dot
    }

    // On the panels each scheme implies, the nodes and the dot read at 3:1 or better, measured
    // on the pixels as the panel shows them. The composites are saved for review.
    void readsOnThePanelsOfItsScheme_data() {
        QTest::addColumn<QColor>("panel");
        QTest::addColumn<bool>("darkScheme");
        QTest::addColumn<qreal>("ratio");
        for (const qreal ratio : {1.0, 2.0}) {
            const QByteArray scale = QByteArray::number(ratio) + "x";
            QTest::newRow("light #f6f5f4 " + scale) << QColor(0xf6f5f4) << false << ratio;
            QTest::newRow("dark #303030 " + scale) << QColor(0x303030) << true << ratio;
            QTest::newRow("black " + scale) << QColor(Qt::black) << true << ratio;
        }
    }

    void readsOnThePanelsOfItsScheme() {
        QFETCH(QColor, panel);
        QFETCH(bool, darkScheme);
        QFETCH(qreal, ratio);
        const QColor colour = MenuBarIcon::foreground(darkScheme);
        for (const bool dirty : {false, true}) {
            QImage shown(qRound(18 * ratio), qRound(18 * ratio), QImage::Format_RGB32);
            shown.setDevicePixelRatio(ratio);
            shown.fill(panel);
            QPainter(&shown).drawImage(0, 0, MenuBarIcon::draw(dirty, ratio, colour));
            const double node = contrast(shown.pixel(pixelOf({9, 13.8}, ratio)), panel.rgb());
            QVERIFY2(node >= 3, qPrintable(QStringLiteral("node at %1:1").arg(node)));
            const QPoint dot = pixelOf(MenuBarIcon::unsavedDot.center(), ratio);
            QCOMPARE(contrast(shown.pixel(dot), panel.rgb()) >= 3, dirty);
            if (ratio == 2.0)
                QVERIFY(shown.scaled(shown.size() * 4).save(
                    QStringLiteral(PINECOVE_SCREENSHOTS_DIR "/tray-icon-%1%2.png")
                        .arg(panel.name().mid(1), dirty ? QStringLiteral("-dirty") : QString())));
        }
    }
};

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    QDir().mkpath(QStringLiteral(PINECOVE_SCREENSHOTS_DIR));
    MenuBarIconTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "menu_bar_icon_test.moc"
