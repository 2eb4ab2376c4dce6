// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleObject>

class EntryRowControl;

// The accessible face of an EntryRowControl (see there).
class EntryRowAccessible : public QAccessibleObject, public QAccessibleActionInterface {
public:
    explicit EntryRowAccessible(EntryRowControl* control);

    // Hands out this interface for every EntryRowControl; installed once.
    static void installFactory();

    QAccessibleInterface* parent() const override;
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::Button; }
    QAccessible::State state() const override;
    QString text(QAccessible::Text t) const override;
    QRect rect() const override;
    QWindow* window() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString& actionName) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    EntryRowControl* control() const;
};
