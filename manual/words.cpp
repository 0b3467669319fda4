#include "manual/words.h"

namespace paramgen::manual {
namespace {

bool IsCapital(char c) {
    return c >= 'A' && c <= 'Z';
}
bool IsSmall(char c) {
    return c >= 'a' && c <= 'z';
}
bool IsDecimalDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

std::string SnakeCase(std::string_view name) {
    std::string words;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const char c = name[i];
        const bool isWord = IsCapital(c) || IsSmall(c) || IsDecimalDigit(c);
        // A word begins with a capital behind a small letter, or before one.
        const bool isAfterWord = i > 0 && IsSmall(name[i - 1]);
        const bool isBeforeWord = i + 1 < name.size() && IsSmall(name[i + 1]);
        const bool begins = IsCapital(c) && i > 0 && (isAfterWord || isBeforeWord);
        if ((begins || !isWord) && !words.empty() && words.back() != '_') {
            words += '_';
        }
        if (isWord) {
            words += IsCapital(c) ? static_cast<char>(c - 'A' + 'a') : c;
        }
    }
    while (!words.empty() && words.back() == '_') {
        words.pop_back();
    }
    return words;
}

std::string UpperCase(std::string_view name) {
    std::string words = SnakeCase(name);
    for (char& c : words) {
        c = IsSmall(c) ? static_cast<char>(c - 'a' + 'A') : c;
    }
    return words;
}

}  // namespace paramgen::manual
