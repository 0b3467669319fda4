/// inih, with a hash map on top.
#include <ini.h>

#include <cstdlib>
#include <string>
#include <unordered_map>

#include "bench/load/reader.h"

namespace {

using Texts = std::unordered_map<std::string, std::string>;

Texts g_texts;

int Take(void* texts, const char* section, const char* name, const char* value) {
    std::string key = section;
    key += ':';
    key += name;
    static_cast<Texts*>(texts)->insert_or_assign(std::move(key), value);
    return 1;
}

}  // namespace

int BenchLoad(const char* path) {
    return ini_parse(path, Take, &g_texts) == 0 ? 1 : 0;
}

long BenchSum(const BenchKey* keys, std::size_t count) {
    long sum = 0;
    for (std::size_t number = 0; number < count; ++number) {
        const auto text = g_texts.find(keys[number].joined);
        sum += text == g_texts.end() ? 0 : std::strtol(text->second.c_str(), nullptr, 10);
    }
    return sum;
}
