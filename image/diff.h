/// What two images differ in: key by key, and by member where no key owns the bytes.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "image/entry.h"
#include "image/input.h"
#include "output/json.h"

namespace paramgen::image {

/// A value on one side.
struct Side {
    Entry entry;
    bool isRead;     ///< this side's run asks for the key
    bool isSet;      ///< of a tree: its key is there
    bool isDefault;  ///< it is what an absent key stands for
};

/// A key, or a member without one, that differs.
struct Difference {
    std::vector<const layout::Value*> places;  ///< all values that differ in the same way
    Side before;
    Side after;
};

/// Compares two images. Values of one key that differ in the same way are one difference.
std::vector<Difference> Differences(const Input& before, const Input& after);

/// Where the key of a value stands in a tree: "devmng.ini:12"; empty when it does not.
using PlaceOfKey = std::function<std::string(const layout::Value&)>;

/// How differences are told.
struct DiffStyle {
    bool offsets = false;  ///< with the offsets of all places
    bool colors = false;
    PlaceOfKey placeBefore = nullptr;  ///< null: that side is no tree
    PlaceOfKey placeAfter = nullptr;
};

/// One line for each difference.
std::string TextDiff(const std::vector<Difference>& differences, const DiffStyle& style);

/// A table for a review comment, of at most 65,000 characters.
std::string MarkdownDiff(const std::vector<Difference>& differences, const DiffStyle& style);

/// The differences as an object, schema 1.
output::Json JsonDiff(const Input& before, const Input& after,
                      const std::vector<Difference>& differences);

/// How many differ, by module.
std::string DiffStat(const std::vector<Difference>& differences);

}  // namespace paramgen::image
