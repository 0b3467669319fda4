#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "confaccess/confaccess.h"
#include "confaccess/dictionary.h"
#include "confaccess/ini_reader.h"
#include "confaccess/registry.h"
#include "fault/confaccess/faults.h"
#include "support/temp_dir.h"
#include "unit/confaccess/outcome.h"

namespace paramgen::testing {
namespace {

constexpr char kModuleInfoFailed[] =
    "[time][ERR][QXCONFACCE] CONFACCESS_Init:286 Confaccess ModuleInfo failed\n";

std::string AddCfgFailed(const std::string& code) {
    return "func:ZV_CONFACCESS_Init,line:337[AddCfg] failed[0x" + code + "]\n";
}

bool Set(Dictionary* dictionary, const std::string& key, std::string_view value) {
    return dictionary->Set(FoldedKey(key), value);
}

const char* Get(const Dictionary& dictionary, const std::string& key, const char* defaultValue) {
    return dictionary.Get(FoldedKey(key), defaultValue);
}

TEST(DictionaryFaults, CreationFailsWithoutMemory) {
    const FaultWatch watch(Fault::kAllocation, 1);
    {
        Dictionary dictionary;
        EXPECT_FALSE(dictionary.Create());
    }
    EXPECT_TRUE(watch.Happened());
    EXPECT_EQ(watch.Held(), 0);
}

TEST(DictionaryFaults, FirstTextsNeedMemory) {
    Dictionary dictionary;
    ASSERT_TRUE(dictionary.Create());
    for (const std::string_view value : {std::string_view("value"), std::string_view()}) {
        const FaultWatch watch(Fault::kAllocation, 1);
        EXPECT_FALSE(Set(&dictionary, "key", value));
        EXPECT_TRUE(watch.Happened());
    }
    EXPECT_EQ(dictionary.Count(), 0U);
    EXPECT_STREQ(Get(dictionary, "key", "default"), "default");
    EXPECT_TRUE(Set(&dictionary, "key", "value"));
    EXPECT_STREQ(Get(dictionary, "key", "default"), "value");
}

constexpr unsigned kFull = Dictionary::kFirstSlots / 4 * 3;

/// A dictionary whose table has to grow for the next key.
void Fill(Dictionary* dictionary) {
    ASSERT_TRUE(dictionary->Create());
    for (unsigned number = 0; number < kFull; ++number) {
        const std::string key = "key" + std::to_string(number);
        ASSERT_TRUE(Set(dictionary, key, key));
    }
}

void ExpectFilled(const Dictionary& dictionary) {
    for (unsigned number = 0; number < kFull; ++number) {
        const std::string key = "key" + std::to_string(number);
        EXPECT_STREQ(Get(dictionary, key, nullptr), key.c_str());
    }
}

TEST(DictionaryFaults, GrowthNeedsMemoryAndLosesNothing) {
    Dictionary dictionary;
    Fill(&dictionary);
    {
        const FaultWatch watch(Fault::kAllocation, 1);
        EXPECT_FALSE(Set(&dictionary, "one more", "value"));
        EXPECT_TRUE(watch.Happened());
        EXPECT_EQ(watch.Held(), 0);
    }
    ExpectFilled(dictionary);
    EXPECT_EQ(dictionary.Count(), kFull);
    EXPECT_EQ(Get(dictionary, "one more", nullptr), nullptr);
    EXPECT_TRUE(Set(&dictionary, "key0", "key0"));
    EXPECT_TRUE(Set(&dictionary, "one more", "value"));
    ExpectFilled(dictionary);
    EXPECT_STREQ(Get(dictionary, "one more", nullptr), "value");
}

TEST(DictionaryFaults, FailedReplacementKeepsTheOldValue) {
    Dictionary dictionary;
    ASSERT_TRUE(dictionary.Create());
    const std::string large(Dictionary::kValueMax, 'v');
    ASSERT_TRUE(Set(&dictionary, "key", "old"));
    ASSERT_TRUE(Set(&dictionary, "other", large));
    {
        // The first block has no room for another one of this size.
        ASSERT_TRUE(Set(&dictionary, "other", large));
        const FaultWatch watch(Fault::kAllocation, 1);
        EXPECT_FALSE(Set(&dictionary, "key", large));
        EXPECT_TRUE(watch.Happened());
    }
    EXPECT_STREQ(Get(dictionary, "key", nullptr), "old");
    EXPECT_TRUE(Set(&dictionary, "key", large));
    EXPECT_EQ(Get(dictionary, "key", ""), large);
}

class ReaderFaults : public ::testing::Test {
protected:
    /// Reads a file while a call fails, with nothing to show for it.
    static IniError LoadFails(const std::string& path, Fault fault, int number) {
        static_cast<void>(LoadIniFile(nullptr));
        const FaultWatch watch(fault, number);
        EXPECT_EQ(LoadIniFile(path.c_str()), nullptr);
        EXPECT_TRUE(watch.Happened());
        EXPECT_EQ(watch.Held(), 0);
        return LastIniError();
    }

