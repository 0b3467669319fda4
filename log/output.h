/// Standard output of the program. It can be buffered here instead of in libc: copying a record
/// into a stream costs more than formatting it, so records are formatted directly into a buffer,
/// which goes to libc in large pieces.
#pragma once

#include <cstddef>

namespace paramgen {

/// Size of the buffer of one record, in bytes.
constexpr std::size_t kRecordRoom = 512;

/// Buffers output while it lives, if `isHolding`; its destructor flushes. Only one may exist at a
/// time.
class HeldOutput {
public:
    explicit HeldOutput(bool isHolding);
    ~HeldOutput();
    HeldOutput(const HeldOutput&) = delete;
    HeldOutput& operator=(const HeldOutput&) = delete;
};

/// Returns the buffer for the next record: `kRecordRoom` bytes, valid until the next call of a
/// function of this file.
char* RecordRoom();

/// Outputs the first `size` characters of the buffer that `RecordRoom` returned.
void TakeRecord(std::size_t size);

/// Flushes the buffer, then prints as printf does.
[[gnu::format(printf, 1, 2)]] void PrintOutput(const char* format, ...);

/// Writes the buffered output to stdout.
void FlushOutput();

}  // namespace paramgen
