#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "confaccess/confaccess.h"
#include "log/save_file.h"
#include "support/temp_dir.h"
#include "unit/confaccess/outcome.h"

namespace paramgen::testing {
namespace {

constexpr int kThreads = 8;
constexpr int kRounds = 300;
constexpr char kRecord[] =
    "[time][ERR][QXCONFACCE] ZV_CONFACCESS_GetInt:444 config value is out of range\n";
constexpr char kErrorCode[] = "func:ZV_CONFACCESS_GetBool,line:497,Error Code: [0xA1418046]\n\n";

/// Makes every kind of query once. Returns the number of wrong results.
int AskRound(const std::string& own) {
    char* text = nullptr;
    std::int32_t number = 0;
    std::int32_t flag = 0;
    std::int32_t exists = 0;
    std::int32_t hasModule = 0;
    double real = 0;
    int wrong = 0;
    wrong += ZV_CONFACCESS_GetString("cfg", "mod", own.c_str(), nullptr, &text) != 0 ||
             text == nullptr || own.substr(2) != text;
    std::free(text);
    wrong += ZV_CONFACCESS_GetInt("cfg", "mod", "s:answer", 0, &number) != 0 || number != 42;
    wrong += ZV_CONFACCESS_GetDouble("cfg", "mod", "s:half", 0, &real) != 0 || real != 0.5;
    wrong += ZV_CONFACCESS_GetBool("cfg", "mod", "s:flag", 0, &flag) != 0 || flag != 1;
    wrong += ZV_CONFACCESS_IsConfItemExist("cfg", "mod", "s:no", &exists) != 0 || exists != 0;
    wrong += ZV_CONFACCESS_IsMoudleExist("cfg", "mod", &hasModule) != 0 || hasModule != 1;
    // These two fail, and print so.
    wrong += ZV_CONFACCESS_GetInt("cfg", "mod", "s:huge", 0, &number) != -1 || number != 42;
    wrong += ZV_CONFACCESS_GetBool("cfg", "none", "s:flag", 0, &flag) != Code(0xA1418046U);
    return wrong;
}

std::string ModuleText() {
    std::string text = "[s]\nanswer = 42\nhalf = 0.5\nflag = yes\nhuge = 99999999999\n";
    for (int thread = 0; thread < kThreads; ++thread) {
        const std::string own = "own" + std::to_string(thread);
        text += own + " = " + own + "\n";
    }
    return text;
}

/// Runs `kThreads` threads of `kRounds` rounds each. Returns the number of wrong results.
int AskFromAllThreads() {
    std::vector<std::thread> threads;
    std::vector<int> wrong(kThreads, 0);
    for (std::size_t number = 0; number < kThreads; ++number) {
        threads.emplace_back([number, &wrong] {
            errno = 0;
            for (int round = 0; round < kRounds; ++round) {
                wrong[number] += AskRound("s:own" + std::to_string(number));
            }
        });
    }
    int sum = 0;
    for (std::size_t number = 0; number < kThreads; ++number) {
        threads[number].join();
        sum += wrong[number];
    }
    return sum;
}

/// Removes every `part` from `text`. Returns how many there were.
int TakeAll(std::string* text, const std::string& part) {
    std::string rest;
    int count = 0;
    std::size_t at = 0;
    for (std::size_t found = text->find(part); found != std::string::npos;
         found = text->find(part, at)) {
        rest += text->substr(at, found - at);
        at = found + part.size();
        ++count;
    }
    *text = rest + text->substr(at);
    return count;
}

TEST(Threads, QueryOneConfigurationWhileRecordsAreWritten) {
    const TempDir directory;
    directory.Write("mod.ini", ModuleText());
    const std::string entry = directory.Write(
        "entry.ini", "[module]\nmodule_num = 1\nmodule1 = mod\n[mod]\ncfg_filename = mod.ini\n");
    ASSERT_EQ(ZV_CONFACCESS_Init("cfg", entry.c_str()), 0);
    ASSERT_EQ(ZV_LOG_OpenSave(directory.path().c_str()), 0);
    int wrong = -1;
    std::string output = MaskVolatile(CaptureStdout([&] { wrong = AskFromAllThreads(); }));
    ZV_LOG_CloseSave();
    EXPECT_EQ(ZV_CONFACCESS_Deinit("cfg"), 0);

    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(TakeAll(&output, kRecord), kThreads * kRounds);
    EXPECT_EQ(TakeAll(&output, kErrorCode), kThreads * kRounds);
    EXPECT_EQ(output.substr(0, 2000), "");
    std::string saved = MaskVolatile(ReadFile(directory.path() / "Q2VkYXJMb2dzVoLog1"));
    EXPECT_EQ(TakeAll(&saved, kRecord), kThreads * kRounds);
    EXPECT_EQ(saved.substr(0, 2000), "");
}

}  // namespace
}  // namespace paramgen::testing
