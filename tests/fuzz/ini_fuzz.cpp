// The INI reader on arbitrary bytes, compared with the tests' own reader.

#include <sys/mman.h>
#include <unistd.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "confaccess/ini_reader.h"
#include "confaccess/number.h"
#include "fuzz/fuzz.h"
#include "golden/independent_ini.h"

namespace paramgen::testing {
namespace {

const char kNothing[] = "nothing";

/// A file in memory that can be opened by a path.
class MemoryFile {
public:
    MemoryFile() : name_("/proc/self/fd/" + std::to_string(descriptor_)) {
        Require(descriptor_ != -1, "a file in memory");
    }

    const char* Fill(const std::string& bytes) const {
        Require(ftruncate(descriptor_, 0) == 0, "an empty file");
        Require(pwrite(descriptor_, bytes.data(), bytes.size(), 0) ==
                    static_cast<ssize_t>(bytes.size()),
                "a full file");
        return name_.c_str();
    }

private:
    int descriptor_ = memfd_create("ini", 0);
    std::string name_;
};

void CompareValue(const Dictionary& dictionary, const std::string& key,
                  const std::optional<std::string>& value) {
    const char* found = dictionary.FindText(key, kNothing);
    Require(found != kNothing, "every key is there");
    Require(value.has_value() ? found != nullptr && *value == found : found == nullptr,
            "every value is as it stands in the file");
    if (found != nullptr) {
        static_cast<void>(FindInteger(dictionary, key.c_str(), 0));
        static_cast<void>(ParseInteger(found, 10));
        static_cast<void>(ParseDouble(found));
    }
    // Look-ups are case-insensitive and use the first 1,024 characters.
    std::string upper = key;
    for (char& c : upper) {
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    }
    Require(key.size() > 1024 || FindText(dictionary, upper, kNothing) == found,
            "a key in capitals is the same key");
}

/// The text that has the same meaning without NULs. Lines are read in pieces of at most 1,023
/// bytes, and a NUL hides the rest of its piece, with the line end. Nothing when the file must be
/// refused because a line has lost its line end.
std::optional<std::string> WithoutNuls(const std::string& text) {
    constexpr std::size_t kPieceMax = 1023;
    std::string same;
    for (std::size_t at = 0; at < text.size();) {
        const std::string_view rest = std::string_view(text).substr(at, kPieceMax);
        const std::string_view piece = rest.substr(0, rest.find('\n') + 1);
        const bool hasNewline = !piece.empty();
        const std::string_view taken = hasNewline ? piece : rest;
        const std::string_view line = taken.substr(0, taken.find('\0'));
        at += taken.size();
        if (line.size() == taken.size()) {
            same += line;
        } else if (line.size() > 1) {
            if (hasNewline || taken.size() == kPieceMax) {
                return std::nullopt;
            }
            same += line;
        }
    }
    return same;
}

void Compare(const Dictionary* dictionary, const std::string& text) {
    const std::optional<std::string> same = WithoutNuls(text);
    const std::optional<independent::IniKeys> keys =
        same ? independent::ReadIniText(*same) : std::nullopt;
    Require((dictionary != nullptr) == keys.has_value(), "a file is good or it is not");
    if (dictionary == nullptr) {
        return;
    }
    Require(dictionary->Count() == keys->size(), "no key too many, none too few");
    for (const auto& [key, value] : *keys) {
        CompareValue(*dictionary, key, value);
    }
}

}  // namespace
}  // namespace paramgen::testing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace paramgen;
    static const testing::MemoryFile file;
    const std::string text(reinterpret_cast<const char*>(data), size);
    // Reading a second file must not change the dictionary of the first one.
    Arena arena;
    const Dictionary* dictionary = LoadIniFile(file.Fill(text), &arena);
    testing::Compare(dictionary, text);
    const std::string moved = "; as text of another length\n" + text;
    testing::Compare(LoadIniFile(file.Fill(moved), &arena), moved);
    testing::Compare(dictionary, text);
    return 0;
}
