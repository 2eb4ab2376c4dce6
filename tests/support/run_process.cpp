// SPDX-License-Identifier: MIT
#include "run_process.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pinecove::test {

ProcessResult runProcess(const std::string& program, const std::vector<std::string>& arguments,
                         const std::string& input) {
    // A child that exits without reading its input must fail the test, not kill the test runner.
    std::signal(SIGPIPE, SIG_IGN);
    std::array<int, 2> in{}, out{}, err{};
    if (::pipe2(in.data(), O_CLOEXEC) != 0 || ::pipe2(out.data(), O_CLOEXEC) != 0 ||
        ::pipe2(err.data(), O_CLOEXEC) != 0)
        return {};

    std::vector<char*> argv;
    argv.push_back(const_cast<char*>(program.c_str()));
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);

    const pid_t pid = ::fork();
    if (pid == 0) {
        ::dup2(in[0], STDIN_FILENO);
        ::dup2(out[1], STDOUT_FILENO);
        ::dup2(err[1], STDERR_FILENO);
        ::execv(program.c_str(), argv.data());
        ::_exit(127);
    }
    ::close(in[0]);
    ::close(out[1]);
    ::close(err[1]);

    ProcessResult result;
    std::size_t written = 0;
    int inFd = in[1];
    if (input.empty()) {
        ::close(inFd);
        inFd = -1;
    }
    std::array<pollfd, 3> fds{pollfd{out[0], POLLIN, 0}, pollfd{err[0], POLLIN, 0},
                              pollfd{inFd, POLLOUT, 0}};
    std::array<char, 65536> buffer{};
    while (fds[0].fd >= 0 || fds[1].fd >= 0) {
        if (::poll(fds.data(), fds.size(), -1) < 0 && errno != EINTR)
            break;
        for (std::size_t i = 0; i < 2; ++i) {
            if (fds[i].fd < 0 || fds[i].revents == 0)
                continue;
            const ssize_t got = ::read(fds[i].fd, buffer.data(), buffer.size());
            if (got <= 0) {
                ::close(fds[i].fd);
                fds[i].fd = -1;
                continue;
            }
            (i == 0 ? result.out : result.err).append(buffer.data(), static_cast<std::size_t>(got));
        }
        if (fds[2].fd >= 0 && fds[2].revents != 0) {
            const ssize_t put = ::write(fds[2].fd, input.data() + written, input.size() - written);
            if (put > 0)
                written += static_cast<std::size_t>(put);
            if (put <= 0 || written == input.size()) {
                ::close(fds[2].fd);
                fds[2].fd = -1;
            }
        }
    }
    if (fds[2].fd >= 0)
        ::close(fds[2].fd);

    int status = 0;
    ::waitpid(pid, &status, 0);
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
}

} // namespace pinecove::test
