#include "layout/fuzz_words.h"

#include <set>

#include "layout/layout.h"

namespace paramgen::layout {

std::string FuzzWords() {
    std::set<std::string> words;
    for (const std::string& module : Modules()) {
        words.insert("@" + module + "\\x0A");
    }
    for (const Pattern& pattern : Patterns()) {
        for (const Value* value : pattern.values) {
            words.insert("\\x0A[" + value->section + "]\\x0A");
            words.insert("\\x0A" + value->key + "=");
        }
    }
    for (const Value& value : Values()) {
        const NameTable* names = NamesOf(value);
        if (names != nullptr) {
            const std::vector<std::string> all = AllNames(*names);
            words.insert(all.begin(), all.end());
        }
    }
    std::string lines;
    for (const std::string& word : words) {
        lines += "\"" + word + "\"\n";
    }
    return lines;
}

}  // namespace paramgen::layout
