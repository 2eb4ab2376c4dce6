#include "panel_engine.h"

#include "panel_store.h"
#include "symbol_image_provider.h"

#include <QQmlEngine>
#include <QQuickWindow>
#include <QSGRendererInterface>

void usePanelRenderer() {
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

void setUpPanelEngine(QQmlEngine& engine, HostsStore& store) {
    PanelStore::setStore(&store);
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine.addImageProvider(QStringLiteral("symbol"), new SymbolImageProvider);
}
