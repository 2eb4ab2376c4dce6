// SPDX-License-Identifier: MIT
#pragma once

#include <QQuickImageProvider>

// Serves the panel's symbols, drawn as our own SVGs, in any colour:
// "image://symbol/<name>/<#aarrggbb>". Tinting here keeps each symbol one file however many
// colours and appearances it is shown in.
class SymbolImageProvider : public QQuickImageProvider {
public:
    SymbolImageProvider();
    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};
