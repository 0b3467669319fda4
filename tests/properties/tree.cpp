#include "properties/tree.h"

#include <algorithm>

namespace paramgen::testing {
namespace {

/// The lines of a text, with their line ends; the last one may have none.
std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size() - 1);
        lines.push_back(text.substr(at, end + 1 - at));
        at = end + 1;
    }
    return lines;
}

std::string Joined(const std::vector<std::string>& parts) {
    std::string text;
    for (const std::string& part : parts) {
        text += part;
    }
    return text;
}

/// Whether the line begins a section. Empty brackets do not: they continue the section before.
bool BeginsSection(const std::string& line) {
    const std::string code = line.substr(0, line.find(';'));
    const std::size_t first = code.find_first_not_of(" \t\r\n");
    const std::size_t last = code.find_last_not_of(" \t\r\n");
    return first != std::string::npos && code[first] == '[' && code[last] == ']' &&
           last > first + 1;
}

/// A line that has no meaning in any section: an unknown key, a comment or a blank line.
std::string UnknownLine(Random& random) {
    const std::string number = std::to_string(random.Below(1000));
    return random.OneOf({"unknown key = ", "zz_", "# enable = ", "; enable = ", "\t#", "    ;",
                         "zz'\"[]%s%n=", "", "   ", "ZZ = '"}) +
           number + " = 1\n";
}

}  // namespace

Tree ReadTree(const std::filesystem::path& directory) {
    Tree tree;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(directory)) {
        if (entry.is_regular_file()) {
            tree[std::filesystem::relative(entry.path(), directory).string()] =
                ReadFile(entry.path());
        }
    }
    return tree;
}

std::string WithUnknownThings(Random& random, const std::string& text) {
    std::vector<std::string> lines = Lines(text);
    for (std::size_t things = random.Below(6); things > 0; --things) {
        const std::size_t at = lines.empty() ? 0 : random.Below(lines.size());
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), UnknownLine(random));
    }
    // Unknown sections are inserted where a known one begins, so that no known key gets into them.
    const auto section = std::find_if(lines.begin(), lines.end(), BeginsSection);
    if (section != lines.end()) {
        lines.insert(section, "[zz.unknown." + std::to_string(random.Below(9)) +
                                  "]\nenable = 1\nnum = 99999999999\n");
    }
    return Joined(lines);
}

std::string WithSectionsReordered(Random& random, const std::string& text) {
    std::vector<std::string> parts = {""};
    for (const std::string& line : Lines(text)) {
        if (BeginsSection(line)) {
            parts.emplace_back();
        }
        parts.back() += line;
    }
    const bool lastStays = text.empty() || text.back() != '\n';
    const std::size_t end = parts.size() - (lastStays ? 1 : 0);
    for (std::size_t i = end; i > 2; --i) {
        std::swap(parts[i - 1], parts[1 + random.Below(i - 1)]);
    }
    return Joined(parts);
}

std::string WithKey(const std::string& text, const std::string& key, const std::string& value) {
    const std::size_t colon = key.find(':');
    return text + "[" + key.substr(0, colon) + "]\n" + key.substr(colon + 1) + " = " + value + "\n";
}

}  // namespace paramgen::testing
