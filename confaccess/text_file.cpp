#include "confaccess/text_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "safestr/safestr.h"

namespace paramgen {
namespace {

/// Size of the first buffer for a file of unknown size.
constexpr std::size_t kFirstRoom = 4096;

/// An open file.
class Descriptor {
public:
    explicit Descriptor(const char* path) : number_(open(path, O_RDONLY)) {}
    ~Descriptor() {
        if (IsOpen()) {
            close(number_);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool IsOpen() const { return number_ != -1; }

    /// Its size in bytes; 0 or -1 when it is unknown, as for a pipe or a file of /proc.
    off_t Size() const { return lseek(number_, 0, SEEK_END); }

    /// Reads `size` bytes, or up to the end: of a file with a known size from its beginning, of any
    /// other from the current position. Returns the number of bytes, or -1.
    ssize_t Read(char* bytes, std::size_t size, bool isSized) const {
        std::size_t total = 0;
        while (total < size) {
            char* const to = bytes + total;
            const std::size_t room = size - total;
            const ssize_t count = isSized ? pread(number_, to, room, static_cast<off_t>(total))
                                          : read(number_, to, room);
            if (count <= 0) {
                // A directory can be opened, but reading it fails with EISDIR.
                return count == 0 || errno == EISDIR ? static_cast<ssize_t>(total) : -1;
            }
            total += static_cast<std::size_t>(count);
        }
        return static_cast<ssize_t>(total);
    }

private:
    int number_;
};

/// Reads a file of known size.
ReadResult ReadSized(const Descriptor& file, off_t size, Arena* arena, Text* text) {
    // Some directories report a very large size. Reading one byte tells them from a large file.
    const bool isTooLong = size > off_t{kTextMax};
    const std::size_t most = isTooLong ? 1 : static_cast<std::size_t>(size);
    char* bytes = static_cast<char*>(arena->Take(most));
    if (bytes == nullptr) {
        return ReadResult::kNoMemory;
    }
    const ssize_t count = file.Read(bytes, most, true);
    if (count == -1 || (count != 0 && isTooLong)) {
        return ReadResult::kUnreadable;
    }
    *text = {.bytes = bytes, .size = static_cast<std::size_t>(count)};
    return ReadResult::kRead;
}

/// Reads a file of unknown size. Doubles the buffer whenever it is full.
ReadResult ReadUnsized(const Descriptor& file, Arena* arena, Text* text) {
    char* bytes = nullptr;
    std::size_t size = 0;
    for (std::size_t room = kFirstRoom; room / 2 <= kTextMax; room *= 2) {
        char* larger = static_cast<char*>(arena->Take(room));
        if (larger == nullptr) {
            return ReadResult::kNoMemory;
        }
        if (size != 0 && memcpy_s(larger, room, bytes, size) != 0) {
            return ReadResult::kUnreadable;
        }
        bytes = larger;
        const ssize_t count = file.Read(bytes + size, room - size, false);
        if (count == -1) {
            return ReadResult::kUnreadable;
        }
        size += static_cast<std::size_t>(count);
        if (size != room) {
            *text = {.bytes = bytes, .size = size};
            return ReadResult::kRead;
        }
    }
    return ReadResult::kUnreadable;
}

}  // namespace

ReadResult ReadTextFile(const char* path, Arena* arena, Text* text) {
    const Descriptor file(path);
    if (!file.IsOpen()) {
        return ReadResult::kUnreadable;
    }
    const off_t size = file.Size();
    return size > 0 ? ReadSized(file, size, arena, text) : ReadUnsized(file, arena, text);
}

}  // namespace paramgen
