/// What a call of configuration access returned and printed.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "confaccess/confaccess.h"
#include "log/library_log.h"
#include "support/captured_output.h"
#include "support/records.h"

namespace paramgen::testing {

struct Outcome {
    Status status;
    std::string output;  ///< with every time stamp replaced by "[time]"

    bool operator==(const Outcome&) const = default;
};

inline void PrintTo(const Outcome& outcome, std::ostream* stream) {
    *stream << "status 0x" << std::hex << static_cast<std::uint32_t>(outcome.status) << std::dec
            << ", output:\n"
            << outcome.output;
}

/// Runs `call`, and keeps what it returns and prints.
inline Outcome Observe(const std::function<Status()>& call) {
    Outcome outcome = {};
    outcome.output = MaskVolatile(CaptureStdout([&] { outcome.status = call(); }));
    return outcome;
}

/// A status code as it is written in hexadecimal.
constexpr Status Code(std::uint32_t code) {
    return static_cast<Status>(code);
}

/// Lets library records of lower levels through for as long as this lives.
class LibraryThreshold {
public:
    explicit LibraryThreshold(std::int32_t threshold) { ZV_LOG_SetThreshold(threshold); }
    ~LibraryThreshold() { ZV_LOG_SetThreshold(3); }
    LibraryThreshold(const LibraryThreshold&) = delete;
    LibraryThreshold& operator=(const LibraryThreshold&) = delete;
};

}  // namespace paramgen::testing
