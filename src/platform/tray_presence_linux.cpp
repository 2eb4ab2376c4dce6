// SPDX-License-Identifier: MIT
#include "tray_presence.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QGuiApplication>
#include <cstdlib>
#include <cstring>
#include <xcb/xcb.h>

namespace TrayPresence {

namespace {

// A StatusNotifierWatcher with a host that shows items (KDE, waybar, GNOME's extension).
bool statusNotifierHost() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    const QString watcher = QStringLiteral("org.kde.StatusNotifierWatcher");
    if (!bus.isConnected() || !bus.interface()->isServiceRegistered(watcher))
        return false;
    QDBusMessage get = QDBusMessage::createMethodCall(
        watcher, QStringLiteral("/StatusNotifierWatcher"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    get << watcher << QStringLiteral("IsStatusNotifierHostRegistered");
    const QDBusMessage reply = bus.call(get, QDBus::Block, 500);
    return reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty() &&
           reply.arguments().front().value<QDBusVariant>().variant().toBool();
}

// An X11 system tray: the owner of the _NET_SYSTEM_TRAY_S0 selection.
bool xembedTray() {
    // The offscreen platform answers as an X11 application too, with no connection when no X
    // server runs.
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t* connection = x11 ? x11->connection() : nullptr;
    if (!connection)
        return false;
    const char* name = "_NET_SYSTEM_TRAY_S0";
    xcb_intern_atom_reply_t* atom = xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 1, static_cast<uint16_t>(std::strlen(name)), name),
        nullptr);
    bool owned = false;
    if (atom && atom->atom != XCB_ATOM_NONE) {
        xcb_get_selection_owner_reply_t* owner = xcb_get_selection_owner_reply(
            connection, xcb_get_selection_owner(connection, atom->atom), nullptr);
        owned = owner && owner->owner != XCB_NONE;
        std::free(owner);
    }
    std::free(atom);
    return owned;
}

} // namespace

Kind current() {
    if (statusNotifierHost())
        return Kind::StatusNotifier;
    return xembedTray() ? Kind::XEmbed : Kind::None;
}

} // namespace TrayPresence
