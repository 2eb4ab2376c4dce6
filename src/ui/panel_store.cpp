// SPDX-License-Identifier: MIT
#include "panel_store.h"

#include "backups.h"
#include "desktop_actions.h"
#include "entry_row_text.h"
#include "hosts_store.h"
#include "typed_input.h"

#include <QCoreApplication>
#include <QDir>
#include <QQmlEngine>

using namespace pinecove;

namespace {

HostsStore* theStore = nullptr;

std::optional<ParsedInput> parseTyped(const QString& typed) {
    return parseTypedInput(typed.toStdString());
}

std::optional<Uuid> idFrom(const QString& text) {
    return Uuid::fromString(text.toStdString());
}

} // namespace

void PanelStore::setStore(HostsStore* store) {
    theStore = store;
}

PanelStore* PanelStore::create(QQmlEngine* engine, QJSEngine*) {
    Q_ASSERT(theStore);
    auto* panelStore = new PanelStore(theStore);
    QQmlEngine::setObjectOwnership(panelStore, QQmlEngine::JavaScriptOwnership);
    (void)engine;
    return panelStore;
}

PanelStore::PanelStore(HostsStore* store, QObject* parent)
    : QObject(parent)
    , store_(store)
    , custom_(store, EntryListModel::Kind::Custom)
    , system_(store, EntryListModel::Kind::System) {
    refresh(store_->isDirty());
    connect(store_, &HostsStore::dirtyChanged, this, &PanelStore::refresh);
    connect(store_, &HostsStore::isApplyingChanged, this, &PanelStore::isApplyingChanged);
    connect(store_, &HostsStore::lastErrorChanged, this, &PanelStore::lastErrorChanged);
}

void PanelStore::refresh(bool isDirty) {
    const int custom = store_->customOrder().size();
    subtitle_ = QString::fromStdString(
        panelSubtitle(custom, custom == 0 ? 0 : store_->activeCustomCount()));
    isDirty_ = isDirty;
    emit changed();
}

bool PanelStore::isApplying() const {
    return store_->isApplying();
}
QString PanelStore::lastError() const {
    return store_->lastErrorText();
}
bool PanelStore::hasError() const {
    return store_->hasError();
}

QVariantMap PanelStore::preview(const QString& typed) const {
    const auto parsed = parseTyped(typed);
    if (!parsed)
        return {};
    QStringList hosts;
    for (const std::string& host : parsed->hosts)
        hosts << QString::fromStdString(host);
    return {{QStringLiteral("ip"), QString::fromStdString(parsed->ip)},
            {QStringLiteral("hosts"), hosts}};
}

bool PanelStore::add(const QString& typed) {
    const auto parsed = parseTyped(typed);
    return parsed && store_->add(parsed->ip, parsed->hosts);
}

void PanelStore::toggle(const QString& id) {
    if (const auto uuid = idFrom(id))
        store_->toggle(*uuid);
}

void PanelStore::remove(const QString& id) {
    if (const auto uuid = idFrom(id))
        store_->remove(*uuid);
}

void PanelStore::apply() {
    store_->apply();
}
void PanelStore::load() {
    store_->load();
}

void PanelStore::reloadIfClean() {
    if (!isDirty_) // as of the store's last change, which is now
        store_->load();
}

void PanelStore::openHostsInEditor() {
    DesktopActions::openInTextEditor(QStringLiteral("/etc/hosts"));
}

void PanelStore::revealBackups() {
    const QString folder = Backups::defaultFolder();
    if (folder.isEmpty())
        return; // no place for backups on this system: nothing to show
    QDir().mkpath(folder);
    DesktopActions::revealFolder(folder);
}

void PanelStore::quit() {
    QCoreApplication::quit();
}
