#include "check/number_text.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

#include "confaccess/number.h"
#include "safestr/short_text.h"

namespace paramgen::check {
namespace {

bool IsDecimalDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsHexDigit(char c) {
    return IsDecimalDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

}  // namespace

NumberText ReadNumber(std::string_view text) {
    NumberText number;
    std::size_t at = 0;
    while (at < text.size() && IsSpace(text[at])) {
        ++at;
    }
    at += at < text.size() && (text[at] == '-' || text[at] == '+') ? 1 : 0;
    number.end = at;
    while (number.end < text.size() && IsDecimalDigit(text[number.end])) {
        ++number.end;
    }
    number.isNumber = number.end > at;
    const std::string_view digits = text.substr(at);
    number.isHexadecimal = digits.size() > 2 && digits[0] == '0' &&
                           (digits[1] == 'x' || digits[1] == 'X') && IsHexDigit(digits[2]);
    const int before = errno;
    errno = 0;
    number.value = ParseInteger(std::string(text).c_str(), 10);
    number.isInRange = errno != ERANGE;
    errno = before;
    return number;
}

FloatText ReadFloat(std::string_view text) {
    FloatText number;
    const std::string copy(text);
    char* end = nullptr;
    const int before = errno;
    errno = 0;
    const double value = std::strtod(copy.c_str(), &end);
    const float stored = static_cast<float>(value);
    number.end = static_cast<std::size_t>(end - copy.c_str());
    number.isNumber = number.end != 0;
    number.isExact = errno != ERANGE && std::isfinite(stored) && (stored != 0.0F || value == 0.0);
    errno = before;
    return number;
}

bool IsBoolean(std::string_view text) {
    return !text.empty() && std::string_view("1yYtT0nNfF").find(text[0]) != std::string_view::npos;
}

}  // namespace paramgen::check
