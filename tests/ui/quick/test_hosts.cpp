// SPDX-License-Identifier: MIT
#include "test_hosts.h"

namespace {
HostsFixture* theHosts = nullptr;
HostsStore* theStore = nullptr;
} // namespace

void TestHosts::setUp(HostsFixture* hosts, HostsStore* store) {
    theHosts = hosts;
    theStore = store;
}

void TestHosts::reset(const QString& text) {
    theHosts->write(text.toStdString());
    theHosts->runner->outcome = ScriptRunner::Succeeded{};
    theHosts->runner->hold = false;
    theHosts->runner->requests.clear();
    theStore->load();
}

void TestHosts::writeBehind(const QString& text) {
    theHosts->write(text.toStdString());
}

QString TestHosts::fileText() const {
    return QString::fromStdString(theHosts->read());
}

void TestHosts::failWrites(const QString& message) {
    theHosts->runner->outcome = ScriptRunner::Failed{message.toStdString()};
}

void TestHosts::holdWrites(bool hold) {
    theHosts->runner->hold = hold;
}

void TestHosts::releaseWrite() {
    theHosts->runner->release();
}

int TestHosts::writesRequested() const {
    return static_cast<int>(theHosts->runner->requests.size());
}
