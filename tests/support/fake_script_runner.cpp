// SPDX-License-Identifier: MIT
#include "fake_script_runner.h"

#include <QFile>
#include <QTimer>

void FakeScriptRunner::run(const WriteRequest& request, std::function<void(Outcome)> done) {
    requests.push_back(request);
    if (hold) {
        held_ = std::move(done);
        return;
    }
    QTimer::singleShot(0, [this, done = std::move(done)]() mutable { complete(std::move(done)); });
}

void FakeScriptRunner::release() {
    if (held_)
        complete(std::exchange(held_, nullptr));
}

void FakeScriptRunner::complete(std::function<void(Outcome)> done) {
    if (std::holds_alternative<Succeeded>(outcome)) {
        QFile file(hostsPath_);
        file.open(QIODevice::WriteOnly | QIODevice::Truncate);
        const std::string& text = requests.back().text;
        file.write(text.data(), static_cast<qint64>(text.size()));
    }
    done(outcome);
}
