#include "confaccess/argument_checks.h"

#include <cstdarg>

#include "confaccess/confaccess.h"
#include "log/output.h"
#include "safestr/safestr.h"

namespace paramgen {
void TellNullArgument(const char* function, CheckLine line, const char* argument) {
    PrintOutput("func:%s,line:%d,pointer[%s] is null\n", function, line, argument);
}

bool IsFalseExpression(bool holds, const char* function, CheckLine line, const char* expression) {
    if (!holds) {
        PrintOutput("func:%s,line:%d,expr[%s] false\n", function, line, expression);
    }
    return !holds;
}

namespace {

/// Returns whether `text` has too many characters for a buffer of `size` bytes; if so, prints a
/// message. `kind` is the middle of the limit's name. All messages share one format, which keeps
/// the program small.
bool IsLong(std::string_view text, std::size_t size, const char* function, CheckLine line,
            const char* argument, const char* kind) {
    const bool isLong = text.size() >= size;
    if (isLong) {
        PrintOutput(
            "func:%s,line:%d,expr[strnlen(%s, QX_CONFACCESS_%s_MAX_LEN) < "
            "QX_CONFACCESS_%s_MAX_LEN] false\n",
            function, line, argument, kind, kind);
    }
    return isLong;
}

}  // namespace

bool IsLongConfigName(std::string_view cfgName, const char* function, CheckLine line) {
    return IsLong(cfgName, QX_CONFACCESS_NAME_MAX_LEN, function, line, "cfgName", "NAME");
}

bool IsLongModuleName(std::string_view module, const char* function, CheckLine line) {
    return IsLong(module, QX_CONFACCESS_NAME_MAX_LEN, function, line, "module", "NAME");
}

bool IsLongKey(std::string_view confItem, const char* function, CheckLine line) {
    return IsLong(confItem, QX_CONFACCESS_KEY_MAX_LEN, function, line, "confItem", "KEY");
}

bool IsLongPath(std::string_view cfgPath, const char* function, CheckLine line) {
    return IsLong(cfgPath, QX_CONFACCESS_PATH_MAX_LEN, function, line, "cfgPath", "PATH");
}

bool FormatOrTell(char* dest, std::size_t size, const char* function, CheckLine line,
                  const char* format, ...) {
    std::va_list args;
    va_start(args, format);
    const int length = vsnprintf_s(dest, size, size - 1, format, args);
    va_end(args);
    if (length == -1) {
        PrintOutput("[%s]%d: %s\n", function, line, "snprintf_s");
    }
    return length != -1;
}

void TellErrorCode(const char* function, CheckLine line, Status code) {
    PrintOutput("func:%s,line:%d,Error Code: [0x%08X]\n\n", function, line,
                static_cast<std::uint32_t>(code));
}

}  // namespace paramgen
