/// Suggestions for unknown names.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace paramgen::diagnostics {

/// The edit distance of two names, case-insensitive: insertions, deletions, replacements and swaps
/// of neighbours. Returns `most` + 1 when it is larger than `most`.
std::size_t EditDistance(std::string_view a, std::string_view b, std::size_t most);

/// Whether two names are the same words in another order, or with other characters between them.
bool HaveSameWords(std::string_view a, std::string_view b);

/// The distance of a name from a candidate: 0 when they differ in case only. `kUnlike` when it is
/// more than a third of the longer one's length, which is too far for a suggestion.
inline constexpr std::size_t kUnlike = SIZE_MAX;
std::size_t Unlikeness(std::string_view name, std::string_view candidate);

/// The candidate that is nearest to `name`, the first of those that are equally near; empty when
/// none is near enough.
std::string Nearest(std::string_view name, std::span<const std::string> candidates);

/// The only candidate whose last letters and digits are those of `name`, from the beginning of a
/// word on: "MODE_2160P_30" for "2160p30". Empty when there is none, or more than one.
std::string OnlyEnding(std::string_view name, std::span<const std::string> candidates);

}  // namespace paramgen::diagnostics
