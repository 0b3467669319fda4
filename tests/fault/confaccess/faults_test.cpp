#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "confaccess/confaccess.h"
#include "confaccess/locked_module.h"
#include "confaccess/registry.h"
#include "fault/confaccess/faults.h"
#include "fault/confaccess/large_file.h"
#include "support/temp_dir.h"
#include "unit/confaccess/outcome.h"

namespace paramgen::testing {
namespace {

constexpr char kModuleInfoFailed[] =
    "[time][ERR][QXCONFACCE] CONFACCESS_Init:286 Confaccess ModuleInfo failed\n";

std::string AddCfgFailed(const std::string& code) {
    return "func:ZV_CONFACCESS_Init,line:337[AddCfg] failed[0x" + code + "]\n";
}

class RegistrationFaults : public ::testing::Test {
protected:
    RegistrationFaults() {
        directory_.Write("mod.ini", "[s]\nkey = value\n");
        entry_ = WriteEntry("");
    }
    ~RegistrationFaults() override {
        EXPECT_EQ(g_confAccessCount, 0);
        EXPECT_EQ(g_configs.next, &g_configs);
    }

    std::string WriteEntry(const std::string& path) const {
        return directory_.Write("entry.ini", "[module]\nmodule_num = 1\nmodule1 = mod\n[mod]\n" +
                                                 path + "cfg_filename = mod.ini\n");
    }

    /// Registers while a call fails, and returns the outcome. Releases the configuration if that
    /// succeeds, and registers again without a failure.
    Outcome Init(Fault fault, int number) const {
        const Outcome outcome = InitOnce(fault, number);
        const Outcome again = InitOnce(Fault::kNone, 0);
        EXPECT_EQ(again, (Outcome{0, ""}));
        return outcome;
    }

    Outcome InitOnce(Fault fault, int number) const {
        return Observe([&] {
            const FaultWatch watch(fault, number);
            const Status status = ZV_CONFACCESS_Init("cfg", entry_.c_str());
            if (status == 0) {
                EXPECT_EQ(ZV_CONFACCESS_Deinit("cfg"), 0);
            }
            EXPECT_TRUE(watch.Happened());
            EXPECT_EQ(watch.Held(), 0);
            return status;
        });
    }

    Outcome EntryUnread() const {
        return {-1, "[time][ERR][QXCONFACCE] CONFACCESS_GetModuleInfo:211 load " + entry_ +
                        " failed\n" + AddCfgFailed("FFFFFFFF")};
    }

    Outcome ModuleUnread() const {
        const std::string file = (directory_.path() / "mod.ini").string();
        return {0, "[time][QXCONFACCE] Load " + file + " failed\n"};
    }

