// SPDX-License-Identifier: MIT
// pinecove-inspect: shows how Pinecove reads a hosts file and what it would write back, so that
// users, tests and benchmarks can audit the model without the app.

#include "document_json.h"
#include "helper_protocol.h"
#include "helper_request.h"
#include "hosts_edits.h"
#include "read_text.h"
#include "typed_input.h"
#include "utf8.h"
#include "write_script.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace pinecove;

constexpr int exitFailure = 1;
constexpr int exitUsage = 2;

constexpr std::string_view usage =
    "Usage: pinecove-inspect FILE               how Pinecove reads FILE, as JSON\n"
    "       pinecove-inspect --serialize FILE   the text Pinecove would write for FILE\n"
    "       pinecove-inspect --toggle-all FILE  the same, after switching every custom entry\n"
    "       pinecove-inspect --input TEXT       how Pinecove reads TEXT typed into the panel\n"
    "       pinecove-inspect --script FILE      the root script that applying FILE would run here\n"
    "       pinecove-inspect --applescript FILE the macOS administrator command for it\n"
    "FILE may be - for standard input.\n";

void fail(const std::string& message) {
    std::fprintf(stderr, "pinecove-inspect: %s\n", message.c_str());
}

int writeOut(std::string_view text) {
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() ||
        std::fflush(stdout) != 0) {
        const int error = errno; // before the message's allocations can change it
        fail(std::string("cannot write standard output: ") + std::strerror(error));
        return exitFailure;
    }
    return 0;
}

int usageError() {
    std::fputs(usage.data(), stderr);
    return exitUsage;
}

std::optional<HostsDocument> loadFile(const std::string& path) {
    inspect::ReadResult read = inspect::readUtf8Text(path);
    if (!read.text) {
        fail(read.error);
        return std::nullopt;
    }
    return parseHostsText(std::move(*read.text));
}

int printInput(std::string_view text) {
    if (!isValidUtf8(text)) {
        fail("the input text is not valid UTF-8");
        return exitFailure;
    }
    // Exactly what the panel would add for this text.
    return writeOut(inspect::inputJson(parseTypedInput(text)) + "\n");
}

// macOS runs the nine-line script as root; Linux runs the data-only helper.
#if defined(__APPLE__)
constexpr bool runsScriptAsRoot = true;
#else
constexpr bool runsScriptAsRoot = false;
#endif

// Exactly what an apply of FILE's text would hand to the administrator runner.
int printWriteCommand(HostsDocument& document, bool appleScript) {
    const std::string text = serialized(document);
    if (HelperProtocol::isTooLarge(text)) {
        fail(std::string(HelperProtocol::tooLargeMessage));
        return exitFailure;
    }
    const std::string delimiter = PrivilegedWriter::newDelimiter();
    if (appleScript || runsScriptAsRoot) {
        const std::string script = PrivilegedWriter::writeScript(text, delimiter);
        return writeOut(appleScript ? PrivilegedWriter::appleScriptCommand(script) : script);
    }
    // Linux runs no script as root: the helper gets the loaded text and the new one as data.
    const std::string& loaded = *document.text;
    std::string command = "# As root: " PINECOVE_WRITE_HELPER;
    for (const std::string& argument : requestArguments(loaded.size(), text.size()))
        command += " " + argument;
    return writeOut(command + "\n# Standard input: the file as loaded (" +
                    std::to_string(loaded.size()) + " bytes), then the new text:\n" + text);
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> args(argv + 1, argv + argc);
    if (args.size() == 1 && (args[0] == "--help" || args[0] == "-h"))
        return writeOut(usage);

    if (args.size() == 1 && (args[0] == "-" || !args[0].starts_with("-"))) {
        auto document = loadFile(args[0]);
        return document ? writeOut(inspect::documentJson(*document) + "\n") : exitFailure;
    }
    if (args.size() != 2)
        return usageError();

    const std::string& option = args[0];
    const std::string& value = args[1];
    if (option == "--input")
        return printInput(value);
    if (option == "--script" || option == "--applescript") {
        auto document = loadFile(value);
        return document ? printWriteCommand(*document, option == "--applescript") : exitFailure;
    }
    if (option == "--serialize" || option == "--toggle-all") {
        auto document = loadFile(value);
        if (!document)
            return exitFailure;
        if (option == "--toggle-all") {
            const std::vector<Uuid> ids = document->order;
            for (const Uuid& id : ids)
                toggleEntry(*document, id);
        }
        // Leaving through exit() skips freeing a document of a few hundred thousand entries one by
        // one; the system reclaims the memory at once.
        std::exit(writeOut(serialized(*document)));
    }
    return usageError();
}
