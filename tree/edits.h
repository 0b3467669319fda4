/// Many changes in the text of an INI file at once.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tree/ini_file.h"

namespace paramgen::tree {

/// What a key is to become.
struct KeyChange {
    std::string key;                   ///< "section:key"
    std::optional<std::string> value;  ///< none: the key is taken out
};

/// The bytes of `file`, which is accepted, after all of `changes`, each as `WithKey` and
/// `WithoutKey` do it. Of several changes for one key the last one counts. What no line can say
/// stays as it was. The file is taken apart once more, however many changes there are.
std::string WithChanges(const IniFile& file, const std::vector<KeyChange>& changes);

}  // namespace paramgen::tree
