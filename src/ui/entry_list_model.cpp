// SPDX-License-Identifier: MIT
#include "entry_list_model.h"

#include "entry_row_text.h"
#include "hosts_store.h"

#include <algorithm>

using namespace pinecove;

EntryListModel::EntryListModel(HostsStore* store, Kind kind, QObject* parent)
    : QAbstractListModel(parent)
    , store_(store)
    , kind_(kind) {
    ids_ = currentIds();
    connect(store_,
            kind_ == Kind::Custom ? &HostsStore::customEntriesReset
                                  : &HostsStore::systemEntriesReset,
            this, &EntryListModel::reset);
    if (kind_ == Kind::System)
        return;
    connect(store_, &HostsStore::customEntryMoved, this, [this](int from, int to) {
        // Qt names the destination as the row before which the item lands, in the old numbering.
        beginMoveRows({}, from, from, {}, to > from ? to + 1 : to);
        const auto first = ids_.begin();
        if (to > from)
            std::rotate(first + from, first + from + 1, first + to + 1);
        else
            std::rotate(first + to, first + from, first + from + 1);
        endMoveRows();
    });
    connect(store_, &HostsStore::customEntryChanged, this,
            [this](int row) { emit dataChanged(index(row), index(row)); });
    connect(store_, &HostsStore::customEntryInserted, this, [this](int row) {
        beginInsertRows({}, row, row);
        ids_.insert(ids_.begin() + row, store_->customOrder().idAt(row));
        endInsertRows();
        emit countChanged();
    });
    connect(store_, &HostsStore::customEntryRemoved, this, [this](int row) {
        beginRemoveRows({}, row, row);
        ids_.erase(ids_.begin() + row);
        endRemoveRows();
        emit countChanged();
    });
}

std::vector<Uuid> EntryListModel::currentIds() const {
    std::vector<Uuid> ids;
    if (kind_ == Kind::Custom) {
        ids.reserve(static_cast<std::size_t>(store_->customOrder().size()));
        for (int i = 0; i < store_->customOrder().size(); ++i)
            ids.push_back(store_->customOrder().idAt(i));
    } else {
        for (const HostEntry& entry : store_->systemEntries())
            ids.push_back(entry.id());
    }
    return ids;
}

void EntryListModel::reset() {
    beginResetModel();
    ids_ = currentIds();
    endResetModel();
    emit countChanged();
}

int EntryListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(ids_.size());
}

QVariant EntryListModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const Uuid id = ids_[static_cast<std::size_t>(index.row())];
    const HostEntry* entry = store_->entries().find(id);
    if (!entry)
        return {};
    if (role == IdRole)
        return QString::fromStdString(id.toString());
    if (role == EnabledRole)
        return entry->isEnabled();
    if (role == SystemRole)
        return entry->isSystem();
    const EntryRowText text = entryRowText(*entry);
    auto str = [](const std::string& s) {
        return QString::fromStdString(s);
    };
    switch (role) {
    case Qt::DisplayRole:
    case TitleRole:
        return str(text.title);
    case BadgeRole:
        return text.badge ? str(*text.badge) : QString();
    case BadgeTooltipRole:
        return text.badgeTooltip ? str(*text.badgeTooltip) : QString();
    case AddressRole:
        return str(text.address);
    case AccessibleLabelRole:
        return str(text.accessibleLabel);
    case AccessibleValueRole:
        return str(text.accessibleValue);
    case AccessibleHintRole:
        return str(text.accessibleHint);
    default:
        return {};
    }
}

QHash<int, QByteArray> EntryListModel::roleNames() const {
    return {{IdRole, "entryId"},
            {TitleRole, "title"},
            {BadgeRole, "badge"},
            {BadgeTooltipRole, "badgeTooltip"},
            {AddressRole, "address"},
            {EnabledRole, "enabled"},
            {SystemRole, "system"},
            {AccessibleLabelRole, "accessibleLabel"},
            {AccessibleValueRole, "accessibleValue"},
            {AccessibleHintRole, "accessibleHint"}};
}
