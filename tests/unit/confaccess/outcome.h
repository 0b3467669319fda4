/// The result of a call of configuration access: its status, and what it printed.
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

/// Runs `call`, and returns its result.
inline Outcome Observe(const std::function<Status()>& call) {
    Outcome outcome = {};
    outcome.output = MaskVolatile(CaptureStdout([&] { outcome.status = call(); }));
    return outcome;
}

/// The status of a code in hexadecimal.
constexpr Status Code(std::uint32_t code) {
    return static_cast<Status>(code);
}

/// Lowers the threshold of the library log; the destructor restores it.
class LibraryThreshold {
public:
    explicit LibraryThreshold(std::int32_t threshold) { ZV_LOG_SetThreshold(threshold); }
    ~LibraryThreshold() { ZV_LOG_SetThreshold(3); }
    LibraryThreshold(const LibraryThreshold&) = delete;
    LibraryThreshold& operator=(const LibraryThreshold&) = delete;
};

}  // namespace paramgen::testing
