/// The typed readers for a module that is looked up once, as `LoadFields` uses them. Loaders call
/// the readers by name, see `param/common/readers.h`.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "confaccess/locked_module.h"
#include "param/common/readers.h"

namespace paramgen {

/// A module of the product. It holds the configuration's lock until it is destroyed. Until then the
/// thread must not call a reader or a query that takes names: it would wait for its own lock.
class ProductModule : public LockedModule {
public:
    /// `module` may be null; every query then fails as with any null argument.
    explicit ProductModule(const char* module)
        : LockedModule(kProductConfig, module == nullptr ? std::string_view() : module) {}
};

// As the readers of the same names in `param/common/readers.h`.

[[nodiscard]] Status PDT_INIPARAM_LoadIntValueByNodePrefix(const ProductModule& module,
                                                           std::string_view prefix,
                                                           std::string_view key,
                                                           std::int32_t defaultValue,
                                                           std::int32_t* value);
[[nodiscard]] Status PDT_INIPARAM_LoadUintValueByNodePrefix(const ProductModule& module,
                                                            std::string_view prefix,
                                                            std::string_view key,
                                                            std::int32_t defaultValue,
                                                            std::uint32_t* value);
[[nodiscard]] Status PDT_INIPARAM_LoadBoolValueByNodePrefix(const ProductModule& module,
                                                            std::string_view prefix,
                                                            std::string_view key,
                                                            Bool32 defaultValue, Bool32* value);
[[nodiscard]] Status PDT_INIPARAM_LoadStringValue(const ProductModule& module, const char* key,
                                                  std::span<char> bytes, std::size_t size);

}  // namespace paramgen
