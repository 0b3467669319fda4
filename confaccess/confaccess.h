/// Configuration access: named configurations, each registered from an entry INI file that lists
/// module INI files, and typed queries by configuration, module and key.
///
/// A name (of a configuration or a module) has at most 127 characters, a path 255, a key 127. A key
/// is a section name, a colon and a key name, and is case-insensitive. Every function returns 0 or
/// a code of `confaccess/status.h`. Bad arguments (`kBadArgument`) are also reported on standard
/// output, and other failures through the library log.
///
/// A query holds the configuration's lock while it runs. Queries may run from several threads at
/// once; registration and release may not run beside anything else.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"

namespace paramgen {

constexpr std::size_t QX_CONFACCESS_NAME_MAX_LEN = 128;  ///< buffer size of a name
constexpr std::size_t QX_CONFACCESS_PATH_MAX_LEN = 256;  ///< buffer size of a path
constexpr std::size_t QX_CONFACCESS_KEY_MAX_LEN = 128;   ///< buffer size of a key

/// Registers the configuration `cfgName` from the entry file `cfgPath`, with every module that the
/// entry file lists and that can be read; a module whose file cannot be is left out.
/// Returns `kBadArgument`; `kFailed` when the path cannot be resolved, a text does not fit or the
/// entry file cannot be read; `kNoConfiguration` when `cfgPath` does not contain ".ini";
/// `kAlreadyRegistered`; `kOutOfMemory`; `kModuleRepeated`; `kModuleIncomplete`; `kNoModuleCount`.
/// After any failure nothing of the configuration is left.
[[nodiscard]] Status ZV_CONFACCESS_Init(const char* cfgName, const char* cfgPath);

/// Releases the configuration `cfgName` and everything that it holds. Returns `kBadArgument`,
/// `kNothingRegistered` or `kNoConfiguration`.
[[nodiscard]] Status ZV_CONFACCESS_Deinit(const char* cfgName);

// Every query below returns `kBadArgument`, `kNoConfiguration` or `kNoModule` where these apply,
// and then does not change its out argument. An absent key has no value, and neither has a section.

/// Stores in `value` a heap copy of the key's value, which the caller frees; of `defaultValue`,
/// when there is no such key; null when that is null too. Returns `kOutOfMemory` when there is no
/// memory for the copy.
[[nodiscard]] Status ZV_CONFACCESS_GetString(const char* cfgName, const char* module,
                                             const char* confItem, const char* defaultValue,
                                             char** value);

/// Stores the decimal number at the beginning of the value (0 when there is none), or
/// `defaultValue` when the key has no value. Returns `kFailed` for a number beyond the limits of 32
/// bits, and for one exactly at a limit when `errno` held ERANGE before.
[[nodiscard]] Status ZV_CONFACCESS_GetInt(const char* cfgName, const char* module,
                                          const char* confItem, std::int32_t defaultValue,
                                          std::int32_t* value);

/// Stores the floating-point number at the beginning of the value (0 when there is none), or
/// `defaultValue` when the key has no value.
[[nodiscard]] Status ZV_CONFACCESS_GetDouble(const char* cfgName, const char* module,
                                             const char* confItem, double defaultValue,
                                             double* value);

/// Stores 1 when the value begins with one of 1yYtT, 0 when it begins with one of 0nNfF, and
/// `defaultValue` otherwise.
[[nodiscard]] Status ZV_CONFACCESS_GetBool(const char* cfgName, const char* module,
                                           const char* confItem, std::int32_t defaultValue,
                                           std::int32_t* value);

/// Stores 1 when the configuration holds a module of that name, else 0. A configuration that is not
/// registered holds none.
[[nodiscard]] Status ZV_CONFACCESS_IsMoudleExist(const char* cfgName, const char* module,
                                                 std::int32_t* isExist);

/// Stores 1 when the key has a value, else 0.
[[nodiscard]] Status ZV_CONFACCESS_IsConfItemExist(const char* cfgName, const char* module,
                                                   const char* confItem, std::int32_t* isExist);

}  // namespace paramgen
