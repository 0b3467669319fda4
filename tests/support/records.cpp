#include "support/records.h"

#include <algorithm>
#include <cctype>
#include <functional>

namespace paramgen::testing {
namespace {

/// Matches a text piece by piece; after a mismatch nothing matches any more. Regular expressions
/// would be too slow for the many records that tests look at.
class Scanner {
public:
    Scanner(std::string_view text, std::size_t at)
        : rest_(text.substr(at)), length_(rest_.size()) {}

    Scanner& Literal(std::string_view text) {
        ok_ = ok_ && rest_.starts_with(text);
        return Skip(ok_ ? text.size() : 0);
    }
    Scanner& Optional(std::string_view text) {
        return Skip(rest_.starts_with(text) ? text.size() : 0);
    }

    /// Matches at least `least` and at most `most` characters for which `is` returns true.
    template <typename Is>
    Scanner& Run(Is is, std::size_t least, std::size_t most, std::string* taken = nullptr) {
        std::size_t length = 0;
        while (length < std::min(most, rest_.size()) && is(rest_[length])) {
            ++length;
        }
        ok_ = ok_ && length >= least;
        if (taken != nullptr) {
            *taken = rest_.substr(0, length);
        }
        return Skip(length);
    }

    bool Ok() const { return ok_; }
    std::size_t Length() const { return length_ - rest_.size(); }

private:
    Scanner& Skip(std::size_t count) {
        rest_.remove_prefix(count);
        return *this;
    }

    std::string_view rest_;
    std::size_t length_;
    bool ok_ = true;
};

constexpr std::size_t kAny = ~std::size_t{0};

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsUpper(char c) {
    return c >= 'A' && c <= 'Z';
}
bool IsWord(char c) {
    return c == '_' || IsDigit(c) || IsUpper(c) || (c >= 'a' && c <= 'z');
}

/// Lengths of a record's prefix, "ESC[m[LEVEL-MODULE]:FUNCTION[LINE]:", in which LEVEL may be
/// coloured: of the whole, and of the part before "[LINE]". Both are 0 when there is no prefix.
struct Prefix {
    std::size_t length;
    std::size_t lengthToLine;
};

Prefix TakePrefix(std::string_view text, std::size_t at, LogRecord* record) {
    Scanner scanner(text, at);
    scanner.Literal("\033[m[");
    if (scanner.Ok() && text.substr(at + scanner.Length()).starts_with("\033[1;")) {
        scanner.Literal("\033[1;").Run(IsDigit, 1, kAny).Literal("m");
    }
    scanner.Run(IsUpper, 0, kAny, &record->level).Optional("\033[m");
    scanner.Literal("-").Run([](char c) { return c != ']'; }, 0, kAny, &record->module);
    scanner.Literal("]:").Run(IsWord, 0, kAny, &record->function);
    const std::size_t lengthToLine = scanner.Length();
    scanner.Literal("[").Run(IsDigit, 1, kAny).Literal("]:");
    return scanner.Ok() ? Prefix{scanner.Length(), lengthToLine} : Prefix{0, 0};
}

/// Matches the time stamp of a library log record, "[HH:MM:SS:mmm]" or "[HH:MM:SS:mmmm]".
Scanner& TakeTime(Scanner& scanner) {
    return scanner.Literal("[")
        .Run(IsDigit, 2, 2)
        .Literal(":")
        .Run(IsDigit, 2, 2)
        .Literal(":")
        .Run(IsDigit, 2, 2)
        .Literal(":")
        .Run(IsDigit, 3, 4)
        .Literal("]");
}

std::size_t TimeLength(std::string_view text, std::size_t at) {
    Scanner scanner(text, at);
    return TakeTime(scanner).Ok() ? scanner.Length() : 0;
}

/// Length of a line of the library log, in its long or its short form; 0 when there is none.
std::size_t LibraryLineLength(std::string_view text, std::size_t at) {
    Scanner scanner(text, at);
    TakeTime(scanner).Literal("[").Run(IsUpper, 0, kAny).Literal("]");
    scanner.Run([](char c) { return c != '\n'; }, 0, kAny).Literal("\n");
    return scanner.Ok() ? scanner.Length() : 0;
}

/// The text with pieces replaced. A piece begins with `start`, and `lengthAt` returns its length,
/// or 0 for none.
std::string Replaced(std::string_view text, char start,
                     const std::function<std::size_t(std::string_view, std::size_t)>& lengthAt,
                     std::string_view by) {
    std::string result;
    std::size_t at = 0;
    for (std::size_t next = text.find(start); next != std::string_view::npos;) {
        const std::size_t length = lengthAt(text, next);
        if (length != 0) {
            result.append(text.substr(at, next - at)).append(by);
            at = next + length;
        }
        next = text.find(start, next + std::max<std::size_t>(length, 1));
    }
    return result.append(text.substr(at));
}

}  // namespace

std::vector<LogRecord> ParseRecords(std::string_view output) {
    const std::string text = Replaced(output, '[', LibraryLineLength, "");
    std::vector<LogRecord> records;
    std::size_t end = 0;
    for (std::size_t at = text.find('\033'); at != std::string::npos;) {
        LogRecord record;
        const std::size_t length = TakePrefix(text, at, &record).length;
        if (length != 0) {
            if (!records.empty()) {
                records.back().message = text.substr(end, at - end);
            }
            records.push_back(record);
            end = at + length;
        }
        at = text.find('\033', at + std::max<std::size_t>(length, 1));
    }
    if (!records.empty()) {
        records.back().message = text.substr(end);
    }
    return records;
}

std::vector<std::string> TextsOf(std::string_view output, std::string_view level) {
    std::vector<std::string> texts;
    for (const LogRecord& record : ParseRecords(output)) {
        if (record.level == level) {
            texts.push_back(record.Text());
        }
    }
    return texts;
}

std::string MaskTimes(std::string_view output) {
    return Replaced(output, '[', TimeLength, "[time]");
}

std::string MaskVolatile(std::string_view output) {
    const std::string text = MaskTimes(output);
    std::string result;
    std::size_t at = 0;
    for (std::size_t next = text.find('\033'); next != std::string::npos;) {
        LogRecord record;
        const Prefix prefix = TakePrefix(text, next, &record);
        if (prefix.length != 0 && record.module == "PARAM") {
            result += text.substr(at, next + prefix.lengthToLine - at) + "[#]:";
            at = next + prefix.length;
        }
        next = text.find('\033', next + std::max<std::size_t>(prefix.length, 1));
    }
    return result + text.substr(at);
}

}  // namespace paramgen::testing
