// SPDX-License-Identifier: MIT
#include "tray_item.h"

#include "hosts_store.h"
#include "menu_bar_icon.h"
#include "panel_window.h"

#include <QCursor>

TrayItem::TrayItem(HostsStore& store, PanelWindow& panel)
    : store_(store) {
    connect(&store_, &HostsStore::dirtyChanged, this, &TrayItem::follow);
    connect(&icon_, &QSystemTrayIcon::activated, this,
            [this, &panel](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick)
                    panel.toggleAt(icon_.geometry().isValid() ? icon_.geometry()
                                                              : QRect(QCursor::pos(), QSize(1, 1)));
            });
    follow(store_.isDirty());
}

// `dirty` is the store's dirty test, made afresh for every change it announces.
void TrayItem::follow(bool dirty) {
    if (shownDirty_ == dirty)
        return;
    shownDirty_ = dirty;
    icon_.setIcon(dirty ? MenuBarIcon::dirty() : MenuBarIcon::normal());
    icon_.setToolTip(dirty ? QStringLiteral("Pinecove, unsaved changes")
                           : QStringLiteral("Pinecove"));
}
