// SPDX-License-Identifier: MIT
#include "sealed_input.h"

#include "descriptor_io.h"

#include <fcntl.h>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

#if defined(__linux__)
namespace {

bool endsHere(int fd) {
    char extra = 0;
    return ::read(fd, &extra, 1) == 0;
}

} // namespace
#endif

int sealedInput(std::string_view first, std::string_view second) {
#if defined(__linux__)
    const int fd = ::memfd_create("pinecove-hosts", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    if (fd < 0)
        return -1;
    const int seals = F_SEAL_SEAL | F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE;
    std::string sealed(first.size() + second.size(), '\0');
    if (!pinecove::writeAll(fd, first) || !pinecove::writeAll(fd, second) ||
        ::fcntl(fd, F_ADD_SEALS, seals) != 0 || ::lseek(fd, 0, SEEK_SET) != 0 ||
        !pinecove::readExactly(fd, sealed) || !endsHere(fd) ||
        std::string_view(sealed).substr(0, first.size()) != first ||
        std::string_view(sealed).substr(first.size()) != second || ::lseek(fd, 0, SEEK_SET) != 0) {
        ::close(fd);
        return -1;
    }
    return fd;
#else
    (void)first;
    (void)second;
    return -1;
#endif
}
