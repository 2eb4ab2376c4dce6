// SPDX-License-Identifier: MIT
#include "tray_presence.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <map>
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

// The selection owner of _NET_SYSTEM_TRAY_S0 on the X11 connection, or XCB_NONE.
xcb_window_t xembedTrayWindow() {
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t* connection = x11 ? x11->connection() : nullptr;
    if (!connection)
        return XCB_NONE;
    const char* name = "_NET_SYSTEM_TRAY_S0";
    xcb_intern_atom_reply_t* atom = xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 1, static_cast<uint16_t>(std::strlen(name)), name),
        nullptr);
    xcb_window_t window = XCB_NONE;
    if (atom && atom->atom != XCB_ATOM_NONE) {
        xcb_get_selection_owner_reply_t* owner = xcb_get_selection_owner_reply(
            connection, xcb_get_selection_owner(connection, atom->atom), nullptr);
        if (owner)
            window = owner->owner;
        std::free(owner);
    }
    std::free(atom);
    return window;
}

// An X11 system tray: the owner of the _NET_SYSTEM_TRAY_S0 selection.
bool xembedTray() {
    return xembedTrayWindow() != XCB_NONE;
}

} // namespace

bool statusNotifierItemShown() {
    if (!statusNotifierHost())
        return false;
    QDBusConnection bus = QDBusConnection::sessionBus();
    const QString watcher = QStringLiteral("org.kde.StatusNotifierWatcher");
    QDBusMessage get = QDBusMessage::createMethodCall(
        watcher, QStringLiteral("/StatusNotifierWatcher"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    get << watcher << QStringLiteral("RegisteredStatusNotifierItems");
    const QDBusMessage reply = bus.call(get, QDBus::Block, 500);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty())
        return false;
    // Entries are a bus name, or a bus name and a path; Qt registers from a connection of its
    // own, so the owner's process id is what tells our item from others.
    const QStringList items =
        reply.arguments().front().value<QDBusVariant>().variant().toStringList();
    const auto pid = static_cast<uint>(QCoreApplication::applicationPid());
    for (const QString& item : items) {
        const QString service = item.section(QLatin1Char('/'), 0, 0);
        const QDBusReply<uint> owner = bus.interface()->servicePid(service);
        if (owner.isValid() && owner.value() == pid)
            return true;
    }
    return false;
}

bool embeddedInTray(WId icon) {
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t* connection = x11 ? x11->connection() : nullptr;
    if (!connection || icon == 0)
        return false;
    xcb_query_tree_reply_t* tree = xcb_query_tree_reply(
        connection, xcb_query_tree(connection, static_cast<xcb_window_t>(icon)), nullptr);
    const bool embedded = tree && tree->parent != tree->root && tree->parent != XCB_NONE;
    std::free(tree);
    return embedded;
}

std::optional<QColor> xembedTrayBackground() {
    const xcb_window_t tray = xembedTrayWindow();
    QScreen* screen = QGuiApplication::primaryScreen();
    if (tray == XCB_NONE || !screen)
        return std::nullopt;
    const QImage image = screen->grabWindow(tray).toImage();
    if (image.isNull())
        return std::nullopt;
    // The tray's own colour is what most of it shows; its icons cover little of it.
    std::map<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y) | 0xff000000u];
    if (counts.empty())
        return std::nullopt;
    const auto most =
        std::max_element(counts.begin(), counts.end(),
                         [](const auto& a, const auto& b) { return a.second < b.second; });
    return QColor::fromRgb(most->first);
}

Kind current() {
    if (statusNotifierHost())
        return Kind::StatusNotifier;
    return xembedTray() ? Kind::XEmbed : Kind::None;
}

} // namespace TrayPresence
