#include "output/shown_text.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace paramgen::output {
namespace {

/// Code points from `first` to `last`.
struct Range {
    std::uint32_t first;
    std::uint32_t last;
};

/// Characters that combine with the one before them, or have no width.
constexpr Range kCombining[] = {
    {0x0300, 0x036F}, {0x0483, 0x0489}, {0x0591, 0x05BD}, {0x05BF, 0x05BF}, {0x05C1, 0x05C2},
    {0x05C4, 0x05C5}, {0x05C7, 0x05C7}, {0x0610, 0x061A}, {0x064B, 0x065F}, {0x0670, 0x0670},
    {0x06D6, 0x06DC}, {0x06DF, 0x06E4}, {0x06E7, 0x06E8}, {0x06EA, 0x06ED}, {0x0711, 0x0711},
    {0x0730, 0x074A}, {0x07A6, 0x07B0}, {0x0900, 0x0902}, {0x093A, 0x093A}, {0x093C, 0x093C},
    {0x0941, 0x0948}, {0x094D, 0x094D}, {0x0951, 0x0957}, {0x0E31, 0x0E31}, {0x0E34, 0x0E3A},
    {0x0E47, 0x0E4E}, {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF}, {0x200B, 0x200D}, {0x20D0, 0x20FF},
    {0x302A, 0x302D}, {0x3099, 0x309A}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}, {0xE0100, 0xE01EF},
};

/// Characters that take two columns.
constexpr Range kWide[] = {
    {0x1100, 0x115F},   {0x231A, 0x231B},   {0x2329, 0x232A},   {0x23E9, 0x23EC},
    {0x25FD, 0x25FE},   {0x2614, 0x2615},   {0x2648, 0x2653},   {0x26A1, 0x26A1},
    {0x26AA, 0x26AB},   {0x2705, 0x2705},   {0x274C, 0x274C},   {0x2753, 0x2755},
    {0x2E80, 0x303E},   {0x3041, 0x4DBF},   {0x4E00, 0xA4CF},   {0xA960, 0xA97F},
    {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},   {0xFE10, 0xFE19},   {0xFE30, 0xFE6F},
    {0xFF00, 0xFF60},   {0xFFE0, 0xFFE6},   {0x1F300, 0x1F64F}, {0x1F680, 0x1F6FF},
    {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD},
};

/// Characters that are not shown as they are: controls, and marks and isolates of direction.
constexpr Range kEscaped[] = {
    {0x0000, 0x001F}, {0x007F, 0x009F}, {0x061C, 0x061C}, {0x200E, 0x200F},
    {0x2028, 0x202E}, {0x2066, 0x2069}, {0xFEFF, 0xFEFF},
};

template <std::size_t kCount>
bool IsIn(const Range (&ranges)[kCount], std::uint32_t code) {
    return std::any_of(std::begin(ranges), std::end(ranges), [code](const Range& range) {
        return range.first <= code && code <= range.last;
    });
}

Character Invalid(std::string_view text) {
    return {.code = static_cast<unsigned char>(text.front()), .size = 1, .isValid = false};
}

/// The number of bytes of a character that begins with `lead`, and the bits of it that count; 0
/// when no character begins so.
std::uint8_t SizeByLead(unsigned lead, unsigned* bits) {
    if (lead >= 0xC2 && lead <= 0xDF) {
        *bits = lead & 0x1FU;
        return 2;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        *bits = lead & 0x0FU;
        return 3;
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        *bits = lead & 0x07U;
        return 4;
    }
    return 0;
}

bool IsCodePoint(std::uint32_t code, std::uint8_t size) {
    constexpr std::uint32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    return code >= kLeast[size] && code <= 0x10FFFF && !isSurrogate;
}

std::string ShownCharacter(const Character& character, std::string_view bytes) {
    char text[16];
    if (!character.isValid) {
        std::snprintf(text, sizeof text, "<%02x>", character.code);
        return text;
    }
    if (IsIn(kEscaped, character.code)) {
        std::snprintf(text, sizeof text, "<U+%04X>", character.code);
        return text;
    }
    return std::string(bytes.substr(0, character.size));
}

/// Number of characters at the beginning of `text` that are printable ASCII: each is shown as it
/// is, in one column.
std::size_t CountPlain(std::string_view text) {
    std::size_t count = 0;
    while (count < text.size() && text[count] >= ' ' && text[count] <= '~') {
        ++count;
    }
    return count;
}

}  // namespace

Character FirstCharacter(std::string_view text) {
    const unsigned lead = static_cast<unsigned char>(text.front());
    if (lead < 0x80) {
        return {.code = lead, .size = 1, .isValid = true};
    }
    unsigned code = 0;
    const std::uint8_t size = SizeByLead(lead, &code);
    if (size == 0 || text.size() < size) {
        return Invalid(text);
    }
    for (const char c : text.substr(1, size - 1U)) {
        const unsigned byte = static_cast<unsigned char>(c);
        if ((byte & 0xC0U) != 0x80) {
            return Invalid(text);
        }
        code = code << 6U | (byte & 0x3FU);
    }
    if (!IsCodePoint(code, size)) {
        return Invalid(text);
    }
    return {.code = code, .size = size, .isValid = true};
}

int WidthOf(std::uint32_t code) {
    if (code < 0x300) {
        return 1;
    }
    return IsIn(kCombining, code) ? 0 : (IsIn(kWide, code) ? 2 : 1);
}

std::string Shown(std::string_view text) {
    const std::size_t plain = CountPlain(text);
    std::string shown(text.substr(0, plain));
    text.remove_prefix(plain);
    while (!text.empty()) {
        const Character character = FirstCharacter(text);
        shown += ShownCharacter(character, text);
        text.remove_prefix(character.size);
    }
    return shown;
}

ShownLine ShowLine(std::string_view line, std::size_t from, std::size_t to) {
    constexpr std::size_t kTab = 8;
    ShownLine shown;
    std::size_t column = 0;
    for (std::size_t at = 0; at < line.size();) {
        const Character character = FirstCharacter(line.substr(at));
        const bool isTab = character.code == '\t' && character.isValid;
        const std::string text = isTab ? std::string(kTab - column % kTab, ' ')
                                       : ShownCharacter(character, line.substr(at));
        shown.begin = at <= from ? column : shown.begin;
        shown.end = at < to ? column + WidthOf(text) : shown.end;
        column += WidthOf(text);
        shown.text += text;
        at += character.size;
    }
    shown.begin = from >= line.size() ? column : shown.begin;
    shown.end = std::max(shown.begin, shown.end);
    return shown;
}

std::size_t WidthOf(std::string_view shown) {
    std::size_t width = CountPlain(shown);
    shown.remove_prefix(width);
    while (!shown.empty()) {
        const Character character = FirstCharacter(shown);
        width += static_cast<std::size_t>(WidthOf(character.code));
        shown.remove_prefix(character.size);
    }
    return width;
}

std::size_t CountCharacters(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); ++count) {
        text.remove_prefix(FirstCharacter(text).size);
    }
    return count;
}

std::string ValidUtf8(std::string_view text) {
    const std::size_t plain = CountPlain(text);
    std::string valid(text.substr(0, plain));
    text.remove_prefix(plain);
    while (!text.empty()) {
        const Character character = FirstCharacter(text);
        valid += character.isValid ? text.substr(0, character.size) : "\xEF\xBF\xBD";
        text.remove_prefix(character.size);
    }
    return valid;
}

}  // namespace paramgen::output
