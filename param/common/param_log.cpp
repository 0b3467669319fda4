#include "param/common/param_log.h"

#include <cstdarg>

#include "log/console_log.h"

namespace paramgen {

void LogError(const char* function, std::uint32_t line, const char* format, ...) {
    std::va_list args;
    va_start(args, format);
    ConsoleLogPrintV(kConsoleError, kParamTag.data(), function, line, format, args);
    va_end(args);
}

void LogDebug(const char* function, std::uint32_t line, const char* format, ...) {
    std::va_list args;
    va_start(args, format);
    ConsoleLogPrintV(kConsoleDebug, kParamTag.data(), function, line, format, args);
    va_end(args);
}

bool LogSimple(std::string_view place, const SimpleFormat& format,
               const SimpleFormat::Argument* arguments) {
    return ConsoleLogPrintSimple(kConsoleDebug, kParamTag, place, format, arguments);
}

Status LogFailed(const char* function, std::uint32_t line, const char* label, Status status) {
    LogError(function, line, "[%s] failed[0x%08X]\n", label, static_cast<std::uint32_t>(status));
    return status;
}

Status LogFailed(const char* function, std::uint32_t line, const char* label) {
    LogError(function, line, "[%s] failed\n", label);
    return kFailed;
}

Status LogNullRecord(const char* function, std::uint32_t line) {
    LogError(function, line, "pointer[%s] is null\n", "param");
    return kFailed;
}

}  // namespace paramgen
