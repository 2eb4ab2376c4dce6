// SPDX-License-Identifier: MIT
#include "privileged_writer.h"

#include "helper_protocol.h"

#include <QTimer>

namespace PrivilegedWriter {

namespace {

struct OutcomeToFailure {
    std::optional<WriteFailure> operator()(const ScriptRunner::Succeeded&) const {
        return std::nullopt;
    }
    std::optional<WriteFailure> operator()(const ScriptRunner::Failed& f) const {
        return WriteFailure{f.message, true};
    }
    std::optional<WriteFailure> operator()(const ScriptRunner::NotStarted& f) const {
        return WriteFailure{f.message, false};
    }
};

} // namespace

void writeHostsFile(const std::string& text, const std::string& expected, ScriptRunner& runner,
                    std::function<void(std::optional<WriteFailure>)> done) {
    if (HelperProtocol::isTooLarge(text)) {
        // Completed from the event loop, like every other outcome, so callers see one shape.
        QTimer::singleShot(0, [done = std::move(done)] {
            done(WriteFailure{std::string(HelperProtocol::tooLargeMessage), true});
        });
        return;
    }
    runner.run(WriteRequest{text, expected},
               [done = std::move(done)](ScriptRunner::Outcome outcome) {
                   done(std::visit(OutcomeToFailure{}, outcome));
               });
}

} // namespace PrivilegedWriter
