#include "tree/spelling.h"

#include "confaccess/ini_line.h"
#include "confaccess/line_reader.h"

namespace paramgen::tree {
namespace {

/// Room that the longest key leaves, which has 127 characters.
constexpr std::size_t kValueMax = 800;
static_assert(kValueMax + 128 < LineReader::kPieceMax);

/// Whether the program reads `text` in a line that says `written`.
bool Says(const std::string& written, std::string_view text) {
    const std::string line = "key = " + written;
    const IniLine parsed = ParseIniLine(line);
    return parsed.kind == IniLineKind::kValue && parsed.value == text;
}

}  // namespace

std::optional<std::string> Spelled(std::string_view text) {
    if (text.size() > kValueMax || text.find_first_of(std::string_view(";\n\0", 3)) != text.npos) {
        return std::nullopt;
    }
    const std::string plain(text);
    for (const std::string& written : {plain, "\"" + plain + "\"", "'" + plain + "'"}) {
        if (Says(written, text)) {
            return written;
        }
    }
    return std::nullopt;
}

}  // namespace paramgen::tree
