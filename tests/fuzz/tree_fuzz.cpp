// The companion's reader of INI files on arbitrary bytes, compared with the program's dictionary.

#include <string>
#include <string_view>

#include "confaccess/ini_reader.h"
#include "fuzz/fuzz.h"
#include "tree/ini_file.h"

namespace paramgen::testing {
namespace {

const char kNothing[] = "nothing";

void CompareKey(const Dictionary& dictionary, const tree::IniFile& file, const tree::Line& line) {
    const std::string key = file.KeyOf(line);
    const tree::Line* counting = file.Find(key);
    Require(counting != nullptr, "every key has a line that counts");
    Require((counting != &line) == line.isReplaced, "a line that is replaced does not count");
    const char* value = dictionary.FindText(key, kNothing);
    Require(value != kNothing, "a key is one for the program as well");
    if (counting->kind == tree::LineKind::kSection) {
        Require(value == nullptr, "a section has no value");
    } else {
        Require(value != nullptr && file.TextOf(counting->value) == value, "values are the same");
    }
}

void RequireOrder(const tree::Line& line, std::size_t size) {
    Require(line.number != 0 && line.text.begin <= line.text.end && line.text.end <= size,
            "a line lies in the file");
    Require(line.text.begin <= line.comment && line.comment <= line.text.end,
            "a comment lies in its line");
    if (line.kind == tree::LineKind::kValue || line.kind == tree::LineKind::kSection) {
        Require(line.text.begin <= line.name.begin && line.name.end <= line.text.end,
                "a name lies in its line");
    }
    if (line.kind == tree::LineKind::kValue) {
        Require(line.name.end < line.value.begin && line.value.end <= line.comment,
                "a value lies between its name and the comment");
    }
}

}  // namespace
}  // namespace paramgen::testing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace paramgen;
    using testing::Require;
    static const std::string path = testing::FuzzDirectory() + "/module.ini";
    const std::string text(reinterpret_cast<const char*>(data), size);
    testing::WriteBytes(path, text);
    Arena arena;
    const Dictionary* dictionary = LoadIniFile(path.c_str(), &arena);
    const tree::IniFile file(text);
    Require((dictionary != nullptr) == file.IsAccepted(), "a file is good or it is not");
    for (const tree::Line& line : file.lines()) {
        testing::RequireOrder(line, size);
        const bool isKey =
            line.kind == tree::LineKind::kValue || line.kind == tree::LineKind::kSection;
        if (dictionary != nullptr && isKey) {
            testing::CompareKey(*dictionary, file, line);
        }
    }
    Require(dictionary == nullptr || dictionary->Count() == file.KeyCount(),
            "no key too many, none too few");
    return 0;
}
