#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "log/library_log.h"
#include "log/save_file.h"
#include "support/captured_output.h"
#include "support/save_path.h"

namespace paramgen::testing {
namespace {

constexpr int kThreads = 8;
constexpr int kRecords = 300;
constexpr std::uint32_t kLimit = 2000;

void LogFromThreads() {
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([thread] {
            for (int record = 0; record < kRecords; ++record) {
                EXPECT_EQ(ZV_LOG_PrintfInfo("TAG", kLibraryErr, "Func", 7, "record %d.%03d\n",
                                            thread, record),
                          0);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

/// The lines of a text, each of which must be a record.
std::vector<std::string> RecordsOf(const std::string& text) {
    static const std::regex record(
        "\\[[0-9:]{13}\\]\\[ERR\\]\\[TAG\\] Func:7 record [0-7]\\.[0-9]{3}");
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        EXPECT_TRUE(std::regex_match(line, record)) << line;
        lines.push_back(line);
    }
    return lines;
}

using LogThreads = SavePathTest;

TEST_F(LogThreads, EveryRecordIsPrintedWholeAndTheFilesKeepTheirLimit) {
    ASSERT_EQ(Open(kLimit), 0);
    const std::vector<std::string> printed = RecordsOf(CaptureStdout(LogFromThreads));
    EXPECT_TRUE(ZV_LOG_IsSaveOpen());
    ZV_LOG_CloseSave();
    EXPECT_EQ(printed.size(), std::size_t{kThreads * kRecords});
    const std::set<std::string> all(printed.begin(), printed.end());
    EXPECT_EQ(all.size(), printed.size());
    for (const std::string& text : {Text1(), Text2()}) {
        EXPECT_FALSE(text.empty());
        EXPECT_LE(text.size(), kLimit);
        for (const std::string& saved : RecordsOf(text)) {
            EXPECT_EQ(all.count(saved), 1U) << saved;
        }
    }
}

TEST_F(LogThreads, SavePathMayOpenAndCloseMeanwhile) {
    const std::string output = CaptureStdout([&] {
        std::thread other([&] {
            for (int i = 0; i < 50; ++i) {
                EXPECT_EQ(Open(kLimit), 0);
                std::this_thread::yield();
                ZV_LOG_CloseSave();
            }
        });
        LogFromThreads();
        other.join();
    });
    std::size_t records = 0;
    for (std::size_t at = output.find("record "); at != std::string::npos;
         at = output.find("record ", at + 1)) {
        ++records;
    }
    EXPECT_EQ(records, std::size_t{kThreads * kRecords});
    EXPECT_FALSE(ZV_LOG_IsSaveOpen());
}

}  // namespace
}  // namespace paramgen::testing