    TempDir directory_;
    std::string entry_;
};

TEST_F(RegistrationFaults, ConfigurationNeedsMemory) {
    EXPECT_EQ(
        Init(Fault::kAllocation, 1),
        (Outcome{Code(0xA1418044U), "func:CONFACCESS_Init,line:264,pointer[cfgPos] is null\n" +
                                        AddCfgFailed("A1418044")}));
}

TEST_F(RegistrationFaults, EntryFileNeedsMemory) {
    EXPECT_EQ(Init(Fault::kAllocation, 2), EntryUnread());
    std::ofstream(entry_, std::ios::app) << LargeFile();
    for (int number = 2; number <= 1 + kLargeFileAllocations; ++number) {
        EXPECT_EQ(Init(Fault::kAllocation, number), EntryUnread()) << number;
    }
}

TEST_F(RegistrationFaults, NoOtherAllocationIsMade) {
    const FaultWatch watch(Fault::kAllocation, 3);
    EXPECT_EQ(ZV_CONFACCESS_Init("cfg", entry_.c_str()), 0);
    EXPECT_EQ(ZV_CONFACCESS_Deinit("cfg"), 0);
    EXPECT_FALSE(watch.Happened());
}

TEST_F(RegistrationFaults, ModuleWithoutMemoryForItsFileIsLeftOut) {
    directory_.Write("mod.ini", LargeFile());
    for (int number = 3; number <= 2 + kLargeFileAllocations - 1; ++number) {
        EXPECT_EQ(Init(Fault::kAllocation, number), ModuleUnread()) << number;
    }
}

// Modules are added until a chunk of the arena is full. Which allocation of which module fails then
// depends on the size of the entry file, so the sizes are tried one by one.
TEST_F(RegistrationFaults, ModuleNeedsMemory) {
    const Outcome noModule = {Code(0xA1418044U), "[time][QXCONFACCE] ZV_SafeMalloc failed\n" +
                                                     std::string(kModuleInfoFailed) +
                                                     AddCfgFailed("A1418044")};
    constexpr int kModules = 120;
    int noModules = 0;
    int leftOut = 0;
    for (std::size_t padding = 0; padding < 800; padding += 40) {
        std::string entry = "padding = " + std::string(padding, '.') +
                            "\n[module]\nmodule_num = " + std::to_string(kModules) + "\n";
        for (int number = 1; number <= kModules; ++number) {
            const std::string name = std::to_string(number);
            entry += "module" + name + " = m" + name + "\n[m" + name +
                     "]\ncfg_filename = mod.ini\n[module]\n";
        }
        directory_.Write("entry.ini", entry);
        const Outcome outcome = InitOnce(Fault::kAllocation, 3);
        noModules += outcome == noModule ? 1 : 0;
        leftOut += outcome == ModuleUnread() ? 1 : 0;
    }
    EXPECT_EQ(noModules + leftOut, 20);
    EXPECT_GT(noModules, 0);
    EXPECT_GT(leftOut, 0);
}

TEST_F(RegistrationFaults, FilesThatDoNotOpen) {
    EXPECT_EQ(Init(Fault::kOpen, 1), EntryUnread());
    EXPECT_EQ(Init(Fault::kOpen, 2), ModuleUnread());
}

TEST_F(RegistrationFaults, FilesThatCannotBeRead) {
    EXPECT_EQ(Init(Fault::kRead, 1), EntryUnread());
    EXPECT_EQ(Init(Fault::kRead, 2), ModuleUnread());
}

TEST_F(RegistrationFaults, CopiesOfNameAndPathsThatFail) {
    const std::pair<int, const char*> kCopies[] = {
        {1, "[CONFACCESS_Init]266: snprintf_s\n"},
        {2, "[CONFACCESS_Init]269: snprintf_s\n"},
        {3, "[CONFACCESS_GetModuleInfo]217: snprintf_s\n"}};
    for (const auto& [number, message] : kCopies) {
        EXPECT_EQ(Init(Fault::kFormat, number), (Outcome{-1, message + AddCfgFailed("FFFFFFFF")}));
    }
}

TEST_F(RegistrationFaults, TextsOfAModuleThatFailLeaveItOut) {
    const std::string code = "func:CONFACCESS_InitModule,line:173,Error Code: [0xFFFFFFFF]\n\n";
    const std::pair<int, std::string> kTexts[] = {
        {4, "[CONFACCESS_InitModule]157: snprintf_s\n"},
        {5, "[CONFACCESS_InitModule]166: snprintf_s\n"},
        {6, "[CONFACCESS_GetModulePath]104: snprintf_s\n" + code},
        {7, code},
        {8, "[CONFACCESS_InitModule]178: snprintf_s\n"},
        {9, "[CONFACCESS_InitModule]192: snprintf_s\n"}};
    // Once with the default directory, once with a path in the module's section.
    for (const std::string& path :
         {std::string(), "path = " + directory_.path().string() + "/\n"}) {
        WriteEntry(path);
        for (const auto& [number, message] : kTexts) {
            EXPECT_EQ(Init(Fault::kFormat, number), (Outcome{0, message})) << number;
        }
    }
}

TEST_F(RegistrationFaults, DirectoryThatFailsLeavesTheModuleOut) {
    const LibraryThreshold warn(2);
    EXPECT_EQ(InitOnce(Fault::kDirName, 1),
              (Outcome{0,
                       "[time][ERR][QXCONFACCE] CONFACCESS_GetModulePath:115 get dirName failed\n"
                       "func:CONFACCESS_InitModule,line:173,Error Code: [0xA1418041]\n\n"
                       "[time][WARN][QXCONFACCE] CONFACCESS_ModuleInfo:245 load module[0] "
                       "failed\n"}));
}

TEST_F(RegistrationFaults, ModulesThatAreLeftOutHoldNothing) {
    directory_.Write("bad.ini", LargeFile() + "no INI line\n");
    std::string entry = "[module]\nmodule_num = 1000\n";
    for (int number = 1; number <= 1000; ++number) {
        const std::string name = std::to_string(number);
        const std::string file = number == 1000      ? "mod.ini"
                                 : number % 100 == 0 ? "bad.ini"
                                                     : "no.ini";
        entry += "module" + name + " = m" + name + "\n[m" + name + "]\ncfg_filename = " + file +
                 "\n[module]\n";
    }
    directory_.Write("entry.ini", entry);
    const Outcome outcome = Observe([&] {
        const FaultWatch watch(Fault::kNone, 0);
        EXPECT_EQ(ZV_CONFACCESS_Init("cfg", entry_.c_str()), 0);
        // The configuration, a chunk, and the memory of the entry file.
        EXPECT_LE(watch.Held(), 4);
        const char* value = nullptr;
        EXPECT_EQ(FindText(LockedModule("cfg", "m1000"), "s:key", nullptr, &value), 0);
        EXPECT_STREQ(value, "value");
        EXPECT_EQ(ZV_CONFACCESS_Deinit("cfg"), 0);
        EXPECT_EQ(watch.Held(), 0);
        return kOk;
    });
    EXPECT_EQ(outcome.status, kOk);
}

TEST_F(RegistrationFaults, AllThatIsHeldIsGivenBack) {
    directory_.Write("entry.ini",
                     "[module]\nmodule_num = 2\nmodule1 = mod\nmodule2 = two\n"
                     "[mod]\ncfg_filename = mod.ini\n[two]\ncfg_filename = mod.ini\n");
    const FaultWatch watch(Fault::kNone, 0);
    EXPECT_EQ(ZV_CONFACCESS_Init("cfg", entry_.c_str()), 0);
    EXPECT_GT(watch.Held(), 0);
    EXPECT_EQ(ZV_CONFACCESS_Deinit("cfg"), 0);
    EXPECT_EQ(watch.Held(), 0);
}

class QueryFaults : public ::testing::Test {
protected:
    QueryFaults() {
        directory_.Write("mod.ini", "[s]\nkey = 1\n");
        const std::string entry = directory_.Write(
            "entry.ini",
            "[module]\nmodule_num = 1\nmodule1 = mod\n[mod]\ncfg_filename = mod.ini\n");
        EXPECT_EQ(ZV_CONFACCESS_Init("cfg", entry.c_str()), 0);
    }
    ~QueryFaults() override { EXPECT_EQ(ZV_CONFACCESS_Deinit("cfg"), 0); }

