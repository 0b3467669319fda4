/// Standard output, as this program and its rooms write to it: some of it may be held back.
///
/// A record costs libc more to copy into a stream's buffer than this program to format it. So
/// records are put together at the end of those that are held, and libc gets them in large pieces.
/// Whatever else is written goes through `PrintOutput`, behind what is held.
///
/// What is held is unguarded: only programs of one thread hold output.
#pragma once

#include <cstddef>

namespace paramgen {

/// The room for one record, in bytes.
constexpr std::size_t kRecordRoom = 512;

/// Holds output as long as it lives, if it is to; then libc gets what is left. There is one at a
/// time.
class HeldOutput {
public:
    explicit HeldOutput(bool isHolding);
    ~HeldOutput();
    HeldOutput(const HeldOutput&) = delete;
    HeldOutput& operator=(const HeldOutput&) = delete;
};

/// Where the next record begins: `kRecordRoom` bytes, up to the next call of a function of this
/// file.
char* RecordRoom();

/// Makes the first `size` characters in that room output.
void TakeRecord(std::size_t size);

/// Prints as printf does, behind all that is held.
[[gnu::format(printf, 1, 2)]] void PrintOutput(const char* format, ...);

/// Gives libc what is held.
void FlushOutput();

}  // namespace paramgen
