// SPDX-License-Identifier: MIT
#include "desktop_bridge.h"

#include "desktop_actions.h"

DesktopBridge::DesktopBridge(QObject* parent)
    : QObject(parent)
    , reduceMotion_(DesktopActions::prefersReducedMotion())
    , dark_(scheme_.isDark()) {
    connect(&scheme_, &ColorScheme::changed, this, [this](bool dark) {
        dark_ = dark;
        emit darkChanged();
    });
}

void DesktopBridge::setReduceMotion(bool reduce) {
    if (reduceMotion_ == reduce)
        return;
    reduceMotion_ = reduce;
    emit reduceMotionChanged();
}

void DesktopBridge::setDark(bool dark) {
    scheme_.disconnect(this);
    if (dark_ == dark)
        return;
    dark_ = dark;
    emit darkChanged();
}
