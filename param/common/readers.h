/// Typed readers: each reads one value of the configuration "productini".
///
/// A reader holds the configuration's lock while it runs. It returns 0, the code of the
/// configuration query that failed, or -1 when the key or the value does not fit. It logs a failure
/// with the full key. An absent key is no failure. A null module, key, prefix or destination fails
/// with `kBadArgument`, as a null argument of the query does.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "confaccess/status.h"
#include "param/common/values.h"

namespace paramgen {

/// Name of the configuration that every value comes from.
inline constexpr char kProductConfig[] = "productini";

/// Reads the integer "prefix:key" of `module` into `value`; `defaultValue` when the key is absent.
/// After a failure `value` is untouched.
[[nodiscard]] Status PDT_INIPARAM_LoadIntValueByNodePrefix(const char* module, const char* prefix,
                                                           const char* key,
                                                           std::int32_t defaultValue,
                                                           std::int32_t* value);

/// As the integer reader. The number is read as a signed one, and its 32 bits are stored unchanged.
[[nodiscard]] Status PDT_INIPARAM_LoadUintValueByNodePrefix(const char* module, const char* prefix,
                                                            const char* key,
                                                            std::int32_t defaultValue,
                                                            std::uint32_t* value);

/// Reads the boolean "prefix:key" of `module` into `value`; `defaultValue`, as it is given, when
/// the key is absent or its value is neither true nor false. After a failure `value` is untouched.
[[nodiscard]] Status PDT_INIPARAM_LoadBoolValueByNodePrefix(const char* module, const char* prefix,
                                                            const char* key, Bool32 defaultValue,
                                                            Bool32* value);

/// Copies the string `key` ("section:key") of `module` into the buffer `text` of `size` bytes, and
/// echoes it. An absent key leaves `text` unchanged; a value of more than `size` - 1 characters
/// fails with -1.
[[nodiscard]] Status PDT_INIPARAM_LoadStringValue(const char* module, const char* key, char* text,
                                                  std::size_t size);

/// The same for a text at the start of `bytes`. The value must fit into the first `size` bytes.
/// When the key is absent, the text there may lack a terminator: the echo ends at the first NUL in
/// `bytes`, or at their end.
[[nodiscard]] Status PDT_INIPARAM_LoadStringValue(const char* module, const char* key,
                                                  std::span<char> bytes, std::size_t size);

/// Stores in `text` a pointer to the string `key` ("section:key") of `module`; null when the key is
/// absent. The configuration owns the string; the pointer is valid until it is released. Returns
/// what the string query returns and logs nothing. After a failure `text` is untouched.
[[nodiscard]] Status FindText(const char* module, const char* key, const char** text);

}  // namespace paramgen
