/// KEY and IMAGE|TREE arguments, as commands take them.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "image/diff.h"
#include "image/input.h"
#include "layout/layout.h"

namespace paramgen::paramtool {

/// The values that one of several KEY arguments names.
class KeyFilter {
public:
    /// Throws `output::UserError` when an argument is malformed.
    explicit KeyFilter(const std::vector<std::string>& arguments);

    bool Matches(const layout::Value& value) const;

    /// The arguments, for people.
    std::string Shown() const;

private:
    std::vector<layout::KeyPattern> patterns_;
    std::vector<std::string> arguments_;
};

/// Reads a KEY argument. Throws `output::UserError` when it is malformed.
layout::KeyPattern ParseKey(const std::string& argument);

/// "module/section:key", or the member of a value without a key.
std::string NameOf(const layout::Value& value);

/// A KEY argument that names nothing.
class UnknownKey : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The one key that an argument names, with its module's real name. Throws `output::UserError` when
/// the argument is malformed or names several keys, `UnknownKey` when it names none.
layout::KeyName OneKey(const std::string& argument);

/// Reads an IMAGE|TREE argument, and tells remarks on standard error. Throws as
/// `image::ReadInput` does.
image::Input ReadInputAndTell(const std::string& argument);

/// Tells where keys stand in a tree; null for an image. `input` has to live as long.
image::PlaceOfKey PlacesIn(const image::Input& input);

}  // namespace paramgen::paramtool
