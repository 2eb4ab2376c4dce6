// SPDX-License-Identifier: MIT
#include "panel_engine.h"

#include "panel_store.h"
#include "symbol_image_provider.h"

#include <QQmlEngine>
#include <QQuickWindow>
#include <QSGRendererInterface>

void usePanelRenderer() {
    // Once chosen it holds for the process; asking again after a window exists only warns.
    static const bool chosen = [] {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        return true;
    }();
    (void)chosen;
}

void setUpPanelEngine(QQmlEngine& engine, HostsStore& store) {
    PanelStore::setStore(&store);
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine.addImageProvider(QStringLiteral("symbol"), new SymbolImageProvider);
}
