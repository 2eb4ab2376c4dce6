// SPDX-License-Identifier: MIT
#pragma once

#include "uuid.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>
#include <vector>

class HostsStore;

// Rows of the panel's lists, read straight from the store. The custom list follows the store's
// fine-grained signals (moves, inserts, removes), so rows animate and a 200,000-entry file never
// resets the view on an edit; the system list is small and resets on load.
class EntryListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Lists come from the Store singleton")
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum class Kind { Custom, System };
    enum Role {
        IdRole = Qt::UserRole + 1,
        TitleRole,
        BadgeRole,
        BadgeTooltipRole,
        AddressRole,
        EnabledRole,
        SystemRole,
        AccessibleLabelRole,
        AccessibleValueRole,
        AccessibleHintRole,
    };

    EntryListModel(HostsStore* store, Kind kind, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
    int count() const { return rowCount(); }

signals:
    void countChanged();

private:
    void reset();
    std::vector<pinecove::Uuid> currentIds() const;

    HostsStore* store_;
    Kind kind_;
    // The rows as the view knows them. The store changes first; this follows between each
    // begin/end pair, as the model contract requires.
    std::vector<pinecove::Uuid> ids_;
};
