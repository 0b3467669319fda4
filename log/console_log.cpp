#include "log/console_log.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
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
/// buffer. With them the rest of a prefix always fits, so that nothing else is checked.
constexpr std::size_t kNamesMax = 400;
static_assert(sizeof "\033[m[hh:mm:ss:mmm \033[1;35mFATAL\033[m-]:[4294967295]:" + kNamesMax <
              kRecordRoom);

char* PutNumber(char* at, std::uint32_t number) {
    char* const end = at + CountDigits(number, 'u');
    WriteDigits(end, 'u', number);
    return end;
}

char* PutTime(char* at, const char* end) {
    const WallClock now = ReadWallClock();
    const int length = sprintf_s(at, static_cast<std::size_t>(end - at), "%02d:%02d:%02d:%03lld ",
                                 now.hour, now.minute, now.second, now.millisecond);
    return at + std::max(length, 0);
}

/// Writes the beginning of a record, up to its level, to `text`, a buffer of `kRecordRoom` bytes.
/// Returns its end.
char* PutLevel(char* text, std::uint32_t level) {
    char* at = PutCharacters(text, "\033[m[");
    if (g_settings.timeStamps) {
        at = PutTime(at, text + kRecordRoom);
    }
    return PutCharacters(at, kLevelTexts[level]);
}

/// Writes the prefix of a record to `*text`, a buffer of `kRecordRoom` bytes, and returns its end.
/// When the names are too long they are printed directly, and `*text` becomes the buffer for the
/// rest.
char* Begin(char** text, std::uint32_t level, std::string_view module, std::string_view function,
            std::uint32_t line) {
    char* at = PutLevel(*text, level);
    if (module.size() + function.size() > kNamesMax) {
        TakeRecord(static_cast<std::size_t>(at - *text));
        PrintOutput("%s]:%s", module.data(), function.data());
        *text = RecordRoom();
        at = *text;
    } else {
        at = PutCharacters(PutCharacters(PutCharacters(at, module), "]:"), function);
    }
    at = PutNumber(PutCharacters(at, "["), line);
    return PutCharacters(at, "]:");
}

bool IsWritten(std::uint32_t level) {
    return level <= g_settings.level && g_settings.enabled;
}

/// Formats a message into `dest`, which has room for `size` bytes. Returns its length, or -1 when
/// it does not fit.
[[gnu::format(printf, 3, 0)]] int FormatMessage(char* dest, std::size_t size, const char* format,
                                                std::size_t formatLength, std::va_list args) {
    const int plain = FormatPlain(dest, size, format, formatLength, args);
    if (plain != kNotPlain) {
        return plain;
    }
    std::va_list copy;
    va_copy(copy, args);
    const int length = std::vsnprintf(dest, size, format, copy);
    va_end(copy);
    return static_cast<std::size_t>(length) < size ? length : kDoesNotFit;
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
    if (!IsWritten(level)) {
        return;
    }
    format = OrEmpty(format);
    char* text = RecordRoom();
    char* const message = Begin(&text, level, OrEmpty(module), OrEmpty(function), line);
    const std::size_t prefix = static_cast<std::size_t>(message - text);
    const int length =
        FormatMessage(message, kRecordRoom - prefix, format, std::strlen(format), args);
    TakeRecord(prefix + static_cast<std::size_t>(std::max(length, 0)));
    if (length < 0) {
        // The message does not fit: libc formats it once more.
        FlushOutput();
        std::vprintf(format, args);
    }
}

bool ConsoleLogPrintSimple(std::uint32_t level, std::string_view module, std::string_view place,
                           const SimpleFormat& format, const SimpleFormat::Argument* arguments) {
    if (!IsWritten(level)) {
        return true;
    }
    char* const text = RecordRoom();
    char* at = PutCharacters(PutLevel(text, level), module);
    at = PutCharacters(PutCharacters(at, "]:"), place);
    const char* const end = format.Write(at, text + kRecordRoom, arguments);
    if (end == nullptr) {
        return false;
    }
    TakeRecord(static_cast<std::size_t>(end - text));
    return true;
}

}  // namespace paramgen
