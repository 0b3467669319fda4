/// The keys that paramgen knows, for suggestions about unknown keys.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace paramgen::check {

/// Whether a section or key ("section:key", in lower case) is in a file already.
using IsThere = std::function<bool(const std::string& name)>;

/// Whether a module has keys in this section. The comparison is case-insensitive.
bool KnowsSection(std::string_view module, std::string_view section);

/// Whether a key differs from one of a module only in its numbers, for which the image has no
/// place.
bool KnowsButForNumbers(std::string_view module, std::string_view section, std::string_view key);

/// Whether the keys in a section are documented to have no effect.
bool IsWithoutEffect(std::string_view module, std::string_view section);

/// What was probably meant by `key` in `section`, which `modules` do not know: a key of that
/// section, which is not there yet if possible; else "section:key" or "module/section:key" where
/// the key does belong; empty when there is no guess.
std::string LikelyKey(const std::vector<std::string>& modules, std::string_view section,
                      std::string_view key, const IsThere& isThere);

/// What was probably meant by a section with `keys` that `modules` do not know.
std::string LikelySection(const std::vector<std::string>& modules, std::string_view section,
                          const std::vector<std::string>& keys, const IsThere& isThere);

/// The next number of a section that comes twice: "venc.3" for "venc.2"; empty when there is none
/// that is known and not there yet.
std::string NextSection(const std::vector<std::string>& modules, std::string_view section,
                        const IsThere& isThere);

/// The module whose keys these are, most of them at least; empty when there is none, or when `own`
/// has as many of them.
std::string LikelyModule(const std::vector<std::string>& fullKeys, std::string_view own);

}  // namespace paramgen::check
