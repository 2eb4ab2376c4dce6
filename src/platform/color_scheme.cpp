// SPDX-License-Identifier: MIT
#include "color_scheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>
#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

namespace {

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorSchemeKey = QStringLiteral("color-scheme");

// The portal wraps the value in one or two variants, depending on its version.
int unwrap(QVariant value) {
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value.toInt();
}

} // namespace

ColorScheme::ColorScheme(QObject* parent)
    : QObject(parent) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected()) {
        QDBusMessage read = QDBusMessage::createMethodCall(
            portalService, portalPath, settingsInterface, QStringLiteral("Read"));
        read << appearance << colorSchemeKey;
        const QDBusMessage reply = bus.call(read, QDBus::Block, 500);
        if (reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty())
            portalPreference_ = unwrap(reply.arguments().front());
        bus.connect(portalService, portalPath, settingsInterface, QStringLiteral("SettingChanged"),
                    this, SLOT(portalSettingChanged(QString, QString, QDBusVariant)));
    }
    qApp->installEventFilter(this); // the palette changes with the desktop theme
    set(prefersDark());
}

// The portal's preference where it states one, else the palette's lightness.
bool ColorScheme::prefersDark() const {
    if (portalPreference_ != 0)
        return portalPreference_ == 1;
    return QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
}

void ColorScheme::portalSettingChanged(const QString& group, const QString& key,
                                       const QDBusVariant& value) {
    if (group != appearance || key != colorSchemeKey)
        return;
    portalPreference_ = unwrap(value.variant());
    set(prefersDark());
}

bool ColorScheme::eventFilter(QObject* watched, QEvent* event) {
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange)
        set(prefersDark());
    return false;
}

void ColorScheme::set(bool dark) {
    if (dark == dark_)
        return;
    dark_ = dark;
    emit changed(dark);
}
