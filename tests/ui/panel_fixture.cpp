// SPDX-License-Identifier: MIT
#include "panel_fixture.h"

#include "panel_engine.h"

#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(PinecovePlugin)

PanelFixture::PanelFixture(const std::string& hostsText)
    : hosts_(hostsText)
    , store_(hosts_.store()) {
    usePanelRenderer(); // as the app draws
    view_ = std::make_unique<QQuickView>();
    setUpPanelEngine(*view_->engine(), *store_);
    view_->setResizeMode(QQuickView::SizeViewToRootObject);
    view_->setSource(QUrl(QStringLiteral("qrc:/qt/qml/Pinecove/qml/PanelView.qml")));
}
