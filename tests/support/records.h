/// Finds the console records in a program's output.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace paramgen::testing {

/// One console record without time stamp.
struct LogRecord {
    std::string level;  ///< "ERROR", "DEBUG"…, without its colour
    std::string module;
    std::string function;
    std::string message;  ///< up to the next record; may hold several line ends, or none

    /// "FUNCTION: MESSAGE", the form in which tests write records.
    std::string Text() const { return function + ": " + message; }
};

/// Splits output into its records. Text before the first record, and lines of the library log
/// between records, are left out.
std::vector<LogRecord> ParseRecords(std::string_view output);

/// The texts of the records of one level, in order.
std::vector<std::string> TextsOf(std::string_view output, std::string_view level);

/// The chain of failures: the texts of the ERROR records.
inline std::vector<std::string> ErrorsOf(std::string_view output) {
    return TextsOf(output, "ERROR");
}

/// The echo: the texts of the DEBUG records.
inline std::vector<std::string> EchoOf(std::string_view output) {
    return TextsOf(output, "DEBUG");
}

/// The output with every time stamp of a library record replaced by "[time]".
std::string MaskTimes(std::string_view output);

/// The output with every source line number of a console record replaced by "[#]", and every time
/// stamp masked.
std::string MaskVolatile(std::string_view output);

}  // namespace paramgen::testing
