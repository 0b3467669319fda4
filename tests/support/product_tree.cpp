#include "support/product_tree.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "confaccess/confaccess.h"
#include "log/console_log.h"

namespace paramgen::testing {

ProductTree& ProductTree::AddModule(const std::string& module) {
    modules_[module];
    return *this;
}

ProductTree& ProductTree::Set(const std::string& module, const std::string& key,
                              const std::string& value) {
    modules_[module][key] = value;
    return *this;
}

ProductTree& ProductTree::Remove(const std::string& module, const std::string& key) {
    modules_[module].erase(key);
    return *this;
}

ProductTree& ProductTree::RemoveModule(const std::string& module) {
    modules_.erase(module);
    return *this;
}

std::string ProductTree::ModuleText(const std::string& module) const {
    std::string text;
    for (const auto& [key, value] : modules_.at(module)) {
        const std::size_t colon = key.find(':');
        text += "[" + key.substr(0, colon) + "]\n" + key.substr(colon + 1) + " = " + value + "\n";
    }
    return text;
}

void ProductTree::WriteTo(const TempDir& directory) const {
    std::string names = "[module]\nmodule_num = " + std::to_string(modules_.size()) + "\n";
    std::string files;
    int number = 0;
    for (const auto& [module, keys] : modules_) {
        names += "module" + std::to_string(++number) + " = " + module + "\n";
        files += "[" + module + "]\ncfg_filename = " + module + ".ini\n";
        directory.Write(module + ".ini", ModuleText(module));
    }
    directory.Write("config_cfgaccess_entry.ini", names + files);
}

ProductTree SmallestProduct() {
    ProductTree tree;
    for (const char* module :
         {"devmng", "filemng", "media_common", "cam0_comm", "cam0_comm_record", "cam0_comm_photo",
          "workmode_common", "workmode_photo", "workmode_record", "valueset"}) {
        tree.AddModule(module);
    }
    return tree;
}

RegisteredProduct::RegisteredProduct(const ProductTree& tree) {
    tree.WriteTo(directory_);
    ConsoleLogSetup(1, 0, kConsoleDebug);
    const std::string entry = (directory_.path() / "config_cfgaccess_entry.ini").string();
    EXPECT_EQ(ZV_CONFACCESS_Init("productini", entry.c_str()), 0);
    errno = 0;
}

RegisteredProduct::~RegisteredProduct() {
    EXPECT_EQ(ZV_CONFACCESS_Deinit("productini"), 0);
}

}  // namespace paramgen::testing
