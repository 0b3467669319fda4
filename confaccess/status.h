/// Status codes of configuration access.
#pragma once

#include <cstdint>

namespace paramgen {

/// A 32-bit result: 0 for success. Codes are passed up unchanged, to the exit status at last.
using Status = std::int32_t;

constexpr Status kOk = 0;
/// A bad argument, a formatting or copy step that failed, a value too long or a name unknown.
constexpr Status kFailed = -1;

constexpr Status kBadArgument = static_cast<Status>(0xA1418041U);
constexpr Status kNothingRegistered = static_cast<Status>(0xA1418042U);
constexpr Status kAlreadyRegistered = static_cast<Status>(0xA1418043U);
constexpr Status kOutOfMemory = static_cast<Status>(0xA1418044U);
/// The configuration is not registered, or the entry path does not contain ".ini".
constexpr Status kNoConfiguration = static_cast<Status>(0xA1418045U);
constexpr Status kNoModule = static_cast<Status>(0xA1418046U);
constexpr Status kModuleRepeated = static_cast<Status>(0xA1418048U);
/// A module's name or file name is missing, or its file name is empty.
constexpr Status kModuleIncomplete = static_cast<Status>(0xA1418049U);
/// The number of modules is missing or 0.
constexpr Status kNoModuleCount = static_cast<Status>(0xA1418050U);

}  // namespace paramgen
