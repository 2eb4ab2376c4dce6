// SPDX-License-Identifier: MIT
#include "replace_hosts.h"

#include "descriptor_io.h"
#include "helper_protocol.h"

#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::optional<std::string> readFile(const std::string& path) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return std::nullopt;
    std::string text;
    const bool read = pinecove::readToEnd(fd, text, HelperProtocol::maxExpectedBytes);
    ::close(fd);
    if (!read)
        return std::nullopt;
    return text;
}

// Closed, and so unlocked, on every way out.
struct Descriptor {
    explicit Descriptor(int descriptor)
        : fd(descriptor) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (fd >= 0)
            ::close(fd);
    }
    const int fd;
};

constexpr std::string_view temporaryPrefix = "hosts.pinecove.";
constexpr std::size_t temporaryRandomLength = 6; // mkostemp's XXXXXX

// Temporary files of helpers that were killed mid-write. Called under the lock, so no helper is
// writing one; only names exactly of the form the helper makes are touched.
void removeLeftovers(const std::string& etc) {
    DIR* folder = ::opendir(etc.c_str());
    if (!folder)
        return;
    while (const dirent* entry = ::readdir(folder)) {
        const std::string_view name = entry->d_name;
        if (name.size() == temporaryPrefix.size() + temporaryRandomLength &&
            name.starts_with(temporaryPrefix))
            ::unlinkat(::dirfd(folder), entry->d_name, 0);
    }
    ::closedir(folder);
}

HelperRefusal writeFailure(const char* step) {
    const int error = errno; // before any allocation below can change it
    return {HelperProtocol::Status::writeFailed, std::string("Could not write the hosts file (") +
                                                     step + ": " + std::strerror(error) + ")."};
}

} // namespace

std::optional<HelperRefusal> replaceHostsFile(const std::string& etc,
                                              const HelperRequest& request) {
    // Held from the check to the rename, so two helpers never both find the text they expect
    // and then replace each other's change. Its own file, never replaced (a lock on /etc/hosts
    // would stay on the file a rename just replaced), opened by root alone (no user can hold
    // it); released on every return, and by the kernel if the helper dies.
    const std::string lockPath = etc + "/" + std::string(lockFileName);
    const Descriptor lock{
        ::open(lockPath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600)};
    if (lock.fd < 0)
        return writeFailure("lock");
    int locked = 0;
    do
        locked = ::flock(lock.fd, LOCK_EX);
    while (locked != 0 && errno == EINTR);
    if (locked != 0)
        return writeFailure("lock");
    removeLeftovers(etc);

    const std::string hosts = etc + "/hosts";
    const auto current = readFile(hosts);
    // A missing file holds nothing: restore may put one back where none is, and if someone
    // creates one meanwhile, it is no longer missing and the texts are compared.
    const bool missing = !current && errno == ENOENT;
    if (missing ? !request.expected.empty() : (!current || *current != request.expected))
        return HelperRefusal{HelperProtocol::Status::changedOnDisk,
                             std::string(HelperProtocol::conflictMessage)};

    std::string temporary = etc + "/" + std::string(temporaryPrefix) + "XXXXXX";
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
