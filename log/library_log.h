/// Library log: the records of configuration access, on standard output and, when its save path is
/// open, in two alternating files.
///
/// Its scale runs opposite to the console log's: 0 DEBUG to 4 FATAL, and a record is produced when
/// its level is at least the threshold, which is 3 at first.
#pragma once

#include <cstdint>

namespace paramgen {

/// Levels of library records. Any other number is written as "UKNOW".
enum LibraryLevel : std::int32_t {
    kLibraryDebug = 0,
    kLibraryInfo = 1,
    kLibraryWarn = 2,
    kLibraryErr = 3,
    kLibraryFatal = 4,
};

/// Writes one record: time stamp, level name, module tag, function, line and message.
///
/// Returns 0 when the record was written or its level is below the threshold. Returns -1, writing
/// nothing of the record, when `module`, `function` or `format` is null, or when prefix and message
/// do not fit the record (512 bytes). A failing save path is closed and costs no record on standard
/// output.
[[gnu::format(printf, 5, 6)]] std::int32_t ZV_LOG_PrintfInfo(const char* module, std::int32_t level,
                                                             const char* function,
                                                             std::int32_t line, const char* format,
                                                             ...);

/// Short form: writes time stamp, module tag and message to standard output only. Returns 0, or -1
/// when `module` or `format` is null and the level is not below the threshold.
[[gnu::format(printf, 3, 4)]] std::int32_t ZV_LOG_Printf(const char* module, std::int32_t level,
                                                         const char* format, ...);

/// Sets the threshold of both forms. Not guarded: no other thread may log meanwhile.
void ZV_LOG_SetThreshold(std::int32_t threshold);

}  // namespace paramgen
