#include "fake_script_runner.h"

#include <QFile>
#include <QTimer>

std::string FakeScriptRunner::heredocBody(const std::string& script) {
    const std::size_t open = script.find("<<'") + 3;
    const std::size_t close = script.find("'\n", open);
    const std::string delimiter = script.substr(open, close - open);
    const std::size_t body = close + 2;
    return script.substr(body, script.rfind(delimiter) - body);
}

void FakeScriptRunner::run(const std::string& script, std::function<void(Outcome)> done) {
    scripts.push_back(script);
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
        const std::string body = heredocBody(scripts.back());
        file.write(body.data(), static_cast<qint64>(body.size()));
    }
    done(outcome);
}
