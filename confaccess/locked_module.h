/// Several queries for one module under one lock. For loops that read many keys; everybody else
/// calls the queries of `confaccess/confaccess.h`, which take and release the lock themselves.
#pragma once

#include <cstdint>
#include <string_view>

#include "confaccess/status.h"

namespace paramgen {

struct ConfigEntry;
class Dictionary;

/// A module that is looked up once and then asked for several values. It holds the configuration's
/// lock from its construction to its destruction. The lock is not recursive: in the meantime its
/// thread must not call any other query for the same configuration, which would wait for ever.
class LockedModule {
public:
    /// Looks up `module` of the configuration `cfgName`. Neither needs to exist: `status` tells,
    /// and every query then fails. Both names must outlive this object.
    LockedModule(std::string_view cfgName, std::string_view module);
    ~LockedModule();
    LockedModule(const LockedModule&) = delete;
    LockedModule& operator=(const LockedModule&) = delete;

    std::string_view cfgName() const { return cfgName_; }
    std::string_view module() const { return module_; }

    /// 0, `kNoConfiguration` or `kNoModule`.
    Status status() const { return status_; }

    /// The keys of the module; null when there is no such module.
    const Dictionary* dictionary() const { return dictionary_; }

private:
    std::string_view cfgName_;
    std::string_view module_;
    ConfigEntry* config_;
    const Dictionary* dictionary_ = nullptr;
    Status status_;
};

// As the queries of the same name in `confaccess/confaccess.h`. A name or key whose `data()` is
// null counts as a null argument.

/// The string query without the copy: `value` belongs to the configuration and is valid until that
/// is released.
[[nodiscard]] Status FindText(const LockedModule& module, std::string_view confItem,
                              const char* defaultValue, const char** value);

[[nodiscard]] Status ZV_CONFACCESS_GetInt(const LockedModule& module, std::string_view confItem,
                                          std::int32_t defaultValue, std::int32_t* value);
[[nodiscard]] Status ZV_CONFACCESS_GetDouble(const LockedModule& module, std::string_view confItem,
                                             double defaultValue, double* value);
[[nodiscard]] Status ZV_CONFACCESS_GetBool(const LockedModule& module, std::string_view confItem,
                                           std::int32_t defaultValue, std::int32_t* value);

}  // namespace paramgen