    /// The outcome of a query while the allocation of its copy fails.
    static Outcome Starved(const std::function<Status()>& query) {
        return Observe([&] {
            const FaultWatch watch(Fault::kAllocation, 1);
            const Status status = query();
            EXPECT_TRUE(watch.Happened());
            EXPECT_EQ(watch.Held(), 0);
            return status;
        });
    }

    TempDir directory_;
};

TEST_F(QueryFaults, TextNeedsMemoryForItsCopy) {
    char sentinel = 's';
    char* value = &sentinel;
    for (const char* key : {"s:key", "s:no"}) {
        EXPECT_EQ(
            Starved([&] { return ZV_CONFACCESS_GetString("cfg", "mod", key, "default", &value); }),
            (Outcome{Code(0xA1418044U), ""}));
        EXPECT_EQ(value, &sentinel);
    }
}

TEST_F(QueryFaults, OtherQueriesNeedNoMemory) {
    std::int32_t value = 0;
    double real = 0;
    const FaultWatch watch(Fault::kAllocation, 1);
    EXPECT_EQ(ZV_CONFACCESS_GetInt("cfg", "mod", "s:key", 0, &value), 0);
    EXPECT_EQ(value, 1);
    EXPECT_EQ(ZV_CONFACCESS_GetDouble("cfg", "mod", "s:key", 0, &real), 0);
    EXPECT_EQ(real, 1.0);
    EXPECT_EQ(ZV_CONFACCESS_GetBool("cfg", "mod", "s:key", 0, &value), 0);
    EXPECT_EQ(ZV_CONFACCESS_IsConfItemExist("cfg", "mod", "s:key", &value), 0);
    EXPECT_FALSE(watch.Happened());
}

TEST_F(QueryFaults, CopiesAreGivenBack) {
    std::int32_t value = 0;
    double real = 0;
    const FaultWatch watch(Fault::kNone, 0);
    EXPECT_EQ(ZV_CONFACCESS_GetInt("cfg", "mod", "s:key", 0, &value), 0);
    EXPECT_EQ(ZV_CONFACCESS_GetDouble("cfg", "mod", "s:key", 0, &real), 0);
    EXPECT_EQ(ZV_CONFACCESS_GetBool("cfg", "mod", "s:key", 0, &value), 0);
    EXPECT_EQ(ZV_CONFACCESS_IsConfItemExist("cfg", "mod", "s:key", &value), 0);
    EXPECT_EQ(watch.Held(), 0);
    char* text = nullptr;
    EXPECT_EQ(ZV_CONFACCESS_GetString("cfg", "mod", "s:key", nullptr, &text), 0);
    EXPECT_EQ(watch.Held(), 1);
    std::free(text);
    EXPECT_EQ(watch.Held(), 0);
}

}  // namespace
}  // namespace paramgen::testing
