// SPDX-License-Identifier: MIT
#include "tray_item.h"

#include "color_scheme.h"
#include "hosts_store.h"
#include "menu_bar_icon.h"
#include "panel.h"

#include <QApplication>
#include <QCoreApplication>
#include <QCursor>
#include <QWidget>
#include <algorithm>

TrayItem::TrayItem(HostsStore& store, Panel& panel, ColorScheme& scheme, TrayPresence::Kind kind)
    : store_(store)
    , scheme_(scheme)
    , kind_(kind) {
    if (kind_ == TrayPresence::Kind::XEmbed)
        trayBackground_ = TrayPresence::xembedTrayBackground();
    connect(&store_, &HostsStore::dirtyChanged, this, [this](bool dirty) {
        dirty_ = dirty;
        refresh();
    });
    connect(&scheme_, &ColorScheme::changed, this, &TrayItem::refresh);
    connect(&icon_, &QSystemTrayIcon::activated, this,
            [this, &panel](QSystemTrayIcon::ActivationReason reason) {
                // A double click reports a click first: answering both would open and close.
                if (reason == QSystemTrayIcon::Trigger)
                    panel.toggleAt(anchor());
            });
    // The same actions as the panel's own menu, for hosts that show items through their menu.
    menu_.addAction(QStringLiteral("Open Pinecove"), this,
                    [this, &panel] { panel.present(anchor()); });
    menu_.addAction(QStringLiteral("Refresh"), this, [this] { store_.load(); });
    menu_.addSeparator();
    menu_.addAction(QStringLiteral("Quit Pinecove"), qApp, &QCoreApplication::quit);
    icon_.setContextMenu(&menu_);
    dirty_ = store_.isDirty();
    refresh();
}

QRect TrayItem::anchor() const {
    return icon_.geometry().isValid() ? icon_.geometry() : QRect(QCursor::pos(), QSize(1, 1));
}

bool TrayItem::isShown() const {
    if (kind_ == TrayPresence::Kind::StatusNotifier)
        return TrayPresence::statusNotifierItemShown();
    // Qt's X11 tray icon is a small top-level widget of its own, which the tray reparents.
    const QWidgetList widgets = QApplication::topLevelWidgets();
    return std::any_of(widgets.begin(), widgets.end(), [](const QWidget* widget) {
        return widget->inherits("QSystemTrayIconSys") &&
               TrayPresence::embeddedInTray(widget->winId());
    });
}

// The store's dirty test is made afresh for every change it announces.
void TrayItem::refresh() {
    const QColor colour = trayBackground_ ? MenuBarIcon::foregroundOn(*trayBackground_)
                                          : MenuBarIcon::foreground(scheme_.isDark());
    const std::pair state{dirty_, colour};
    if (shown_ == state)
        return;
    shown_ = state;
    const QString name =
        QLatin1String(state.first ? MenuBarIcon::symbolicUnsavedName : MenuBarIcon::symbolicName);
    const bool byName = kind_ == TrayPresence::Kind::StatusNotifier && QIcon::hasThemeIcon(name);
    icon_.setIcon(byName ? QIcon::fromTheme(name) : MenuBarIcon::icon(state.first, colour));
    icon_.setToolTip(state.first ? QStringLiteral("Pinecove, unsaved changes")
                                 : QStringLiteral("Pinecove"));
}
