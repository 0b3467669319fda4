#include "log/console_log.h"

#include <cstdio>

#include "log/wall_clock.h"
#include "safestr/plain_format.h"

namespace paramgen {
namespace {

constexpr std::uint32_t kLevelMax = kConsoleDebug;

constexpr const char* kLevelTexts[kLevelMax + 1] = {
    "\033[1;35mFATAL\033[m",  // bold magenta
    "",                       // level 1 has no name
    "\033[1;31mERROR\033[m",  // bold red
    "\033[1;33mWARN\033[m",   // bold yellow
    "\033[1;32mINFO\033[m",   // bold green
    "DEBUG",
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

/// A record on its way to standard output: gathered, and written in one piece.
class Record {
public:
    ~Record() { Write(); }

    /// Adds a text as printf does.
    [[gnu::format(printf, 2, 3)]] void Add(const char* format, ...) {
        std::va_list args;
        va_start(args, format);
        AddV(format, args);
        va_end(args);
    }

    [[gnu::format(printf, 2, 0)]] void AddV(const char* format, std::va_list args) {
        const int length = FormatPlain(text_ + length_, sizeof text_ - length_, format, args);
        if (length >= 0) {
            length_ += static_cast<std::size_t>(length);
            return;
        }
        // Too long, or too special: libc writes it, behind what there is.
        Write();
        std::vprintf(format, args);
    }

private:
    void Write() {
        std::fwrite(text_, 1, length_, stdout);
        length_ = 0;
    }

    std::size_t length_ = 0;
    char text_[512];
};

void AddPrefix(Record* record, std::uint32_t level, const char* module, const char* function,
               std::uint32_t line) {
    if (!g_settings.timeStamps) {
        record->Add("\033[m[%s-%s]:%s[%u]:", kLevelTexts[level], module, function, line);
        return;
    }
    const WallClock now = ReadWallClock();
    record->Add("\033[m[%02d:%02d:%02d:%03lld %s-%s]:%s[%u]:", now.hour, now.minute, now.second,
                now.millisecond, kLevelTexts[level], module, function, line);
}

}  // namespace

void ConsoleLogSetup(std::uint32_t enabled, std::uint32_t timeStamps, std::uint32_t level) {
    if (level > kLevelMax) {
        std::puts("level is invalid");
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
    Record record;
    AddPrefix(&record, level, OrEmpty(module), OrEmpty(function), line);
    if (format != nullptr) {
        record.AddV(format, args);
    }
}

}  // namespace paramgen
