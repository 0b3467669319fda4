#include "check/scaled_number.h"

#include <limits>

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

}  // namespace

std::optional<std::int64_t> ScaledNumber(std::int64_t number, std::string_view suffix,
                                         std::string_view unit) {
    if (suffix.empty() || suffix == unit) {
        return suffix.empty() ? std::nullopt : std::optional(number);
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
    const bool fits = number <= std::numeric_limits<std::int32_t>::max() &&
                      number >= std::numeric_limits<std::int32_t>::min();
    return fits ? std::optional(number) : std::nullopt;
}

}  // namespace paramgen::check
