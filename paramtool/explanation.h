/// All that is known of a key: what it is, how it is stored, and what a tree or an image has of it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "check/reference_list.h"
#include "check/reference_words.h"
#include "diagnostics/finding.h"
#include "image/input.h"
#include "layout/layout.h"
#include "output/json.h"
#include "tree/product.h"

namespace paramgen::paramtool {

/// Another key that a key refers to, or that refers to it, in one product.
struct RelatedKey {
    bool isOutward;  ///< the key refers to the other one
    layout::KeyName other;
    std::string reason;
    std::optional<diagnostics::Place> place;  ///< where a tree sets the other one
};

/// A key, or a member of the image without one.
struct Explanation {
    std::vector<const layout::Value*> values;  ///< all that it gives, by offset; at least one
    const layout::Value* chosen;               ///< the one of them that was asked for, or the first
    std::vector<check::Relation> relations;    ///< by the rules, in any product
    std::vector<RelatedKey> related;           ///< in the given product

    /// Where a tree sets it, and the text there.
    std::optional<diagnostics::Place> place;
    std::string text;
};

/// Explains the values, key by key, in their order.
std::vector<Explanation> Explain(const std::vector<const layout::Value*>& values);

/// Adds where the tree sets each key that was asked for. `run` is that of the tree: of several
/// modules it tells which one gives what lies at an offset.
void AddPlaces(const tree::Product& product, const layout::KeyPattern& asked,
               const compile::Compilation& run, std::vector<Explanation>* explanations);

/// Adds the keys that each key refers to, and that refer to it, where `run` has read them.
/// `product` is its tree; null when it has none.
void AddRelated(const compile::Compilation& run, const tree::Product* product,
                std::vector<Explanation>* explanations);

/// For people. `input` is null when there is neither an image nor a tree.
std::string ExplanationText(const Explanation& explanation, const image::Input* input);

output::Json ExplanationJson(const Explanation& explanation, const image::Input* input);

}  // namespace paramgen::paramtool
