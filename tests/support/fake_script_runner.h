// SPDX-License-Identifier: MIT
#pragma once

#include "script_runner.h"

#include <QString>
#include <string>
#include <vector>

// Stands in for the administrator runner. On success it writes the requested text to
// `hostsPath`, as the real helper writes /etc/hosts; otherwise it reports `outcome`.
class FakeScriptRunner : public ScriptRunner {
public:
    explicit FakeScriptRunner(QString hostsPath)
        : hostsPath_(std::move(hostsPath)) {}

    void run(const WriteRequest& request, std::function<void(Outcome)> done) override;
    // With `hold` set, runs wait for release().
    void release();

    Outcome outcome = Succeeded{};
    bool hold = false;
    std::vector<WriteRequest> requests; // every write it was asked for

private:
    void complete(std::function<void(Outcome)> done);

    QString hostsPath_;
    std::function<void(Outcome)> held_;
};
