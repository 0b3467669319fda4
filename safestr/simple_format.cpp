#include "safestr/simple_format.h"

#include <cstring>

#include "safestr/digits.h"
#include "safestr/short_text.h"

namespace paramgen {
namespace {

constexpr std::size_t kNumberMax = sizeof "-2147483648" - 1;

/// Writes a number as %d or %u does. Returns its end.
char* PutNumber(char* to, char kind, std::uint32_t number) {
    if (kind == 'd' && static_cast<std::int32_t>(number) < 0) {
        *to++ = '-';
        number = 0 - number;
    }
    if (number < 10) {  // the most frequent case
        *to = static_cast<char>('0' + number);
        return to + 1;
    }
    char* const end = to + CountDigits(number, 'u');
    WriteDigits(end, 'u', number);
    return end;
}

}  // namespace

char* SimpleFormat::Write(char* to, const char* end, const Argument* arguments) const {
    const char* text = text_;
    for (const Piece* piece = pieces_;; ++piece, ++arguments) {
        if (static_cast<std::size_t>(end - to) < piece->length + kNumberMax) {
            return nullptr;
        }
        to = PutCharacters(to, {text, piece->length});
        if (piece->kind == '\0') {
            return to;
        }
        text += piece->length + 2;
        if (piece->kind != 's') {
            to = PutNumber(to, piece->kind, arguments->number);
            continue;
        }
        const std::size_t length =
            arguments->text == nullptr ? SIZE_MAX : std::strlen(arguments->text);
        if (length > static_cast<std::size_t>(end - to)) {
            return nullptr;
        }
        to = PutCharacters(to, {arguments->text, length});
    }
}

}  // namespace paramgen
