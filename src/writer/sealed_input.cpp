// SPDX-License-Identifier: MIT
#include "sealed_input.h"

#include "descriptor_io.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

int sealedInput(std::string_view first, std::string_view second) {
#if defined(__linux__)
    const int fd = ::memfd_create("pinecove-hosts", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    if (fd < 0)
        return -1;
    const int seals = F_SEAL_SEAL | F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE;
    if (!pinecove::writeAll(fd, first) || !pinecove::writeAll(fd, second) ||
        ::fcntl(fd, F_ADD_SEALS, seals) != 0 || ::lseek(fd, 0, SEEK_SET) != 0) {
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
