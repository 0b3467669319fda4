#include "check/scaled_number.h"

#include <limits>
#include <utility>

namespace paramgen::check {
namespace {

/// The power that a prefix stands for; 0 for anything else.
int PowerOf(char prefix) {
    switch (prefix) {
        case 'k':
        case 'K':
            return 1;
        case 'M':
            return 2;
        case 'G':
            return 3;
        default:
            return 0;
    }
}

/// A unit: "kbit/s" is the first power of "bit/s".
struct Unit {
    explicit Unit(std::string_view text)
        : power(text.size() > 1 ? PowerOf(text.front()) : 0),
          plain(text.substr(power == 0 ? 0 : 1)) {}

    int power;
    std::string_view plain;
};

/// The milliseconds of a unit of time; 0 for anything else.
std::int64_t MillisecondsOf(std::string_view unit) {
    for (const auto& [name, milliseconds] : {std::pair("ms", 1), std::pair("s", 1000),
                                             std::pair("min", 60'000), std::pair("h", 3'600'000)}) {
        if (unit == name) {
            return milliseconds;
        }
    }
    return 0;
}

std::optional<std::int64_t> Fitting(std::int64_t number) {
    const bool fits = number <= std::numeric_limits<std::int32_t>::max() &&
                      number >= std::numeric_limits<std::int32_t>::min();
    return fits ? std::optional(number) : std::nullopt;
}

}  // namespace

std::optional<std::int64_t> ScaledNumber(std::int64_t number, std::string_view suffix,
                                         std::string_view unit) {
    if (suffix.empty() || suffix == unit) {
        return suffix.empty() ? std::nullopt : std::optional(number);
    }
    const std::int64_t given = MillisecondsOf(suffix);
    const std::int64_t time = MillisecondsOf(unit);
    if (given != 0 && time != 0) {
        return given < time ? std::nullopt : Fitting(number * (given / time));
    }
    const Unit wanted(unit);
    const std::string_view rest = suffix.substr(1);
    const int power = PowerOf(suffix.front());
    if (power == 0 || power < wanted.power || (!rest.empty() && rest != wanted.plain)) {
        return std::nullopt;
    }
    const bool isBytes = wanted.plain == "B" || wanted.plain == "bytes";
    for (int i = wanted.power; i < power; ++i) {
        number *= isBytes ? 1024 : 1000;
    }
    return Fitting(number);
}

}  // namespace paramgen::check
