/// Why a key that is known is not read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "check/inspection.h"

namespace paramgen::check {

/// Returns the reason why loaders do not read a known key of `modules`, as the end of a sentence.
std::string UnreadReason(const Inspection& inspection, const std::vector<std::string>& modules,
                         std::string_view section, std::string_view key);

/// Whether a known key is not read only because of a count that is wrong itself, which is told.
bool HasWrongCount(const Inspection& inspection, const std::vector<std::string>& modules,
                   std::string_view section, std::string_view key);

/// The number at `offset` of the image that the last run made, as it is stored.
std::uint32_t WordAt(const Inspection& inspection, std::uint32_t offset);

}  // namespace paramgen::check
