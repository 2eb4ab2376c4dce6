// SPDX-License-Identifier: MIT
// pinecove-write-hosts: the only part of Pinecove that runs as root on Linux. It takes data,
// never code: the text the app loaded and the new text, on standard input, and replaces
// /etc/hosts with the new text while the file still holds the loaded one. Any other input is
// refused with one line on standard error.

#include "replace_hosts.h"

#include <cstdio>
#include <unistd.h>

int main(int argc, char** argv) {
    HelperRequest request;
    auto refusal = readRequest(argc, argv, STDIN_FILENO, request);
    if (!refusal)
        refusal = replaceHostsFile("/etc", request);
    if (refusal) {
        std::fprintf(stderr, "%s\n", refusal->message.c_str());
        return refusal->status;
    }
    flushNameCaches();
    return 0;
}
