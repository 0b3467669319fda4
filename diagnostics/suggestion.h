/// What was probably meant by a name that nobody knows.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace paramgen::diagnostics {

/// How far apart two names are, in any case: the letters to insert, drop or replace, and neighbours
/// to swap. More than `most` is told as `most` + 1.
std::size_t EditDistance(std::string_view a, std::string_view b, std::size_t most);

/// Whether two names are the same words in another order, or with other characters between them.
bool HaveSameWords(std::string_view a, std::string_view b);

/// How unlike a candidate a name is: 0 the same in any case, else its distance; `kUnlike` when it
/// is too far off for a guess: more than a third of the longer one's length.
inline constexpr std::size_t kUnlike = SIZE_MAX;
std::size_t Unlikeness(std::string_view name, std::string_view candidate);

/// The candidate that is nearest to `name`, the first of those that are equally near; empty when
/// none is near enough.
std::string Nearest(std::string_view name, std::span<const std::string> candidates);

}  // namespace paramgen::diagnostics
