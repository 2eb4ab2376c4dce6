// SPDX-License-Identifier: MIT
#include "desktop_bridge.h"

#include "desktop_actions.h"

DesktopBridge::DesktopBridge(QObject* parent)
    : QObject(parent)
    , reduceMotion_(DesktopActions::prefersReducedMotion()) {}

void DesktopBridge::setReduceMotion(bool reduce) {
    if (reduceMotion_ == reduce)
        return;
    reduceMotion_ = reduce;
    emit reduceMotionChanged();
}

void DesktopBridge::setAppearance(const QString& appearance) {
    if (appearance_ == appearance)
        return;
    appearance_ = appearance;
    emit appearanceChanged();
}
