#include "log/console_log.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "log/output.h"
#include "log/wall_clock.h"
#include "safestr/digits.h"
#include "safestr/plain_format.h"
#include "safestr/safestr.h"
#include "safestr/short_text.h"

namespace paramgen {
namespace {

constexpr std::uint32_t kLevelMax = kConsoleDebug;

/// The level in a record's prefix.
constexpr std::string_view kLevelTexts[kLevelMax + 1] = {
    "\033[1;35mFATAL\033[m-",  // bold magenta
    "-",                       // level 1 has no name
    "\033[1;31mERROR\033[m-",  // bold red
    "\033[1;33mWARN\033[m-",   // bold yellow
    "\033[1;32mINFO\033[m-",   // bold green
    "DEBUG-",
};

struct Settings {
    std::uint32_t level;
    bool enabled;
    bool timeStamps;
};

Settings g_settings = {.level = kConsoleInfo, .enabled = true, .timeStamps = true};

const char* OrEmpty(const char* text) {
    return text == nullptr ? "" : text;
}

/// Maximal length of module tag and function name together in a record that is formatted in the
/// buffer. With them the rest of a prefix always fits.
constexpr std::size_t kNamesMax = 400;
static_assert(sizeof "\033[m[hh:mm:ss:mmm \033[1;35mFATAL\033[m-]:[4294967295]:" + kNamesMax <
              kRecordRoom);

/// A record that is being formatted: the next character goes to `at`, the buffer ends at `limit`.
/// Text that does not fit is left out.
struct Gathered {
    char* at;
    char* limit;

    std::size_t Room() const { return static_cast<std::size_t>(limit - at); }
};

void Append(Gathered* record, std::string_view text) {
    if (CopyText(record->at, record->Room(), text.data(), text.size()) == 0) {
        record->at += text.size();
    }
}

void AppendNumber(Gathered* record, std::uint32_t number) {
    const std::size_t length = CountDigits(number, 'u');
    if (length <= record->Room()) {
        record->at += length;
        WriteDigits(record->at, 'u', number);
    }
}

void AppendTime(Gathered* record) {
    const WallClock now = ReadWallClock();
    const int length = sprintf_s(record->at, record->Room(), "%02d:%02d:%02d:%03lld ", now.hour,
                                 now.minute, now.second, now.millisecond);
    record->at += std::max(length, 0);
}

/// Writes the prefix of a record to `*text`, a buffer of `kRecordRoom` bytes, and returns its end.
/// When the names are too long they are printed directly, and `*text` becomes the buffer for the
/// rest.
char* Begin(char** text, std::uint32_t level, std::string_view tag, std::string_view name,
            std::uint32_t line) {
    Gathered record = {.at = *text, .limit = *text + kRecordRoom};
    Append(&record, "\033[m[");
    if (g_settings.timeStamps) {
        AppendTime(&record);
    }
    Append(&record, kLevelTexts[level]);
    if (tag.size() + name.size() > kNamesMax) {
        TakeRecord(static_cast<std::size_t>(record.at - *text));
        PrintOutput("%s]:%s", tag.data(), name.data());
        *text = RecordRoom();
        record = {.at = *text, .limit = *text + kRecordRoom};
    } else {
        Append(&record, tag);
        Append(&record, "]:");
        Append(&record, name);
    }
    Append(&record, "[");
    AppendNumber(&record, line);
    Append(&record, "]:");
    return record.at;
}

}  // namespace

void ConsoleLogSetup(std::uint32_t enabled, std::uint32_t timeStamps, std::uint32_t level) {
    if (level > kLevelMax) {
        PrintOutput("level is invalid\n");
        return;
    }
    g_settings = {.level = level, .enabled = enabled != 0, .timeStamps = timeStamps != 0};
}

void ConsoleLogPrint(std::uint32_t level, const char* module, const char* function,
                     std::uint32_t line, const char* format, ...) {
    std::va_list args;
    va_start(args, format);
    ConsoleLogPrintV(level, module, function, line, format, args);
    va_end(args);
}

void ConsoleLogPrintV(std::uint32_t level, const char* module, const char* function,
                      std::uint32_t line, const char* format, std::va_list args) {
    if (level > g_settings.level || !g_settings.enabled) {
        return;
    }
    char* text = RecordRoom();
    char* const message = Begin(&text, level, OrEmpty(module), OrEmpty(function), line);
    const std::size_t prefix = static_cast<std::size_t>(message - text);
    const int length =
        format == nullptr ? 0 : FormatPlain(message, kRecordRoom - prefix, format, args);
    TakeRecord(prefix + static_cast<std::size_t>(std::max(length, 0)));
    if (length < 0) {
        // The message does not fit, or is not plain: libc formats it.
        FlushOutput();
        std::vprintf(format, args);
    }
}

}  // namespace paramgen
