#include "output/write_calls.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "output/result.h"
#include "output/shown_text.h"

namespace paramgen::output {

bool WriteAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) {
            return false;
        }
        bytes.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
    }
    return true;
}

void FailToWrite(const std::string& path) {
    const int error = errno;
    throw UserError("cannot write " + Shown(path) + ": " + std::strerror(error));
}

}  // namespace paramgen::output
