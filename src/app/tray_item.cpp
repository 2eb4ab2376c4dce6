// SPDX-License-Identifier: MIT
#include "tray_item.h"

#include "color_scheme.h"
#include "hosts_store.h"
#include "menu_bar_icon.h"
#include "panel_window.h"

#include <QCoreApplication>
#include <QCursor>

TrayItem::TrayItem(HostsStore& store, PanelWindow& panel, ColorScheme& scheme)
    : store_(store)
    , scheme_(scheme) {
    connect(&store_, &HostsStore::dirtyChanged, this, [this](bool dirty) {
        dirty_ = dirty;
        refresh();
    });
    connect(&scheme_, &ColorScheme::changed, this, &TrayItem::refresh);
    connect(&icon_, &QSystemTrayIcon::activated, this,
            [this, &panel](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick)
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

// The store's dirty test is made afresh for every change it announces.
void TrayItem::refresh() {
    const std::pair state{dirty_, scheme_.isDark()};
    if (shown_ == state)
        return;
    shown_ = state;
    icon_.setIcon(MenuBarIcon::icon(state.first, state.second));
    icon_.setToolTip(state.first ? QStringLiteral("Pinecove, unsaved changes")
                                 : QStringLiteral("Pinecove"));
}
