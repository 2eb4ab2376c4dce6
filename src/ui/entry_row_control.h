// SPDX-License-Identifier: MIT
#pragma once

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

// The main control of an entry row. Qt Quick's accessibility has no named custom actions, so
// this item carries its own accessible interface: a button with the row's label, its "on"/"off"
// value and hint, and the actions press (toggle) and "Remove".
class EntryRowControl : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString label MEMBER label_ NOTIFY accessibleChanged)
    Q_PROPERTY(QString value MEMBER value_ NOTIFY accessibleChanged)
    Q_PROPERTY(QString hint MEMBER hint_ NOTIFY accessibleChanged)
    Q_PROPERTY(bool locked MEMBER locked_ NOTIFY accessibleChanged)

public:
    static inline const QString removeAction = QStringLiteral("Remove");

    explicit EntryRowControl(QQuickItem* parent = nullptr);

    QString label() const { return label_; }
    QString value() const { return value_; }
    QString hint() const { return hint_; }
    bool locked() const { return locked_; }

signals:
    void accessibleChanged();
    void toggleRequested();
    void removeRequested();

private:
    QString label_, value_, hint_;
    bool locked_ = false;
};
