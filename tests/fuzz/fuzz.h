/// Common parts of the fuzz targets. Each target defines LLVMFuzzerTestOneInput. The fuzzer calls
/// it with inputs that it generates, `replay.cpp` with the contents of files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace paramgen::testing {

/// Aborts, with `what` as the message, unless `holds`.
void Require(bool holds, const char* what);

/// Redirects standard output to /dev/null, once.
void SilenceOutput();

/// A temporary directory of this process, in memory where possible, removed at its end.
const std::string& FuzzDirectory();

/// Replaces the contents of a file.
void WriteBytes(const std::string& path, std::string_view bytes);

/// The bytes of a file; empty when there is no such file.
std::string ReadBytes(const std::string& path);

/// Takes values from the beginning of an input. At its end they are 0, or empty.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size)
        : rest_(reinterpret_cast<const char*>(data), size) {}

    bool IsEmpty() const { return rest_.empty(); }

    /// One byte.
    unsigned Byte();

    /// Two bytes.
    unsigned Word() { return Byte() * 256 + Byte(); }

    /// The bytes up to `end`, which is taken but not returned, or up to the input's end.
    std::string TextUpTo(char end);

    /// The remaining bytes.
    std::string_view Rest() const { return rest_; }

private:
    std::string_view rest_;
};

}  // namespace paramgen::testing
