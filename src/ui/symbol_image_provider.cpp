// SPDX-License-Identifier: MIT
#include "symbol_image_provider.h"

#include <QColor>
#include <QPainter>
#include <QSvgRenderer>

SymbolImageProvider::SymbolImageProvider()
    : QQuickImageProvider(QQuickImageProvider::Image) {}

QImage SymbolImageProvider::requestImage(const QString& id, QSize* size,
                                         const QSize& requestedSize) {
    const qsizetype slash = id.lastIndexOf(QLatin1Char('/'));
    const QString name = id.left(slash);
    const QColor color(id.mid(slash + 1));
    QSvgRenderer renderer(QStringLiteral(":/qt/qml/Pinecove/symbols/%1.svg").arg(name));
    const QSize target = requestedSize.isValid() ? requestedSize : renderer.defaultSize();
    QImage image(target, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        renderer.render(&painter);
        // Keep the symbol's shape, take the colour.
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(image.rect(), color.isValid() ? color : QColor(Qt::black));
    }
    if (size)
        *size = image.size();
    return image;
}
