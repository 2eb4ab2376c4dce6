#pragma once

#include "script_runner.h"

#include <QString>
#include <string>
#include <vector>

// Stands in for the administrator runner. On success it writes the script's here-document body
// to `hostsPath`, as the real script writes /etc/hosts; otherwise it reports `outcome`.
class FakeScriptRunner : public ScriptRunner {
public:
    explicit FakeScriptRunner(QString hostsPath)
        : hostsPath_(std::move(hostsPath)) {}

    void run(const std::string& script, std::function<void(Outcome)> done) override;
    // With `hold` set, runs wait for release().
    void release();

    Outcome outcome = Succeeded{};
    bool hold = false;
    std::vector<std::string> scripts; // every script it was asked to run

    static std::string heredocBody(const std::string& script);

private:
    void complete(std::function<void(Outcome)> done);

    QString hostsPath_;
    std::function<void(Outcome)> held_;
};
