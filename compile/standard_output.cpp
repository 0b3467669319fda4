#include "compile/standard_output.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>

namespace paramgen::compile {
namespace {

/// Descriptors from here on are none of the three standard ones.
constexpr int kFirstFree = 3;

/// A copy of a descriptor beyond the standard ones, for this process alone; -1 when it is closed.
int CopyOf(int descriptor) {
    return fcntl(descriptor, F_DUPFD_CLOEXEC, kFirstFree);
}

int OpenTarget(bool isKept) {
    const int opened = isKept ? memfd_create("log", MFD_CLOEXEC) : open("/dev/null", O_WRONLY);
    if (opened == -1) {
        return -1;
    }
    const int copy = CopyOf(opened);
    close(opened);
    return copy;
}

}  // namespace

StandardOutput::StandardOutput(bool isKept) {
    std::fflush(stdout);
    before_ = CopyOf(STDOUT_FILENO);
    // What is open and cannot be copied could not be put back: it stays.
    const bool isLost = before_ == -1 && errno != EBADF;
    taken_ = isLost ? -1 : OpenTarget(isKept);
    if (taken_ != -1) {
        dup2(taken_, STDOUT_FILENO);
    }
}

StandardOutput::~StandardOutput() {
    std::fflush(stdout);
    if (taken_ != -1) {
        close(taken_);
        if (before_ == -1) {
            close(STDOUT_FILENO);
        } else {
            dup2(before_, STDOUT_FILENO);
        }
    }
    if (before_ != -1) {
        close(before_);
    }
}

std::string StandardOutput::Text() const {
    std::fflush(stdout);
    std::string text;
    std::array<char, 65536> piece;
    off_t at = 0;
    ssize_t count = 0;
    while (taken_ != -1 && (count = pread(taken_, piece.data(), piece.size(), at)) > 0) {
        text.append(piece.data(), static_cast<std::size_t>(count));
        at += count;
    }
    return text;
}

}  // namespace paramgen::compile
