/// Why a key that is known is not read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "check/inspection.h"

namespace paramgen::check {

/// Tells why loaders do not ask `modules` for a key that a table knows, in words that go on with a
/// sentence.
std::string UnreadReason(const Inspection& inspection, const std::vector<std::string>& modules,
                         std::string_view section, std::string_view key);

/// The number at `offset` of the image that the last run made, as it is stored.
std::uint32_t WordAt(const Inspection& inspection, std::uint32_t offset);

}  // namespace paramgen::check
