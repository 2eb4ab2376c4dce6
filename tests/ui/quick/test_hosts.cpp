// SPDX-License-Identifier: MIT
#include "test_hosts.h"

#include "fake_script_runner.h"
#include "hosts_store.h"

#include <QFile>

namespace {

HostsStore* theStore = nullptr;
FakeScriptRunner* theRunner = nullptr;
QString thePath;

void writeFile(const QString& text) {
    QFile file(thePath);
    file.open(QIODevice::WriteOnly | QIODevice::Truncate);
    file.write(text.toUtf8());
}

} // namespace

void TestHosts::setUp(HostsStore* store, FakeScriptRunner* runner, const QString& hostsPath) {
    theStore = store;
    theRunner = runner;
    thePath = hostsPath;
}

void TestHosts::reset(const QString& text) {
    writeFile(text);
    theRunner->outcome = ScriptRunner::Succeeded{};
    theRunner->hold = false;
    theRunner->requests.clear();
    theStore->load();
}

void TestHosts::writeBehind(const QString& text) {
    writeFile(text);
}

QString TestHosts::fileText() const {
    QFile file(thePath);
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll());
}

void TestHosts::failWrites(const QString& message) {
    theRunner->outcome = ScriptRunner::Failed{message.toStdString()};
}
void TestHosts::holdWrites(bool hold) {
    theRunner->hold = hold;
}
void TestHosts::releaseWrite() {
    theRunner->release();
}
int TestHosts::writesRequested() const {
    return static_cast<int>(theRunner->requests.size());
}
