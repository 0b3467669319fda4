/// Typed readers: each reads one value of the configuration "productini".
///
/// A reader holds the configuration's lock while it runs. It returns 0, the code of the
/// configuration query that failed, or -1 when the key or the value does not fit; it has then
/// logged the failure under the full key. An absent key is no failure. A null module, key, prefix
/// or destination is: it fails as a null argument of the query, with `kBadArgument`.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "confaccess/status.h"
#include "param/common/values.h"

namespace paramgen {

/// The configuration that every value comes from.
inline constexpr char kProductConfig[] = "productini";

/// Reads the integer "prefix:key" of `module` into `value`; `defaultValue` when the key is absent.
/// After a failure `value` is untouched.
[[nodiscard]] Status PDT_INIPARAM_LoadIntValueByNodePrefix(const char* module, const char* prefix,
                                                           const char* key,
                                                           std::int32_t defaultValue,
                                                           std::int32_t* value);

/// As the integer reader; the 32 bits of the signed number are stored as they are.
[[nodiscard]] Status PDT_INIPARAM_LoadUintValueByNodePrefix(const char* module, const char* prefix,
                                                            const char* key,
                                                            std::int32_t defaultValue,
                                                            std::uint32_t* value);

/// Reads the boolean "prefix:key" of `module` into `value`; `defaultValue`, as it is given, when
/// the key is absent or its value is neither true nor false. After a failure `value` is untouched.
[[nodiscard]] Status PDT_INIPARAM_LoadBoolValueByNodePrefix(const char* module, const char* prefix,
                                                            const char* key, Bool32 defaultValue,
                                                            Bool32* value);

/// Copies the string `key` ("section:key") of `module` into `text`, which has room for `size`
/// bytes, and echoes it. An absent key leaves `text` as it is; a value of more than `size` - 1
/// characters fails with -1.
[[nodiscard]] Status PDT_INIPARAM_LoadStringValue(const char* module, const char* key, char* text,
                                                  std::size_t size);

/// The same for a text at the start of `bytes` that may lack its terminator. The value must fit
/// into the first `size` bytes; the echo goes up to the first NUL in `bytes`, or to their end.
[[nodiscard]] Status PDT_INIPARAM_LoadStringValue(const char* module, const char* key,
                                                  std::span<char> bytes, std::size_t size);

/// Stores in `text` the string `key` of `module`, without a copy: it is valid until the
/// configuration is released. `text` becomes null when the key is absent; a failure leaves it.
/// Returns the code of the string query; logs nothing.
[[nodiscard]] Status FindText(const char* module, const char* key, const char** text);

}  // namespace paramgen
