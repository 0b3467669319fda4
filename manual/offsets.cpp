#include "manual/offsets.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

namespace paramgen::manual {
namespace {

using layout::Value;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// A value of the row: the numbers that the letters of its name stand for, and where it lies.
struct Point {
    std::map<char, std::int64_t> numbers;
    std::int64_t offset;
};

/// The numbers in `name` where `pattern` has letters.
std::map<char, std::int64_t> NumbersIn(std::string_view name, std::string_view pattern) {
    std::map<char, std::int64_t> numbers;
    std::size_t at = 0;
    for (const char letter : pattern) {
        if (at < name.size() && name[at] == letter) {
            ++at;
            continue;
        }
        std::int64_t number = 0;
        while (at < name.size() && IsDigit(name[at])) {
            number = number * 10 + (name[at] - '0');
            ++at;
        }
        numbers[letter] = number;
    }
    return numbers;
}

/// How far a value moves when the number of `letter` grows by one; 0 when no two values tell.
std::int64_t StrideOf(char letter, const std::vector<Point>& points) {
    const Point& first = points.front();
    for (const Point& point : points) {
        auto same = point.numbers;
        const std::int64_t step = same[letter] - first.numbers.at(letter);
        same[letter] = first.numbers.at(letter);
        if (step != 0 && same == first.numbers) {
            return (point.offset - first.offset) / step;
        }
    }
    return 0;
}

/// The places of values that differ in their numbers alone.
std::string Formula(const std::vector<Point>& points) {
    std::map<char, std::int64_t> strides;
    std::int64_t base = points.front().offset;
    std::string text;
    for (const auto& [letter, number] : points.front().numbers) {
        strides[letter] = StrideOf(letter, points);
        base -= strides[letter] * number;
    }
    const bool fits = std::all_of(points.begin(), points.end(), [&](const Point& point) {
        std::int64_t offset = base;
        for (const auto& [letter, number] : point.numbers) {
            offset += strides[letter] * number;
        }
        return offset == point.offset;
    });
    if (!fits) {
        for (const Point& point : points) {
            text += (text.empty() ? "" : ", ") + std::to_string(point.offset);
        }
        return text;
    }
    text = std::to_string(base);
    for (const auto& [letter, stride] : strides) {
        if (stride != 0) {
            text += " + " + std::to_string(stride) + " " + letter;
        }
    }
    return text;
}

/// A member without the numbers of its elements: values of one row that differ in it are different
/// places of one key.
std::string MemberPattern(const std::string& member) {
    std::string pattern;
    for (const char c : member) {
        pattern += IsDigit(c) ? '#' : c;
    }
    pattern.erase(std::unique(pattern.begin(), pattern.end(),
                              [](char a, char b) { return a == '#' && b == '#'; }),
                  pattern.end());
    return pattern;
}

}  // namespace

std::string OffsetsOf(const layout::Pattern& pattern) {
    std::map<std::string, std::vector<Point>> places;
    std::vector<std::string> order;
    for (const Value* value : pattern.values) {
        const std::string name =
            layout::Text(layout::KeyName{value->module, value->section, value->key});
        const std::string member = MemberPattern(value->Member());
        if (places[member].empty()) {
            order.push_back(member);
        }
        places[member].push_back({NumbersIn(name, layout::Text(pattern.name)), value->offset});
    }
    std::string text;
    for (const std::string& member : order) {
        text += (text.empty() ? "" : "; ") + Formula(places[member]);
    }
    return text;
}

}  // namespace paramgen::manual
