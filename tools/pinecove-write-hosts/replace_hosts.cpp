// SPDX-License-Identifier: MIT
#include "replace_hosts.h"

#include "descriptor_io.h"
#include "write_script.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::optional<std::string> readFile(const std::string& path) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return std::nullopt;
    std::string text;
    const bool read = pinecove::readToEnd(fd, text, maxExpectedBytes);
    ::close(fd);
    if (!read)
        return std::nullopt;
    return text;
}

HelperRefusal writeFailure(const char* step) {
    const int error = errno; // before any allocation below can change it
    return {HelperStatus::writeFailed, std::string("Could not write the hosts file (") + step +
                                           ": " + std::strerror(error) + ")."};
}

} // namespace

std::optional<HelperRefusal> replaceHostsFile(const std::string& etc,
                                              const HelperRequest& request) {
    const std::string hosts = etc + "/hosts";
    const auto current = readFile(hosts);
    if (!current || *current != request.expected)
        return HelperRefusal{HelperStatus::changedOnDisk,
                             std::string(PrivilegedWriter::conflictMessage)};

    std::string temporary = etc + "/hosts.pinecove.XXXXXX";
    const int fd = ::mkostemp(temporary.data(), O_CLOEXEC);
    if (fd < 0)
        return writeFailure("create");
    auto fail = [&](const char* step) {
        const HelperRefusal refusal = writeFailure(step);
        ::close(fd);
        ::unlink(temporary.c_str());
        return refusal;
    };
    if (::fchmod(fd, 0644) != 0)
        return fail("chmod");
    if (::fchown(fd, 0, 0) != 0)
        return fail("chown");
    if (!pinecove::writeAll(fd, request.text))
        return fail("write");
    if (::fsync(fd) != 0)
        return fail("sync");
    if (::rename(temporary.c_str(), hosts.c_str()) != 0)
        return fail("rename");
    ::close(fd);
    const int folder = ::open(etc.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder >= 0) {
        ::fsync(folder); // the rename itself reaches the disk
        ::close(folder);
    }
    return std::nullopt;
}

void flushNameCaches() {
    const char* const resolvectl[] = {"/usr/bin/resolvectl", "flush-caches", nullptr};
    const char* const nscd[] = {"/usr/sbin/nscd", "--invalidate=hosts", nullptr};
    const char* const empty[] = {nullptr};
    for (const char* const* command : {resolvectl, nscd}) {
        if (::access(command[0], X_OK) != 0)
            continue;
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        pid_t pid = 0;
        if (posix_spawn(&pid, command[0], &actions, nullptr, const_cast<char* const*>(command),
                        const_cast<char* const*>(empty)) == 0)
            ::waitpid(pid, nullptr, 0);
        posix_spawn_file_actions_destroy(&actions);
    }
}
