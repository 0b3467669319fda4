/// What tests of a configuration's modules share.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "confaccess/confaccess.h"
#include "confaccess/registry.h"
#include "support/temp_dir.h"
#include "unit/confaccess/outcome.h"

namespace paramgen::testing {

/// The record of a module that is left out.
inline std::string Skipped(int index) {
    return "[time][WARN][QXCONFACCE] CONFACCESS_ModuleInfo:245 load module[" +
           std::to_string(index) + "] failed\n";
}

/// An entry file with one module, whose section has these lines.
inline std::string OneModule(const std::string& name, const std::string& keys) {
    return "[module]\nmodule_num = 1\nmodule1 = " + name + "\n[" + name + "]\n" + keys;
}

/// Registrations, under the name "cfg", of entry files that each test writes.
class Modules : public ::testing::Test {
protected:
    Modules() {
        directory_.Write("a.ini", "[s]\nkey = of a\n");
        directory_.Write("b.ini", "[s]\nkey = of b\n");
    }
    ~Modules() override {
        if (g_confAccessCount != 0) {
            EXPECT_EQ(ZV_CONFACCESS_Deinit("cfg"), 0);
        }
        EXPECT_EQ(g_confAccessCount, 0);
    }

    Outcome Init(const std::string& entryText) {
        entry_ = directory_.Write("entry.ini", entryText);
        return Observe([&] { return ZV_CONFACCESS_Init("cfg", entry_.c_str()); });
    }

    /// The same, with records of every level from `threshold` up.
    Outcome InitLogged(std::int32_t threshold, const std::string& entryText) {
        const LibraryThreshold lowered(threshold);
        return Init(entryText);
    }

    /// The names of the modules that are loaded, in the order of their list.
    static std::vector<std::string> Names() {
        std::vector<std::string> names;
        const ConfigEntry* config = FindConfig("cfg");
        for (const ListLink* link = config->modules.next; link != &config->modules;
             link = link->next) {
            names.emplace_back(static_cast<const ModuleEntry*>(link)->name);
        }
        return names;
    }

    static const ModuleEntry* Module(const std::string& name) {
        return FindModule(FindConfig("cfg"), name.c_str());
    }

    std::string In(const std::string& file) const { return (directory_.path() / file).string(); }

    std::string DefaultPathInfo() const {
        return "[time][INFO][QXCONFACCE] CONFACCESS_GetModulePath:122 Don't use certain module "
               "path, use default path[" +
               directory_.path().string() + "/]\n";
    }

    TempDir directory_;
    std::string entry_;
};

}  // namespace paramgen::testing
