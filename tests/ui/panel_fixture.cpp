// SPDX-License-Identifier: MIT
#include "panel_fixture.h"

#include "panel_engine.h"

#include <QFile>
#include <QQmlContext>
#include <QtQml/qqml.h>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(PinecovePlugin)

PanelFixture::PanelFixture(const std::string& hostsText) {
    QFile file(hostsPath());
    file.open(QIODevice::WriteOnly);
    file.write(hostsText.data(), static_cast<qint64>(hostsText.size()));
    file.close();

    runner_ = std::make_shared<FakeScriptRunner>(hostsPath());
    HostsStore::Environment environment;
    environment.hostsPath = hostsPath();
    const QString backups = dir_.filePath(QStringLiteral("backups"));
    environment.backupsFolder = [backups] {
        return backups;
    };
    environment.runner = runner_;
    store_ = std::make_unique<HostsStore>(environment);

    usePanelRenderer(); // as the app draws
    view_ = std::make_unique<QQuickView>();
    setUpPanelEngine(*view_->engine(), *store_);
    view_->setColor(Qt::transparent);
    view_->setResizeMode(QQuickView::SizeViewToRootObject);
    view_->setSource(QUrl(QStringLiteral("qrc:/qt/qml/Pinecove/qml/PanelView.qml")));
}

PanelFixture::~PanelFixture() {
    view_.reset();
}

QQuickItem* PanelFixture::panel() const {
    return view_->rootObject();
}

QQuickItem* PanelFixture::find(const char* objectName) const {
    return panel() ? panel()->findChild<QQuickItem*>(QLatin1String(objectName)) : nullptr;
}

void PanelFixture::setDark(bool dark) {
    const int type = qmlTypeId("Pinecove", 1, 0, "Desktop");
    if (QObject* desktop = view_->engine()->singletonInstance<QObject*>(type))
        desktop->setProperty("appearance", dark ? QStringLiteral("dark") : QStringLiteral("light"));
}
