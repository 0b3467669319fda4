#include "compile/working_directory.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace paramgen::compile {
namespace {

[[noreturn]] void Throw(int error, const std::filesystem::path& directory) {
    throw std::system_error(error, std::generic_category(), directory.string());
}

}  // namespace

WorkingDirectory::WorkingDirectory(const std::filesystem::path& directory)
    : before_(open(".", O_PATH | O_DIRECTORY | O_CLOEXEC)) {
    if (before_ == -1) {
        Throw(errno, ".");
    }
    if (chdir(directory.c_str()) != 0) {
        const int error = errno;
        close(before_);
        Throw(error, directory);
    }
}

WorkingDirectory::~WorkingDirectory() {
    if (fchdir(before_) != 0) {
        // It has become inaccessible; paths given later fail, as they should.
    }
    close(before_);
}

}  // namespace paramgen::compile
