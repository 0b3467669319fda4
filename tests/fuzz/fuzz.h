/// What fuzz targets share. A target is a LLVMFuzzerTestOneInput of its own; a fuzzer feeds it
/// inputs that it makes up, `replay.cpp` those of files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace paramgen::testing {

/// Ends the process, as a crash does, when what has to hold does not.
void Require(bool holds, const char* what);

/// Sends standard output to nowhere, once.
void SilenceOutput();

/// A directory of this process, in memory where the machine has such a place, removed at its end.
const std::string& FuzzDirectory();

/// Makes a file hold just these bytes.
void WriteBytes(const std::string& path, std::string_view bytes);

/// The bytes of a file; none when there is no such file.
std::string ReadBytes(const std::string& path);

/// Takes an input apart, from its beginning. What is missing at its end is 0, or empty.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size)
        : rest_(reinterpret_cast<const char*>(data), size) {}

    bool IsEmpty() const { return rest_.empty(); }

    /// One byte.
    unsigned Byte();

    /// Two bytes.
    unsigned Word() { return Byte() * 256 + Byte(); }

    /// Everything up to `end`, which is taken as well, or up to the input's end.
    std::string TextUpTo(char end);

    /// Everything that is left.
    std::string_view Rest() const { return rest_; }

private:
    std::string_view rest_;
};

}  // namespace paramgen::testing
