/// All that is known of a key: what it is, how it is stored, and what a tree or an image has of it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "check/reference_words.h"
#include "diagnostics/finding.h"
#include "image/input.h"
#include "layout/layout.h"
#include "output/json.h"
#include "tree/product.h"

namespace paramgen::paramtool {

/// A key, or a member of the image without one.
struct Explanation {
    std::vector<const layout::Value*> values;  ///< all that it gives, by offset; at least one
    std::vector<check::Relation> relations;

    /// Where a tree sets it, and the text there.
    std::optional<diagnostics::Place> place;
    std::string text;
};

/// Explains the values, key by key, in their order.
std::vector<Explanation> Explain(const std::vector<const layout::Value*>& values);

/// Adds where the tree sets each key.
void AddPlaces(const tree::Product& product, std::vector<Explanation>* explanations);

/// For people. `input` is null when there is neither an image nor a tree.
std::string ExplanationText(const Explanation& explanation, const image::Input* input);

output::Json ExplanationJson(const Explanation& explanation, const image::Input* input);

}  // namespace paramgen::paramtool
