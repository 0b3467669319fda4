/// Which modules a product needs for an image, and which keys its run then asks for.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "decompile/keys.h"
#include "image/bytes.h"

namespace paramgen::decompile {

/// What has been decided about a product before its keys are.
struct Decisions {
    std::set<std::string, std::less<>> modules;      ///< those that it has
    std::map<std::string, std::string> servedModes;  ///< of lens modules: the media mode's name
    std::map<std::uint32_t, std::uint32_t> counts;   ///< by offset: counts that others overwrite
    std::set<KeyId> barred;                          ///< keys that stop a run with what they need
};

/// Decides on modules: the needed ones, those of `kept`, and optional ones whose values are not all
/// zero. `keptModes` are the media modes that lens modules serve; those outside of `kept` are
/// passed over.
Decisions DecideModules(const image::Image& image, const std::set<std::string>& kept,
                        const std::map<std::string, std::string>& keptModes);

/// Runs the loaders as for `image`: counts are what they are there, or as decided. Returns what
/// they asked for; keys that stop them are added to `decisions->barred`.
Asked AskedKeys(const image::Image& image, Decisions* decisions);

}  // namespace paramgen::decompile
