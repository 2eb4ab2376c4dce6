// SPDX-License-Identifier: MIT
#pragma once

#include "hosts_fixture.h"

#include <QQuickItem>
#include <QQuickView>

// The panel on a store over a hosts file of the test's own, as the app draws it. The store is
// made before the engine, as in the app.
class PanelFixture {
public:
    explicit PanelFixture(const std::string& hostsText);
    HostsStore& store() { return *store_; }
    QQuickView& view() { return *view_; }
    QQuickItem* panel() const { return view_->rootObject(); }

private:
    HostsFixture hosts_;
    std::unique_ptr<HostsStore> store_;
    std::unique_ptr<QQuickView> view_;
};
