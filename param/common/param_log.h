/// Console records of the generator and its section loaders: module tag "PARAM", and the name and
/// line of the function that logs.
#pragma once

#include <cstdint>
#include <string_view>

#include "confaccess/status.h"
#include "safestr/simple_format.h"

namespace paramgen {

/// The module tag of every record of the generator.
inline constexpr std::string_view kParamTag = "PARAM";

/// Format of the record about a count that is too large for its section. It takes the count's key
/// and the count.
inline constexpr char kCountBeyondSection[] = "[%s] count[%u] is beyond the section\n";

/// Logs one record at ERROR, or at DEBUG, under the name and line of the loader. They take few
/// arguments because loaders call them in hundreds of places.
[[gnu::format(printf, 3, 4)]] void LogError(const char* function, std::uint32_t line,
                                            const char* format, ...);
[[gnu::format(printf, 3, 4)]] void LogDebug(const char* function, std::uint32_t line,
                                            const char* format, ...);

/// Never defined: a compiler that has to evaluate it names the mistake in a statement.
void TheStatementIsTooLong();

/// The text "function[line]:" of a statement, put together by the compiler. `kSize` is that of the
/// function's name.
template <std::size_t kSize>
class LogPlace {
public:
    consteval LogPlace(const char (&function)[kSize], std::uint32_t line) {
        if (kSize > 200 || line > 9999) {
            TheStatementIsTooLong();
        }
        for (; function[length_] != '\0'; ++length_) {
            text_[length_] = function[length_];
        }
        text_[length_++] = '[';
        for (std::uint32_t unit = 1000; unit != 0; unit /= 10) {
            if (line >= unit) {
                text_[length_++] = static_cast<char>('0' + line / unit % 10);
            }
        }
        text_[length_++] = ']';
        text_[length_++] = ':';
    }

    constexpr std::string_view View() const { return {text_, length_}; }

private:
    std::size_t length_ = 0;
    char text_[kSize + sizeof "[9999]:"] = {};
};

/// Logs a statement's record at DEBUG. Returns false, logging nothing, when the record is too long
/// or a text is null. The arguments must be those that the format takes.
[[nodiscard]] bool LogSimple(std::string_view place, const SimpleFormat& format,
                             const SimpleFormat::Argument* arguments);

template <typename... Values>
[[nodiscard]] bool LogSimple(std::string_view place, const SimpleFormat& format, Values... values) {
    const SimpleFormat::Argument arguments[] = {SimpleFormat::Argument(values)...,
                                                SimpleFormat::Argument(0)};
    return LogSimple(place, format, arguments);
}

/// Logs that the step `label` has failed with `status`. Returns `status`.
Status LogFailed(const char* function, std::uint32_t line, const char* label, Status status);

/// Logs that the step `label` has failed, without a code. Returns -1.
Status LogFailed(const char* function, std::uint32_t line, const char* label);

/// Logs that a loader was given a null record. Returns -1.
Status LogNullRecord(const char* function, std::uint32_t line);

}  // namespace paramgen

/// Begins a statement macro. In the macro, `line_` is the source line of the macro's name. __LINE__
/// in a macro with parameters would not do: when its use takes several lines, compilers disagree
/// which of them it is.
#define AT_THIS_LINE_ if (constexpr std::uint32_t line_ = __LINE__)

/// Logs at ERROR. The arguments are a printf format and its arguments.
#define LOG_ERROR AT_THIS_LINE_ LOG_ERROR_
#define LOG_ERROR_(...) ::paramgen::LogError(__func__, line_, __VA_ARGS__)

/// Logs at DEBUG. The arguments are a printf format, known to the compiler, and its arguments.
#define LOG_DEBUG AT_THIS_LINE_ LOG_DEBUG_
#if UINTPTR_MAX > UINT32_MAX
// A run logs more than a thousand such records: their texts are prepared when they are compiled.
// The second call is for the others; it also lets the compiler compare the arguments with the
// format. Arguments may be evaluated twice.
#define LOG_DEBUG_(format, ...)                                                          \
    do {                                                                                 \
        static constexpr ::paramgen::LogPlace<sizeof __func__> place_(__func__, line_);  \
        static constexpr ::paramgen::SimpleFormat format_(format);                       \
        if (!format_.IsSimple() ||                                                       \
            !::paramgen::LogSimple(place_.View(), format_ __VA_OPT__(, ) __VA_ARGS__)) { \
            ::paramgen::LogDebug(__func__, line_, format __VA_OPT__(, ) __VA_ARGS__);    \
        }                                                                                \
    } while (false)
#else  // where size counts more: statements would take a kilobyte
#define LOG_DEBUG_(...) ::paramgen::LogDebug(__func__, line_, __VA_ARGS__)
#endif
