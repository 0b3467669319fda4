/// Whole text files.
#pragma once

#include <cstddef>
#include <string_view>

#include "confaccess/arena.h"

namespace paramgen {

/// A text in memory. No NUL ends it.
struct Text {
    const char* bytes = nullptr;
    std::size_t size = 0;

    std::string_view View() const { return {bytes, size}; }
};

/// The maximal size of a file.
constexpr std::size_t kTextMax = std::size_t{512} * 1024 * 1024 - 1;

/// Results of reading a file.
enum class ReadResult { kRead, kUnreadable, kNoMemory };

/// Reads the file at `path` to its end, into memory from `arena`, and stores in `text` where it is.
/// A directory counts as empty. A pipe, a terminal or a file of /proc, which do not tell their
/// size, are read until nothing more comes: like any program this waits for a pipe's writer. A file
/// of more than `kTextMax` bytes is unreadable, and so is a device without an end.
ReadResult ReadTextFile(const char* path, Arena* arena, Text* text);

}  // namespace paramgen
