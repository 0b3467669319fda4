// Renews the generated parts of files: make_parts FILE...
// With --check, as the first argument, it changes nothing and fails when a part is out of date.

#include <cstdio>
#include <fstream>
#include <optional>
#include <span>
#include <sstream>
#include <string>

#include "layout/made_parts.h"

namespace {

std::string ReadFile(const char* path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// Renews or checks one file. Returns false when it is malformed or, checking, out of date.
bool Renew(const char* path, bool isCheck) {
    const std::string text = ReadFile(path);
    std::string error;
    const std::optional<std::string> renewed = paramgen::layout::RenewMadeParts(text, &error);
    if (!renewed) {
        static_cast<void>(std::fprintf(stderr, "%s: %s\n", path, error.c_str()));
        return false;
    }
    if (isCheck) {
        if (*renewed != text) {
            static_cast<void>(std::fprintf(stderr, "%s is stale: run make_parts %s\n", path, path));
        }
        return *renewed == text;
    }
    std::ofstream(path, std::ios::binary) << *renewed;
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    const std::span<char*> arguments(argv, static_cast<std::size_t>(argc));
    bool isCheck = false;
    bool isGood = true;
    for (const char* argument : arguments.subspan(arguments.empty() ? 0 : 1)) {
        if (std::string(argument) == "--check") {
            isCheck = true;
        } else {
            isGood = Renew(argument, isCheck) && isGood;
        }
    }
    return isGood ? 0 : 1;
}
