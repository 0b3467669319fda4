/// Finds keys that compile to an image.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "decompile/keys.h"
#include "image/bytes.h"

namespace paramgen::decompile {

/// Keys of a tree that are to be kept where they do what is wanted.
struct Kept {
    std::set<std::string> modules;                   ///< optional ones that it has
    std::map<std::string, std::string> servedModes;  ///< of its lens modules
    KeyTexts texts;                                  ///< keys that it has
    std::vector<compile::Answer> answers;            ///< the queries of its run
    image::Image image = {};                         ///< the image of its run
};

struct Wish {
    bool all = false;            ///< every key that is read, at its default too
    const Kept* kept = nullptr;  ///< null: nothing
};

/// What has been found.
struct Solution {
    Keys keys;
    Asked asked;                      ///< what the loaders ask for
    image::Image image = {};          ///< what they make of it: the wanted one but for `lost`
    std::vector<std::uint32_t> lost;  ///< offsets of the bytes that are not as wanted
};

/// Finds keys for `image`. The result is found by running the loaders on them.
Solution Solve(const image::Image& image, const Wish& wish);

}  // namespace paramgen::decompile
