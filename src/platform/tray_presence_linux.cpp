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

const QString watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");

// A property of the StatusNotifierWatcher, or nothing when no watcher answers.
QVariant watcherProperty(const QString& name) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !bus.interface()->isServiceRegistered(watcherService))
        return {};
    QDBusMessage get = QDBusMessage::createMethodCall(
        watcherService, QStringLiteral("/StatusNotifierWatcher"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    get << watcherService << name;
    const QDBusMessage reply = bus.call(get, QDBus::Block, 500);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty())
        return {};
    return reply.arguments().front().value<QDBusVariant>().variant();
}

// A StatusNotifierWatcher with a host that shows items (KDE, waybar, GNOME's extension).
bool statusNotifierHost() {
    return watcherProperty(QStringLiteral("IsStatusNotifierHostRegistered")).toBool();
}

// The X11 connection; none on another platform, or on the offscreen one with no X server.
xcb_connection_t* xcbConnection() {
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

// The selection owner of _NET_SYSTEM_TRAY_S0 on the X11 connection, or XCB_NONE.
xcb_window_t xembedTrayWindow() {
    xcb_connection_t* connection = xcbConnection();
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
    // Entries are a bus name, or a bus name and a path; Qt registers from a connection of its
    // own, so the owner's process id is what tells our item from others.
    const QStringList items =
        watcherProperty(QStringLiteral("RegisteredStatusNotifierItems")).toStringList();
    QDBusConnectionInterface* bus = QDBusConnection::sessionBus().interface();
    const auto pid = static_cast<uint>(QCoreApplication::applicationPid());
    return std::any_of(items.begin(), items.end(), [&](const QString& item) {
        const QDBusReply<uint> owner = bus->servicePid(item.section(QLatin1Char('/'), 0, 0));
        return owner.isValid() && owner.value() == pid;
    });
}

bool embeddedInTray(WId icon) {
    xcb_connection_t* connection = xcbConnection();
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
