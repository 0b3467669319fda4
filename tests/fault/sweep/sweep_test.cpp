// The generator on the example product, with each of its calls failing in turn.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fault/sweep/fault_sweep.h"
#include "support/records.h"

namespace paramgen::testing {

using ::testing::Contains;
using ::testing::ElementsAre;

namespace {

/// Prints at the end how much was swept.
class Count : public ::testing::Environment {
public:
    void TearDown() override {
        std::printf("fault sweep: %d points, of %d calls\n", PointCount(), CallCount());
    }
};
const ::testing::Environment* const g_count = ::testing::AddGlobalTestEnvironment(new Count);

/// Description of a point for the message of a failing test.
std::string Describe(const Point& point) {
    std::string text = "call " + std::to_string(point.number) + " after " +
                       std::to_string(point.progress.opens) + " files, the last " +
                       point.progress.path + (point.progress.fileIsOpen ? " open" : "") +
                       ": exit status " + std::to_string(point.end.exitStatus) + ", held " +
                       std::to_string(point.end.held) + "\n";
    for (const std::string& line : Said(point.output)) {
        text += "    " + line + "\n";
        if (text.size() > 4000) {
            break;
        }
    }
    return text;
}

TEST_F(FaultSweep, NoFault) {
    const WholeRun& clean = sweep_.Clean();
    EXPECT_EQ(clean.end, Complete());
    EXPECT_EQ(MaskVolatile(clean.output), ReadFile(PARAMGEN_GOLDEN "/dashcam_output.txt"));
}

}  // namespace

/// Expected without memory: for a stream's buffer, libc works without one; for a stream, the file
/// cannot be opened; for a file's contents, the file counts as unreadable. While values are read
/// nothing is allocated.
bool FaultSweep::IsAsMemoryDemands(const Point& point) {
    const int opens = point.progress.opens;
    if (point.progress.isInStream) {
        return IsUnaffected(point) && Is("unaffected");
    }
    if (point.wasLoading) {
        return false;
    }
    if (opens > 1 + kModules) {
        return IsUnopenedFile(point, point.progress.path) && Is(point.progress.path);
    }
    if (opens == 0 &&
        IsRegistrationFailure(point, kNoMemory,
                              {"func:CONFACCESS_Init,line:264,pointer[cfgPos] is null"})) {
        return Is("no configuration");
    }
    if (opens <= 1) {
        return IsWithoutEntry(point) && Is("no entry file");
    }
    return IsUnloadedModule(point, opens - 1) && Is("left out: " + std::to_string(opens - 1));
}

namespace {

TEST_F(FaultSweep, Memory) {
    // Make each file so large that it needs memory of its own: for its text and, after it is
    // closed, for the records of its lines.
    const std::string comment = "# " + std::string(1000, '.') + "\n";
    for (const std::string& path : Files()) {
        std::ofstream file(path, std::ios::app);
        for (int line = 0; line < 70 && path.ends_with(".ini"); ++line) {
            file << comment << std::string(70, '\n');
        }
    }
    for (const Point& point : sweep_.Over(Kind::kAllocation)) {
        EXPECT_TRUE(IsAsMemoryDemands(point)) << Describe(point);
    }
    EXPECT_EQ(CountOf("no configuration"), 1);
    EXPECT_GE(CountOf("no entry file"), 3);
    for (int module = 1; module <= kModules; ++module) {
        EXPECT_GE(CountOf("left out: " + std::to_string(module)), 2);
    }
    EXPECT_EQ(CountOf("./param.bin"), 1);
    EXPECT_EQ(CountOf("./paramdef.bin"), 1);
}

}  // namespace

bool FaultSweep::IsAsFormattingDemands(const Point& point) {
    if (point.wasLoading) {
        // A key that is only formatted as the label of a failure makes no difference.
        return (IsUnaffected(point) && Is("label")) ||
               (IsUntouched(point.end, 255, true) && IsFormattingChain(Said(point.output)) &&
                Is("key"));
    }
    const int module = point.progress.opens;
    const Lines lines = Said(point.output);
    const auto begins = [&](const std::string& line) { return FirstOf(lines) == line; };
    for (const int line : {266, 269}) {
        const std::string text = "[CONFACCESS_Init]" + std::to_string(line) + ": snprintf_s";
        if (begins(text)) {
            return IsRegistrationFailure(point, kMinusOne, {text}) && Is(text);
        }
    }
    const std::string entryFile = "[CONFACCESS_GetModuleInfo]217: snprintf_s";
    if (begins(entryFile)) {
        return IsRegistrationFailure(point, kMinusOne, {entryFile}) && Is(entryFile);
    }
    const std::string code = "func:CONFACCESS_InitModule,line:173,Error Code: [0xFFFFFFFF]";
    const std::string pathKey = "[CONFACCESS_GetModulePath]104: snprintf_s";
    if (begins(pathKey)) {
        return IsWithoutModule(point, module, {pathKey, code}) && Is(pathKey);
    }
    for (const int line : {157, 166, 178, 192}) {
        const std::string text = "[CONFACCESS_InitModule]" + std::to_string(line) + ": snprintf_s";
        if (begins(text)) {
            return IsWithoutModule(point, module, {text}) && Is(text);
        }
    }
    return IsWithoutModule(point, module, {code}) && Is(code);
}

namespace {

TEST_F(FaultSweep, Formatting) {
    for (const Point& point : sweep_.Over(Kind::kFormat, 3)) {
        EXPECT_TRUE(IsAsFormattingDemands(point)) << Describe(point);
    }
    for (const char* once : {"[CONFACCESS_Init]266: snprintf_s", "[CONFACCESS_Init]269: snprintf_s",
                             "[CONFACCESS_GetModuleInfo]217: snprintf_s"}) {
        EXPECT_EQ(CountOf(once), 1) << once;
    }
    for (const char* perModule :
         {"[CONFACCESS_InitModule]157: snprintf_s", "[CONFACCESS_InitModule]166: snprintf_s",
          "[CONFACCESS_InitModule]178: snprintf_s", "[CONFACCESS_InitModule]192: snprintf_s",
          "[CONFACCESS_GetModulePath]104: snprintf_s",
          "func:CONFACCESS_InitModule,line:173,Error Code: [0xFFFFFFFF]"}) {
        EXPECT_EQ(CountOf(perModule), kModules) << perModule;
    }
    EXPECT_GE(CountOf("key"), 20);
}

TEST_F(FaultSweep, Opening) {
    const std::vector<Point> points = sweep_.Over(Kind::kOpen);
    ASSERT_EQ(points.size(), 1U + kModules + 2);
    EXPECT_TRUE(IsWithoutEntry(points[0])) << Describe(points[0]);
    for (int module = 1; module <= kModules; ++module) {
        const Point& point = points[static_cast<std::size_t>(module)];
        EXPECT_TRUE(IsUnloadedModule(point, module)) << Describe(point);
    }
    EXPECT_TRUE(IsUnopenedFile(points[kModules + 1], "./param.bin"));
    EXPECT_TRUE(IsUnopenedFile(points[kModules + 2], "./paramdef.bin"));
}

TEST_F(FaultSweep, Reading) {
    for (const Point& point : sweep_.Over(Kind::kRead)) {
        const int module = point.progress.opens - 1;
        EXPECT_TRUE(module == 0 ? IsWithoutEntry(point) : IsUnloadedModule(point, module))
            << Describe(point);
        Is(point.progress.path);
    }
    EXPECT_EQ(counts_.size(), 1U + kModules);  // every file was swept
}

TEST_F(FaultSweep, DeviceThatTakesNoMore) {
    for (const Point& point : sweep_.Over(Kind::kWrite)) {
        const bool isFirst = point.progress.path == "./param.bin";
        const std::string what = FirstOf(Said(point.output));
        EXPECT_TRUE(SaysOfFile(point, what.substr(std::string("ERROR main: ").size())))
            << Describe(point);
        EXPECT_THAT(what, ::testing::MatchesRegex(
                              isFirst ? "ERROR main: (fwrite : total 29928, write [0-9]+|.fclose "
                                        "failed. failed)"
                                      : "ERROR main: (fwrite : total 29928, write [0-9]+|.fflush "
                                        "failed. failed)"));
        EXPECT_EQ(isFirst ? point.end.param : point.end.paramDef, FileState::kPart);
        EXPECT_EQ(isFirst ? point.end.paramDef : point.end.param, FileState::kImage);
        Is(point.progress.path);
    }
    EXPECT_EQ(counts_.size(), 2U);
}

TEST_F(FaultSweep, ShortWrite) {
    const std::pair<Kind, const char*> kKinds[] = {
        {Kind::kShortWrite, "fwrite : total 29928, write 29927"},
        {Kind::kRefusedWrite, "fwrite : total 29928, write 0"}};
    for (const auto& [kind, record] : kKinds) {
        const std::vector<Point> points = sweep_.Over(kind);
        ASSERT_EQ(points.size(), 2U);
        for (const Point& point : points) {
            EXPECT_TRUE(SaysOfFile(point, record)) << Describe(point);
        }
        EXPECT_EQ(points[0].end.param, FileState::kPart);
        EXPECT_EQ(points[0].end.paramDef, FileState::kImage);
        EXPECT_EQ(points[1].end.param, FileState::kImage);
        EXPECT_EQ(points[1].end.paramDef, FileState::kPart);
    }
}

// Only the second file is flushed explicitly.
TEST_F(FaultSweep, Flushing) {
    const std::vector<Point> points = sweep_.Over(Kind::kFlush);
    ASSERT_EQ(points.size(), 1U);
    EXPECT_EQ(points[0].progress.path, "./paramdef.bin");
    EXPECT_TRUE(SaysOfFile(points[0], "[fflush failed] failed")) << Describe(points[0]);
    EXPECT_EQ(points[0].end, Complete());
}

TEST_F(FaultSweep, Closing) {
    // fclose is called for output files only; the device may report an error for every file.
    const std::pair<Kind, std::size_t> kKinds[] = {{Kind::kClose, 2},
                                                   {Kind::kDeviceClose, 1 + kModules + 2}};
    for (const auto& [kind, count] : kKinds) {
        const std::vector<Point> points = sweep_.Over(kind);
        ASSERT_EQ(points.size(), count);
        for (const Point& point : points) {
            const bool isRead = point.progress.opens <= 1 + kModules;
            EXPECT_TRUE(isRead ? IsUnaffected(point) : SaysOfFile(point, "[fclose failed] failed"))
                << Describe(point);
            EXPECT_EQ(point.end, Complete());
        }
    }
}

TEST_F(FaultSweep, Resolving) {
    const std::vector<Point> points = sweep_.Over(Kind::kRealpath);
    ASSERT_EQ(points.size(), 1U);
    EXPECT_TRUE(IsUntouched(points[0].end, 255, false));
    EXPECT_THAT(
        Said(points[0].output),
        ElementsAre("[time][QXCONFACCE] RealPath failed",
                    "ERROR PDT_INIPARAM_LoadCfg: [./config_cfgaccess_entry.ini] failed[0xFFFFFFFF]",
                    "ERROR main: [load config] failed[0xFFFFFFFF]"));
}

// The results of mutex functions are ignored.
TEST_F(FaultSweep, Mutexes) {
    for (const Kind kind :
         {Kind::kMutexInit, Kind::kMutexLock, Kind::kMutexUnlock, Kind::kMutexDestroy}) {
        const bool isOnce = kind == Kind::kMutexInit || kind == Kind::kMutexDestroy;
        const std::vector<Point> points = sweep_.Over(kind, isOnce ? 1 : 97);
        EXPECT_EQ(points.size() == 1, isOnce);
        EXPECT_FALSE(points.empty());
        for (const Point& point : points) {
            EXPECT_TRUE(IsUnaffected(point)) << Describe(point);
        }
        const WholeRun run = sweep_.Failing(kind);
        EXPECT_EQ(run.end, Complete());
        EXPECT_EQ(run.output, sweep_.Clean().output);
    }
}

// The output of the failing write is lost, and nothing else.
TEST_F(FaultSweep, StandardOutput) {
    const std::string& clean = sweep_.Clean().output;
    const std::vector<Point> points = sweep_.Over(Kind::kOutput);
    EXPECT_FALSE(points.empty());
    for (const Point& point : points) {
        EXPECT_EQ(point.end, Complete()) << Describe(point);
        EXPECT_LT(point.output.size(), clean.size() - point.said);
        EXPECT_TRUE(std::string_view(clean).ends_with(point.output));
    }
    const WholeRun run = sweep_.Failing(Kind::kOutput);
    EXPECT_EQ(run.end, Complete());
    EXPECT_EQ(run.output, "");
}

// The library log reads the clock when a module is missing.
TEST_F(FaultSweep, Clock) {
    std::filesystem::remove("camera/ldc/ldc1_photo_2160p.ini");
    for (const Kind kind : {Kind::kClock, Kind::kLocalTime}) {
        const std::vector<Point> points = sweep_.Over(kind);
        ASSERT_EQ(points.size(), 1U);
        EXPECT_EQ(points[0].end, Complete());
        EXPECT_EQ(Said(points[0].output), Said(sweep_.Clean().output));
        EXPECT_EQ(FirstOf(Said(points[0].output)),
                  "[time][QXCONFACCE] Load ./camera/ldc/ldc1_photo_2160p.ini failed");
    }
}

}  // namespace
}  // namespace paramgen::testing
