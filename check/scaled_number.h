/// Numbers with a letter or a unit behind them, as people write them: "12M", "30fps".
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace paramgen::check {

/// What `number` with `suffix` means in `unit` (empty when there is none): 12 with "M" is 12000 in
/// "kbit/s". None when the suffix is neither the unit nor one of k, M and G, with or without the
/// unit, or the result does not fit 32 bits.
std::optional<std::int64_t> ScaledNumber(std::int64_t number, std::string_view suffix,
                                         std::string_view unit);

}  // namespace paramgen::check
