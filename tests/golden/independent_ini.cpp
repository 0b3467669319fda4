#include "golden/independent_ini.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace paramgen::testing::independent {
namespace {

constexpr char kBlanks[] = " \t\n\v\f\r";

std::string Strip(const std::string& text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string::npos) {
        return "";
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// The value in the text behind the '=' of a line.
std::string ValueIn(const std::string& behind) {
    const std::string text = Strip(behind);
    if (!text.empty() && (text[0] == '\'' || text[0] == '"')) {
        // A closing quote may be missing; text behind it is ignored.
        const std::string inner = text.substr(1, text.find(text[0], 1) - 1);
        if (!inner.empty()) {
            return inner;
        }
    }
    const std::string value = Strip(text.substr(0, text.find('#')));
    return value == "\"\"" || value == "''" ? "" : value;
}

/// Adds the key or section of one line. Returns false for a syntax error.
bool AddLine(const std::string& line, std::string& section, IniKeys& keys) {
    const std::string text = Strip(line.substr(0, line.find(';')));
    if (text.empty() || text[0] == '#') {
        return true;
    }
    if (text.front() == '[' && text.back() == ']') {
        const std::string name = text.substr(1, text.find(']') - 1);
        // Empty brackets continue the section before.
        section = name.empty() ? section : Lower(Strip(name));
        keys[section] = std::nullopt;
        return true;
    }
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos || equals == 0) {
        return false;
    }
    keys[section + ":" + Lower(Strip(text.substr(0, equals)))] = ValueIn(text.substr(equals + 1));
    return true;
}

std::optional<IniKeys> ReadIniFile(const std::filesystem::path& path) {
    const std::ifstream file(path, std::ios::binary);
    if (!file.is_open()) {
        return std::nullopt;
    }
    std::ostringstream text;
    text << file.rdbuf();
    return ReadIniText(text.str());
}

std::optional<std::string> Find(const IniKeys& keys, const std::string& key) {
    const auto found = keys.find(Lower(key));
    return found == keys.end() ? std::nullopt : found->second;
}

/// The path of a module's file. `path` is only used when it contains a '/'.
std::string ModuleFile(const std::string& path, const std::filesystem::path& directory,
                       const std::string& file) {
    if (path.find('/') == std::string::npos) {
        return (directory / file).string();
    }
    const bool closed = path.size() >= 2 && path.back() == '/';
    return (closed ? path.substr(0, path.size() - 1) : path) + "/" + file;
}

constexpr std::size_t kLongestKey = 127;
constexpr std::size_t kLongestPath = 255;

/// Whether "MODULE:ITEM" is too long for a key.
bool IsTooLong(const std::string& module, const std::string& item) {
    return module.size() + 1 + item.size() > kLongestKey;
}

/// Adds a module of the entry file. Leaves it out when a text of it is too long or its file cannot
/// be read. Returns false when the entry file must be refused.
bool AddModule(const IniKeys& entry, long number, const std::filesystem::path& directory,
               Product& product) {
    const std::optional<std::string> module = Find(entry, "module:module" + std::to_string(number));
    if (!module) {
        return false;
    }
    if (module->size() <= kLongestKey && product.count(*module) != 0) {
        return false;
    }
    if (IsTooLong(*module, "path")) {
        return true;
    }
    const std::string path = Find(entry, *module + ":path").value_or("");
    if (path.find('/') != std::string::npos && path.size() > kLongestPath) {
        return true;
    }
    if (IsTooLong(*module, "cfg_filename")) {
        return true;
    }
    const std::optional<std::string> file = Find(entry, *module + ":cfg_filename");
    if (!file || file->empty()) {
        return false;
    }
    const std::string whole = ModuleFile(path, directory, *file);
    if (whole.size() > kLongestPath) {
        return true;
    }
    const std::filesystem::path found(whole);
    const std::optional<IniKeys> keys =
        ReadIniFile(found.is_absolute() ? found : directory / found);
    if (keys) {
        product[*module] = *keys;
    }
    return true;
}

}  // namespace

std::string Lower(std::string text) {
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        }
    }
    return text;
}

/// Lines are read in pieces of at most 1023 bytes. The bytes of a piece from a NUL on are lost,
/// with the line end.
std::optional<IniKeys> ReadIniText(const std::string& text) {
    constexpr std::size_t kLongestRead = 1023;
    IniKeys keys;
    std::string section;
    bool understood = true;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find('\n', at);
        const std::size_t whole = (end == std::string::npos ? text.size() : end + 1) - at;
        const std::size_t length = std::min(whole, kLongestRead);
        std::string line = text.substr(at, length);
        at += length;
        const bool ended = line.back() != '\n' && length < kLongestRead;
        line = line.substr(0, line.find('\0'));
        if (line.size() <= 1) {
            continue;
        }
        if (line.back() != '\n' && !ended) {
            return std::nullopt;
        }
        const bool dropped = line.back() == '\\';
        if (!dropped && !AddLine(line, section, keys)) {
            understood = false;
        }
    }
    return understood ? std::optional<IniKeys>(keys) : std::nullopt;
}

std::optional<Product> ReadProduct(const std::filesystem::path& directory) {
    const std::optional<IniKeys> entry = ReadIniFile(directory / "config_cfgaccess_entry.ini");
    if (!entry) {
        return std::nullopt;
    }
    const std::string count = Find(*entry, "module:module_num").value_or("0");
    const long modules = std::strtol(count.c_str(), nullptr, 0);
    if (modules == 0) {
        return std::nullopt;
    }
    Product product;
    for (long number = 1; number <= modules; ++number) {
        if (!AddModule(*entry, number, directory, product)) {
            return std::nullopt;
        }
    }
    return product;
}

}  // namespace paramgen::testing::independent
