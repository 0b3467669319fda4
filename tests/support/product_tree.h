/// Product trees made by tests: an entry file and its modules.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "support/temp_dir.h"

namespace paramgen::testing {

/// The modules of a product and their keys. The tree is written to a directory of its own when it
/// is registered.
class ProductTree {
public:
    /// Adds a module without keys, if it is not there.
    ProductTree& AddModule(const std::string& module);

    /// Sets a key ("section:key") to a text, written behind the '=' as it is. Adds the module if
    /// needed.
    ProductTree& Set(const std::string& module, const std::string& key, const std::string& value);

    /// Removes a key, or a module.
    ProductTree& Remove(const std::string& module, const std::string& key);
    ProductTree& RemoveModule(const std::string& module);

    /// Writes the entry file, "config_cfgaccess_entry.ini", and "MODULE.ini" for each module.
    void WriteTo(const TempDir& directory) const;

    bool HasModule(const std::string& module) const { return modules_.count(module) != 0; }

    /// The text of a module's file.
    std::string ModuleText(const std::string& module) const;

private:
    std::map<std::string, std::map<std::string, std::string>> modules_;
};

/// The smallest product that can be loaded: the required modules, without keys.
ProductTree SmallestProduct();

/// A tree registered as the configuration that the loaders read, for as long as this lives. `errno`
/// is 0 at the beginning, and only ERROR and DEBUG records print, without time stamps.
class RegisteredProduct {
public:
    explicit RegisteredProduct(const ProductTree& tree);
    ~RegisteredProduct();
    RegisteredProduct(const RegisteredProduct&) = delete;
    RegisteredProduct& operator=(const RegisteredProduct&) = delete;

private:
    TempDir directory_;
};

}  // namespace paramgen::testing
