// SPDX-License-Identifier: MIT
#include "menu_bar_icon.h"

#include <QDir>
#include <QGuiApplication>
#include <QPainter>
#include <QTest>
#include <cmath>

namespace {

// A point's pixel in an image drawn bottom-left up, at `ratio`.
QPoint pixelOf(QPointF point, qreal ratio) {
    return {static_cast<int>(point.x() * ratio),
            static_cast<int>((MenuBarIcon::canvas - point.y()) * ratio)};
}

// WCAG's contrast ratio.
double contrast(QRgb a, QRgb b) {
    const auto luminance = [](QRgb rgb) {
        const auto channel = [](int value) {
            const double c = value / 255.0;
            return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * channel(qRed(rgb)) + 0.7152 * channel(qGreen(rgb)) +
               0.0722 * channel(qBlue(rgb));
    };
    const auto [dark, light] = std::minmax(luminance(a), luminance(b));
    return (light + 0.05) / (dark + 0.05);
}

} // namespace

class MenuBarIconTest : public QObject {
    Q_OBJECT

private slots:
    // On the panels each scheme implies, the nodes and the dot read at 3:1 or better, measured on
    // the pixels as the panel shows them, and unsaved changes add the dot and nothing else. The
    // composites are saved for review.
    void readsOnThePanelsOfItsScheme() {
        const std::pair<QColor, bool> panels[] = {
            {QColor(0xf6f5f4), false}, {QColor(0x303030), true}, {QColor(Qt::black), true}};
        for (const qreal ratio : {1.0, 2.0})
            for (const auto& [panel, darkScheme] : panels)
                readsOn(panel, darkScheme, ratio);
    }

private:
    void readsOn(const QColor& panel, bool darkScheme, qreal ratio) {
        std::array<QImage, 2> shown;
        for (const bool dirty : {false, true}) {
            QImage& image = shown[dirty];
            image = QImage(qRound(18 * ratio), qRound(18 * ratio), QImage::Format_RGB32);
            image.setDevicePixelRatio(ratio);
            image.fill(panel);
            QPainter(&image).drawImage(
                0, 0, MenuBarIcon::draw(dirty, ratio, MenuBarIcon::foreground(darkScheme)));
            const double node = contrast(image.pixel(pixelOf({9, 13.8}, ratio)), panel.rgb());
            QVERIFY2(node >= 3, qPrintable(QStringLiteral("node at %1:1").arg(node)));
            const QPoint dot = pixelOf(MenuBarIcon::unsavedDot.center(), ratio);
            QCOMPARE(contrast(image.pixel(dot), panel.rgb()) >= 3, dirty);
            if (ratio == 2.0)
                QVERIFY(image.scaled(image.size() * 4)
                            .save(QStringLiteral(PINECOVE_SCREENSHOTS_DIR "/tray-icon-%1%2.png")
                                      .arg(panel.name().mid(1),
                                           dirty ? QStringLiteral("-dirty") : QString())));
        }
        // The dot's rectangle in pixels, y flipped, widened by one pixel for antialiasing.
        const QRectF dot = MenuBarIcon::unsavedDot;
        const QRect dotPixels(QPoint(static_cast<int>(std::floor(dot.left() * ratio)) - 1,
                                     static_cast<int>(std::floor((18 - dot.bottom()) * ratio)) - 1),
                              QPoint(static_cast<int>(std::ceil(dot.right() * ratio)),
                                     static_cast<int>(std::ceil((18 - dot.top()) * ratio))));
        for (int y = 0; y < shown[0].height(); ++y)
            for (int x = 0; x < shown[0].width(); ++x)
                if (shown[0].pixel(x, y) != shown[1].pixel(x, y))
                    QVERIFY2(dotPixels.contains(x, y),
                             qPrintable(QStringLiteral("pixel %1,%2 differs").arg(x).arg(y)));
    }
};

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    QDir().mkpath(QStringLiteral(PINECOVE_SCREENSHOTS_DIR));
    MenuBarIconTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "menu_bar_icon_test.moc"
