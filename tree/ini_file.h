/// An INI file with the positions of its parts: every line with its meaning, and for every key the
/// line that counts. Lines are parsed with the program's own grammar (`confaccess/ini_line.h`), so
/// a file has the same meaning here as in the program.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tree/full_key.h"

namespace paramgen::tree {

/// A part of a file's bytes: from `begin` up to `end`, which is one past its last.
struct Span {
    std::uint32_t begin = 0;
    std::uint32_t end = 0;

    std::uint32_t Size() const { return end - begin; }
};

/// Kinds of lines.
enum class LineKind : std::uint8_t {
    kNothing,      ///< nothing, or a comment alone; such lines are not kept
    kComment,      ///< a comment alone, with a directive
    kSection,      ///< opens a section
    kValue,        ///< gives a key its value
    kSyntaxError,  ///< is none of these; the program refuses the file
    kTooLong,      ///< has more than 1022 characters; the program refuses the file
    kNul,          ///< ends early in a NUL; the program refuses the file
    kIgnored,      ///< ignored: a last line of one character, or one that ends in '\'
    kCutAtNul,     ///< has a NUL within its first two characters: the program ignores the line
};

/// "No such line".
inline constexpr std::uint32_t kNoLine = UINT32_MAX;

/// Comments for the companion begin with this.
inline constexpr std::string_view kDirective = "paramtool:";

/// A line that is not empty.
struct Line {
    LineKind kind = LineKind::kNothing;
    bool hasNul = false;              ///< it has a NUL, and counts up to it
    bool isReplaced = false;          ///< a later line of the same key counts in its place
    bool isBare = false;              ///< kSection: "[]", which leaves the section what it was
    std::uint32_t number = 0;         ///< from 1
    Span text;                        ///< the whole line without its newline
    Span name;                        ///< of the section or key
    Span value;                       ///< of the key, without quotes
    std::uint32_t comment = 0;        ///< where its comment begins; the end of `text`: it has none
    std::uint32_t section = kNoLine;  ///< number in `lines` of the header that it stands under
    std::uint32_t former = kNoLine;  ///< that of the line of the same key before, which it replaces
};

/// A file. A file that the program refuses is parsed too, for findings about it, but has no keys.
class IniFile {
public:
    /// Parses `bytes`, at most as many as the program reads (`kTextMax`).
    explicit IniFile(std::string bytes);

    IniFile(const IniFile&) = delete;
    IniFile& operator=(const IniFile&) = delete;

    const std::string& bytes() const { return bytes_; }

    /// Whether the program accepts the file; otherwise it behaves as without the file.
    bool IsAccepted() const { return isAccepted_; }

    /// In the file's order.
    std::span<const Line> lines() const { return lines_; }

    std::string_view TextOf(Span part) const {
        return std::string_view(bytes_).substr(part.begin, part.Size());
    }

    /// The full key of a kValue line, "section:key", or the name of a kSection line, in lower case.
    std::string KeyOf(const Line& line) const;

    /// The name of the section that a kValue line stands in; empty before the first section.
    std::string_view SectionOf(const Line& line) const;

    /// The line that counts for `key` ("section:key", case-insensitive): the last one, be it a key
    /// or a section of just this name, which hides the key. Null when there is none, and when the
    /// file is not accepted.
    const Line* Find(std::string_view key) const;

    /// The number of different keys, sections included, as the program counts them.
    std::size_t KeyCount() const { return keyCount_; }

private:
    /// A key: the line that counts, and a hash of its name in any case.
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t line = kNoLine;
    };

    void TakeLines();
    void Keep(const Line& line);
    void SetKey(Line* line);
    FullKey NameOf(const Line& line) const;
    std::size_t SlotOf(std::uint32_t hash, std::string_view name) const;
    void GrowSlots();

    std::string bytes_;
    std::vector<Line> lines_;
    bool isAccepted_ = true;
    std::vector<Slot> slots_ = std::vector<Slot>(64);  ///< of all keys; half of them are free
    std::size_t keyCount_ = 0;
};

/// A text in lower case, as the program compares sections and keys. Only ASCII letters change.
std::string LowerCase(std::string_view text);

}  // namespace paramgen::tree
