/// Whole text files.
#pragma once

#include <cstddef>
#include <string_view>

#include "confaccess/arena.h"

namespace paramgen {

/// A text in memory. Behind it there is a NUL.
struct Text {
    char* bytes = nullptr;
    std::size_t size = 0;

    std::string_view View() const { return {bytes, size}; }
};

/// The most characters of a file.
constexpr std::size_t kTextMax = std::size_t{512} * 1024 * 1024 - 1;

/// What reading a file came to.
enum class ReadResult { kRead, kUnreadable, kNoMemory };

/// Reads the file at `path` into memory from `arena`, and tells where in `text`. A directory counts
/// as empty, and so does whatever says that it has 0 bytes. What has more than `kTextMax` is
/// unreadable, and so is what might have to be waited for: a pipe, for one. (But not a file that
/// another program has a lease of, which it gives back.)
ReadResult ReadTextFile(const char* path, Arena* arena, Text* text);

}  // namespace paramgen
