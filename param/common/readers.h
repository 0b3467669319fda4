/// Typed value readers: one value of the configuration "productini" each.
///
/// A reader returns 0, the code of the configuration query that failed, or -1 when the key or the
/// value does not fit; it has logged the failure then, naming the full key. A key that is absent is
/// no failure.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "confaccess/confaccess.h"
#include "confaccess/status.h"
#include "param/common/values.h"

namespace paramgen {

/// The configuration that every value comes from.
inline constexpr char kProductConfig[] = "productini";

/// A module of the product, which its readers ask for values. There may be one at a time.
class ProductModule : public LockedModule {
public:
    explicit ProductModule(std::string_view module) : LockedModule(kProductConfig, module) {}
};

/// Reads the integer "prefix:key" of `module` into `value`; `defaultValue` when absent. After a
/// failure `value` holds what the query left there.
[[nodiscard]] Status PDT_INIPARAM_LoadIntValueByNodePrefix(const ProductModule& module,
                                                           std::string_view prefix,
                                                           std::string_view key,
                                                           std::int32_t defaultValue,
                                                           std::int32_t* value);

/// As the integer reader, and stores the 32 bits as an unsigned number. After a failure `value` is
/// untouched.
[[nodiscard]] Status PDT_INIPARAM_LoadUintValueByNodePrefix(const ProductModule& module,
                                                            std::string_view prefix,
                                                            std::string_view key,
                                                            std::int32_t defaultValue,
                                                            std::uint32_t* value);

/// Reads the boolean "prefix:key" of `module` into `value`; `defaultValue` when absent or neither
/// true nor false.
[[nodiscard]] Status PDT_INIPARAM_LoadBoolValueByNodePrefix(const ProductModule& module,
                                                            std::string_view prefix,
                                                            std::string_view key,
                                                            Bool32 defaultValue, Bool32* value);

/// Copies the string `key` (complete: "section:key") of `module` into `text`, which holds `size`
/// bytes, and echoes it. An absent key leaves `text` as it is; a value of more than `size` - 1
/// characters fails with -1.
[[nodiscard]] Status PDT_INIPARAM_LoadStringValue(const ProductModule& module, const char* key,
                                                  char* text, std::size_t size);

/// The same for a text that stands at the start of `bytes` and may lack its terminator: what is
/// stored keeps to the first `size` bytes, what is echoed goes to the first NUL in `bytes`, or to
/// their end.
[[nodiscard]] Status PDT_INIPARAM_LoadStringValue(const ProductModule& module, const char* key,
                                                  std::span<char> bytes, std::size_t size);

/// Asks for the string `key` of `module`, which lives as long as the configuration; logs nothing.
/// `text` becomes null when it is absent, and after a failure.
[[nodiscard]] Status QueryText(const ProductModule& module, std::string_view key,
                               const char** text);

}  // namespace paramgen
