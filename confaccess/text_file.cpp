#include "confaccess/text_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace paramgen {
namespace {

/// An open file.
class Descriptor {
public:
    explicit Descriptor(const char* path) {
        // Opening alone would wait for somebody who writes to a pipe.
        number_ = open(path, O_RDONLY | O_NONBLOCK);
        if (number_ == -1 && errno == EWOULDBLOCK) {
            // A file that another program, a file server for one, has a lease of: it gives it back.
            number_ = open(path, O_RDONLY);
        }
    }
    ~Descriptor() {
        if (IsOpen()) {
            close(number_);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool IsOpen() const { return number_ != -1; }

    /// Its size in bytes; -1 when it has none, as a pipe or a terminal.
    off_t Size() const { return lseek(number_, 0, SEEK_END); }

    /// Reads its first `size` bytes, or as many as there are. Returns their number, or -1.
    ssize_t Read(char* bytes, std::size_t size) const {
        std::size_t total = 0;
        while (total < size) {
            const ssize_t count =
                pread(number_, bytes + total, size - total, static_cast<off_t>(total));
            if (count <= 0) {
                // A directory opens like a file and fails here.
                return count == 0 || errno == EISDIR ? static_cast<ssize_t>(total) : -1;
            }
            total += static_cast<std::size_t>(count);
        }
        return static_cast<ssize_t>(total);
    }

private:
    int number_;
};

/// Whether a size is one of a text. Some directories tell a very large one, or none.
bool IsTextSize(off_t size) {
    return size >= 0 && size <= off_t{kTextMax};
}

}  // namespace

ReadResult ReadTextFile(const char* path, Arena* arena, Text* text) {
    const Descriptor file(path);
    if (!file.IsOpen()) {
        return ReadResult::kUnreadable;
    }
    const off_t size = file.Size();
    // One byte is enough to tell a directory from what has more than can be read.
    const std::size_t most = IsTextSize(size) ? static_cast<std::size_t>(size) : 1;
    char* bytes = static_cast<char*>(arena->Take(most + 1));
    if (bytes == nullptr) {
        return ReadResult::kNoMemory;
    }
    const ssize_t count = file.Read(bytes, most);
    if (count == -1 || (count != 0 && !IsTextSize(size))) {
        return ReadResult::kUnreadable;
    }
    *text = {.bytes = bytes, .size = static_cast<std::size_t>(count)};
    return ReadResult::kRead;
}

}  // namespace paramgen
