#include "log/library_log.h"

#include <atomic>
#include <cstdarg>
#include <cstdio>

#include "log/output.h"
#include "log/own_message.h"
#include "log/save_file.h"
#include "log/wall_clock.h"
#include "safestr/safestr.h"

namespace paramgen {
namespace {

constexpr std::size_t kRecordSize = 512;
constexpr std::size_t kRecordMax = kRecordSize - 1;  // characters of a whole record
constexpr std::size_t kLevelNameSize = 6;

constexpr char kLevelNames[][kLevelNameSize] = {"DEBUG", "INFO", "WARN", "ERR", "FATAL"};
constexpr char kUnknownLevel[kLevelNameSize] = "UKNOW";

std::atomic<std::int32_t> g_threshold = kLibraryErr;

std::int32_t LOG_FillLevelInfo(std::int32_t level, char (&name)[kLevelNameSize]) {
    const bool known = level >= kLibraryDebug && level <= kLibraryFatal;
    if (memcpy_s(name, sizeof name, known ? kLevelNames[level] : kUnknownLevel, sizeof name) != 0) {
        PrintOwnMessage(__func__, 406, "memcpy_s failed\n");
        return -1;
    }
    return 0;
}

/// Starts a record with everything that stands before its message. Returns the number of
/// characters, or -1 when they do not fit.
int FormatPrefix(char (&record)[kRecordSize], const char* levelName, const char* module,
                 const char* function, std::int32_t line) {
    const WallClock now = ReadWallClock();
    return snprintf_s(record, sizeof record, kRecordMax, "[%02d:%02d:%02d:%04lld][%s][%s] %s:%d ",
                      now.hour, now.minute, now.second, now.millisecond, levelName, module,
                      function, line);
}

}  // namespace

// Defined here so that a program that never opens the save path need not link it.
std::atomic<void (*)(const char*, std::size_t)> g_saveRecord = nullptr;

void ZV_LOG_SetThreshold(std::int32_t threshold) {
    g_threshold.store(threshold, std::memory_order_relaxed);
}

std::int32_t ZV_LOG_PrintfInfo(const char* module, std::int32_t level, const char* function,
                               std::int32_t line, const char* format, ...) {
    if (level < g_threshold.load(std::memory_order_relaxed)) {
        return 0;
    }
    if (module == nullptr || function == nullptr || format == nullptr) {
        return -1;
    }
    char levelName[kLevelNameSize];
    if (LOG_FillLevelInfo(level, levelName) != 0) {
        PrintOwnMessage(__func__, 425, "log filllevelinfo failed\n");
        return -1;
    }
    char record[kRecordSize];
    const int prefix = FormatPrefix(record, levelName, module, function, line);
    if (prefix == -1) {
        PrintOwnMessage(__func__, 434, "snprintf_s failed");
        return -1;
    }
    // The message and its terminator share what the prefix leaves of the record's characters.
    const std::size_t room = kRecordMax - static_cast<std::size_t>(prefix);
    std::va_list args;
    va_start(args, format);
    const int message = vsnprintf_s(record + prefix, room, room, format, args);
    va_end(args);
    if (message == -1) {
        return -1;
    }
    const auto save = g_saveRecord.load(std::memory_order_relaxed);
    if (save != nullptr) {
        save(record, static_cast<std::size_t>(prefix) + static_cast<std::size_t>(message));
    }
    PrintOutput("%s", record);
    return 0;
}

std::int32_t ZV_LOG_Printf(const char* module, std::int32_t level, const char* format, ...) {
    if (level < g_threshold.load(std::memory_order_relaxed)) {
        return 0;
    }
    if (module == nullptr || format == nullptr) {
        return -1;
    }
    const WallClock now = ReadWallClock();
    PrintOutput("[%02d:%02d:%02d:%03lld][%s] ", now.hour, now.minute, now.second, now.millisecond,
                module);
    std::va_list args;
    va_start(args, format);
    std::vprintf(format, args);
    va_end(args);
    return 0;
}

}  // namespace paramgen
