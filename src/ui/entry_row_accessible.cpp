// SPDX-License-Identifier: MIT
#include "entry_row_accessible.h"

#include "entry_row_control.h"

#include <QQuickWindow>

namespace {

QAccessibleInterface* rowFactory(const QString&, QObject* object) {
    if (auto* control = qobject_cast<EntryRowControl*>(object))
        return new EntryRowAccessible(control);
    return nullptr;
}

// A row scrolled out of the list still exists (the list keeps a few beyond its edges), and a
// screen reader must not read it as on screen.
bool scrolledOutOfView(const QQuickItem* row) {
    const QRectF bounds(0, 0, row->width(), row->height());
    for (const QQuickItem* item = row->parentItem(); item; item = item->parentItem()) {
        if (!item->clip())
            continue;
        const QRectF inItem = row->mapRectToItem(item, bounds);
        if (!inItem.intersects(QRectF(0, 0, item->width(), item->height())))
            return true;
    }
    return false;
}

} // namespace

EntryRowAccessible::EntryRowAccessible(EntryRowControl* control)
    : QAccessibleObject(control) {}

void EntryRowAccessible::installFactory() {
    static const bool installed = [] {
        QAccessible::installFactory(rowFactory);
        return true;
    }();
    (void)installed;
}

EntryRowControl* EntryRowAccessible::control() const {
    return static_cast<EntryRowControl*>(object());
}

QAccessibleInterface* EntryRowAccessible::parent() const {
    for (QQuickItem* item = control()->parentItem(); item; item = item->parentItem())
        if (QAccessibleInterface* iface = QAccessible::queryAccessibleInterface(item))
            return iface;
    return control()->window() ? QAccessible::queryAccessibleInterface(control()->window())
                               : nullptr;
}

QAccessible::State EntryRowAccessible::state() const {
    QAccessible::State state;
    state.focusable = true;
    state.checkable = true;
    state.checked = control()->value() == QLatin1String("on");
    state.focused = control()->hasActiveFocus();
    state.disabled = control()->locked();
    state.invisible = !control()->isVisible();
    state.offscreen = scrolledOutOfView(control());
    return state;
}

QString EntryRowAccessible::text(QAccessible::Text t) const {
    switch (t) {
    case QAccessible::Name:
        return control()->label();
    case QAccessible::Value:
        return control()->value();
    case QAccessible::Description:
        return control()->hint();
    default:
        return {};
    }
}

QRect EntryRowAccessible::rect() const {
    const QRectF scene =
        control()->mapRectToScene(QRectF(0, 0, control()->width(), control()->height()));
    QWindow* w = control()->window();
    return w ? QRect(w->mapToGlobal(scene.topLeft().toPoint()), scene.size().toSize())
             : scene.toRect();
}

QWindow* EntryRowAccessible::window() const {
    return control()->window();
}

void* EntryRowAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface*>(this);
    return QAccessibleObject::interface_cast(type);
}

QStringList EntryRowAccessible::actionNames() const {
    // A locked row still names Remove; doing it changes nothing, as with the store's own lock.
    return {QAccessibleActionInterface::pressAction(), EntryRowControl::removeAction};
}

void EntryRowAccessible::doAction(const QString& actionName) {
    if (actionName == QAccessibleActionInterface::pressAction()) {
        if (!control()->locked())
            emit control()->toggleRequested();
    } else if (actionName == EntryRowControl::removeAction) {
        emit control()->removeRequested();
    }
}
