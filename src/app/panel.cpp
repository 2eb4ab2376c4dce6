// SPDX-License-Identifier: MIT
#include "panel.h"

#include <QQmlError>
#include <QStringList>

namespace {

// Later, not now: the style may change while the old window is still delivering an event.
void hideAndDeleteLater(PanelWindow* window) {
    window->hide();
    window->deleteLater();
}

} // namespace

Panel::Panel(HostsStore& store, PanelWindow::Style style)
    : store_(store)
    , window_(new PanelWindow(store, style), &hideAndDeleteLater) {}

void Panel::setStyle(PanelWindow::Style style) {
    if (style == window_->style())
        return;
    window_.reset(new PanelWindow(store_, style));
    window_->setCloseQuits(closeQuits_);
}

QString Panel::loadError() const {
    if (window_->status() != QQuickView::Error)
        return {};
    QStringList messages;
    for (const QQmlError& error : window_->errors())
        messages << error.toString();
    return messages.join(QLatin1Char('\n'));
}

void Panel::setCloseQuits(bool quits) {
    closeQuits_ = quits;
    window_->setCloseQuits(quits);
}
