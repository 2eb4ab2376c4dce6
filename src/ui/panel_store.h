// SPDX-License-Identifier: MIT
#pragma once

#include "entry_list_model.h"

#include <QObject>
#include <QVariantMap>
#include <QtQml/qqmlregistration.h>

class HostsStore;
class QQmlEngine;
class QJSEngine;

// The panel's view of the one HostsStore: derived texts, the two lists, and the actions a view
// may take. Views never change the model any other way.
class PanelStore : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Store)
    QML_SINGLETON
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY changed)
    Q_PROPERTY(bool isDirty READ isDirty NOTIFY changed)
    Q_PROPERTY(bool isApplying READ isApplying NOTIFY isApplyingChanged)
    Q_PROPERTY(QString lastError READ lastError NOTIFY lastErrorChanged)
    Q_PROPERTY(bool hasError READ hasError NOTIFY lastErrorChanged)
    Q_PROPERTY(EntryListModel* customEntries READ customEntries CONSTANT)
    Q_PROPERTY(EntryListModel* systemEntries READ systemEntries CONSTANT)

public:
    // The app (or a test) hands over its store before any QML asks for this singleton.
    static void setStore(HostsStore* store);
    static PanelStore* create(QQmlEngine*, QJSEngine*);

    explicit PanelStore(HostsStore* store, QObject* parent = nullptr);

    QString subtitle() const { return subtitle_; }
    bool isDirty() const { return isDirty_; }
    bool isApplying() const;
    QString lastError() const;
    bool hasError() const;
    EntryListModel* customEntries() { return &custom_; }
    EntryListModel* systemEntries() { return &system_; }

    // {ip, hosts} for what Return would add, or an empty map when the text is not acceptable.
    Q_INVOKABLE QVariantMap preview(const QString& typed) const;
    // Adds what the text names; false when it does not parse or every name is taken.
    Q_INVOKABLE bool add(const QString& typed);
    Q_INVOKABLE void toggle(const QString& id);
    Q_INVOKABLE void remove(const QString& id);
    Q_INVOKABLE void apply();
    Q_INVOKABLE void load();
    // When the panel appears: pick up other programs' changes, unless that would drop edits.
    Q_INVOKABLE void reloadIfClean();
    Q_INVOKABLE void openHostsInEditor();
    Q_INVOKABLE void revealBackups();
    Q_INVOKABLE void quit();

signals:
    void changed();
    void isApplyingChanged();
    void lastErrorChanged();

private:
    // Several bindings read these after every edit; each edit computes them once.
    void refresh(bool isDirty);

    HostsStore* store_;
    QString subtitle_;
    bool isDirty_ = false;
    EntryListModel custom_;
    EntryListModel system_;
};