    TempDir directory_;
    const std::string file_ = directory_.Write("file.ini", "[s]\na = 1\nb = 2\n");
};

TEST_F(ReaderFaults, DictionaryNeedsMemory) {
    for (int number = 1; number <= 2; ++number) {
        EXPECT_EQ(LoadFails(file_, Fault::kAllocation, number), IniError::kNoDictionary);
    }
}

TEST_F(ReaderFaults, KeysNeedMemory) {
    EXPECT_EQ(LoadFails(file_, Fault::kAllocation, 3), IniError::kLoadNotInserted);
    const std::string noSection = directory_.Write("top.ini", "a = 1\n");
    EXPECT_EQ(LoadFails(noSection, Fault::kAllocation, 3), IniError::kLoadNotInserted);
}

TEST_F(ReaderFaults, EveryAllocationOfALargeFileMayFail) {
    std::string bytes;
    for (int number = 0; number < 3000; ++number) {
        bytes += "key" + std::to_string(number) + " = " + std::to_string(number) + "\n";
    }
    const std::string large = directory_.Write("large.ini", bytes);
    int number = 1;
    for (bool happened = true; happened; ++number) {
        const FaultWatch watch(Fault::kAllocation, number);
        DictionaryPtr dictionary = LoadIniFile(large.c_str());
        happened = watch.Happened();
        EXPECT_EQ(dictionary == nullptr, happened);
        dictionary.reset();
        EXPECT_EQ(watch.Held(), 0);
    }
    EXPECT_GT(number, 10);  // 2 for an empty one, growth four times, blocks of texts
}

TEST_F(ReaderFaults, FileThatDoesNotOpenIsNoReaderError) {
    EXPECT_EQ(LoadFails(file_, Fault::kOpen, 1), IniError::kNullArgument);
}

TEST_F(ReaderFaults, FileThatCannotBeReadToItsEndYieldsNothing) {
    LoadFails(file_, Fault::kRead, 1);
    const std::string twoBlocks =
        directory_.Write("long.ini", std::string(20'000, '\n') + "[s]\na = 1\n");
    LoadFails(twoBlocks, Fault::kRead, 1);
    LoadFails(twoBlocks, Fault::kRead, 2);
}

/// Registrations of one configuration with one module, while a call fails.
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

    /// What a registration does when a call fails. Releases it when it succeeds, and registers
    /// again without failure.
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
    for (int number = 2; number <= 4; ++number) {
        EXPECT_EQ(Init(Fault::kAllocation, number), EntryUnread()) << number;
    }
}

TEST_F(RegistrationFaults, ModuleNeedsMemory) {
    EXPECT_EQ(Init(Fault::kAllocation, 5),
              (Outcome{Code(0xA1418044U), "[time][QXCONFACCE] ZV_SafeMalloc failed\n" +
                                              std::string(kModuleInfoFailed) +
                                              AddCfgFailed("A1418044")}));
}

TEST_F(RegistrationFaults, ModuleWithoutMemoryForItsFileIsLeftOut) {
    for (int number = 6; number <= 8; ++number) {
        EXPECT_EQ(Init(Fault::kAllocation, number), ModuleUnread()) << number;
    }
}

TEST_F(RegistrationFaults, NoOtherAllocationIsMade) {
    const FaultWatch watch(Fault::kAllocation, 9);
    EXPECT_EQ(ZV_CONFACCESS_Init("cfg", entry_.c_str()), 0);
    EXPECT_EQ(ZV_CONFACCESS_Deinit("cfg"), 0);
    EXPECT_FALSE(watch.Happened());
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
    // Once with the default directory, once with a path of the module's own.
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

TEST_F(RegistrationFaults, ModulesBeforeTheFailingOneAreFreed) {
    directory_.Write("entry.ini",
                     "[module]\nmodule_num = 2\nmodule1 = mod\nmodule2 = two\n"
                     "[mod]\ncfg_filename = mod.ini\n[two]\ncfg_filename = mod.ini\n");
    EXPECT_EQ(InitOnce(Fault::kAllocation, 9).status, Code(0xA1418044U));
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

    /// A query that cannot copy its value.
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
