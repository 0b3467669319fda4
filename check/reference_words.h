/// What a key refers to and is referred to by, in words.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace paramgen::check {

/// One way in which two keys belong together.
struct Relation {
    bool isOutward;       ///< the key refers to the other one; else the other one refers to it
    std::string module;   ///< of the other key, as patterns: "cam0_comm_record"
    std::string section;  ///< "venc.?"
    std::string key;      ///< "venchdl"
    std::string reason;
};

/// All relations of a key, by the table of references.
std::vector<Relation> RelationsOf(std::string_view module, std::string_view section,
                                  std::string_view key);

}  // namespace paramgen::check
