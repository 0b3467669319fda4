/// The manual of all keys, by module and section.
#pragma once

#include <string>
#include <vector>

#include "output/json.h"

namespace paramgen::manual {

/// One row of keys: "vporthdl" in "vpss.0.vport.N" stands for as many as there are ports. Texts
/// that do not apply are empty.
struct ReferenceKey {
    std::string key;
    std::string type;     ///< "number", "text, 63 bytes"
    std::string initial;  ///< the default
    std::string unit;
    std::string about;
    std::string numbers;    ///< what its numbers mean
    std::string offset;     ///< "9228", "11056 + 48 N"; of several places each
    std::string condition;  ///< when it is read, if not always
};

struct ReferenceSection {
    std::string name;  ///< "vpss.0.vport.N"
    std::vector<ReferenceKey> keys;
};

struct ReferenceModule {
    std::string name;  ///< "cam0_mediamodeN"; empty: the entry file
    std::vector<ReferenceSection> sections;
};

/// A list of names that keys take.
struct ReferenceNames {
    std::string name;  ///< "qx_param_mediamode", as types call it
    std::vector<std::string> names;
};

struct Reference {
    std::vector<ReferenceModule> modules;
    std::vector<ReferenceNames> names;
};

/// The manual, from the field tables.
Reference MakeReference();

/// The manual in its forms. `version` is the program's.
std::string Markdown(const Reference& reference);
std::string Html(const Reference& reference, const std::string& version);
std::string Man(const Reference& reference, const std::string& version);
output::Json ReferenceJson(const Reference& reference);

}  // namespace paramgen::manual
