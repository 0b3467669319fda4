/// The fixture of the sweeps: what must follow a fault, by the kind and the place of the call.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "fault/sweep/said.h"
#include "fault/sweep/sweep.h"

namespace paramgen::testing {

inline constexpr int kModules = 18;

/// Whether a product may lack this module, by its number in the entry file of the example: playback
/// settings, media modes and lens calibrations.
inline bool IsOptional(int module) {
    return module >= 7 && module <= 14;
}

/// The code of a failure in the last records, and the exit status that it gives.
struct Failure {
    std::string code;
    int exitStatus;
};
inline const Failure kMinusOne = {"FFFFFFFF", 255};
inline const Failure kNoMemory = {"A1418044", 0x44};
inline const Failure kNoModule = {"A1418046", 0x46};

class FaultSweep : public ::testing::Test {
protected:
    void TearDown() override {
        for (const auto& [name, count] : counts_) {
            std::printf("    %5d %s\n", count, name.c_str());
        }
    }

    /// Whether a run ended because its values could not be loaded: the output files are unchanged.
    static bool IsUntouched(const End& end, int exitStatus, bool isRegistered) {
        return end == End{.exitStatus = exitStatus,
                          .held = 0,
                          .isRegistered = isRegistered,
                          .hasCleanImage = end.hasCleanImage,
                          .param = FileState::kOld,
                          .paramDef = FileState::kOld};
    }

    /// The end of a successful run.
    static End Complete() {
        return {.exitStatus = 0,
                .held = 0,
                .isRegistered = false,
                .hasCleanImage = true,
                .param = FileState::kImage,
                .paramDef = FileState::kImage};
    }

    /// Whether the fault made no difference.
    static bool IsUnaffected(const Point& point) { return point.isRest && point.end == Complete(); }

    /// Whether the registration failed with `lines` and the records that follow from them.
    static bool IsRegistrationFailure(const Point& point, const Failure& failure, Lines lines) {
        lines.push_back("func:ZV_CONFACCESS_Init,line:337[AddCfg] failed[0x" + failure.code + "]");
        lines.push_back("ERROR PDT_INIPARAM_LoadCfg: [./config_cfgaccess_entry.ini] failed[0x" +
                        failure.code + "]");
        lines.push_back("ERROR main: [load config] failed[0x" + failure.code + "]");
        return IsUntouched(point.end, failure.exitStatus, false) && Said(point.output) == lines;
    }

    /// Whether the entry file counted as unreadable.
    bool IsWithoutEntry(const Point& point) const {
        const std::string path = (sweep_.directory() / "config_cfgaccess_entry.ini").string();
        return IsRegistrationFailure(
            point, kMinusOne,
            {"[time][ERR][QXCONFACCE] CONFACCESS_GetModuleInfo:211 load " + path + " failed"});
    }

    /// Whether the module was left out: after `lines` the run goes on as a run without the module's
    /// file.
    bool IsWithoutModule(const Point& point, int module, Lines lines) {
        const WholeRun& without = Without(module);
        lines.insert(lines.end(), without_[module].begin() + (without_[module].empty() ? 0 : 1),
                     without_[module].end());
        End end = without.end;
        end.hasCleanImage = point.end.hasCleanImage;
        return point.end == end && Said(point.output) == lines;
    }

    bool IsUnloadedModule(const Point& point, int module) {
        Without(module);
        return IsWithoutModule(point, module, {FirstOf(without_[module])});
    }

    /// A run without the file of a module. Its records are checked here, and then expected of all
    /// runs that leave the module out.
    const WholeRun& Without(int module) {
        const auto found = runsWithout_.find(module);
        if (found != runsWithout_.end()) {
            return found->second;
        }
        const std::string path = Files()[static_cast<std::size_t>(module)];
        const std::string bytes = ReadFile(path);
        std::filesystem::remove(path);
        const WholeRun run = sweep_.Again();
        std::ofstream(path, std::ios::binary) << bytes;
        const Lines lines = Said(run.output);
        EXPECT_EQ(FirstOf(lines), "[time][QXCONFACCE] Load " + path + " failed");
        if (IsOptional(module)) {
            EXPECT_EQ(run.end.exitStatus, 0) << path;
            EXPECT_EQ(LastOf(lines), "DEBUG main: parambin update end") << path;
        } else {
            EXPECT_TRUE(IsUntouched(run.end, kNoModule.exitStatus, true)) << path;
            EXPECT_EQ(LastOf(lines), "ERROR main: [load config] failed[0xA1418046]") << path;
        }
        without_[module] = lines;
        return runsWithout_[module] = run;
    }

    /// The files that a run opens: entry file, modules, output files.
    const std::vector<std::string>& Files() {
        if (files_.empty()) {
            for (const Point& point : sweep_.Over(Kind::kOpen)) {
                files_.push_back(point.progress.path);
            }
        }
        return files_;
    }

    /// Whether the run logged this record about an output file, and went on.
    static bool SaysOfFile(const Point& point, const std::string& record) {
        const Lines rest = {"ERROR main: " + record, "DEBUG main: parambin update end"};
        return point.end.exitStatus == 0 && point.end.held == 0 && point.end.hasCleanImage &&
               Said(point.output) == rest;
    }

    /// Whether an output file could not be opened: it is unchanged, and so is one after it.
    static bool IsUnopenedFile(const Point& point, const std::string& file) {
        const bool isFirst = file == "./param.bin";
        const End end = {.exitStatus = 255,
                         .held = 0,
                         .isRegistered = false,
                         .hasCleanImage = true,
                         .param = isFirst ? FileState::kOld : FileState::kImage,
                         .paramDef = FileState::kOld};
        return point.end == end &&
               Said(point.output) == Lines{"ERROR main: open [" + file + "] failed"};
    }

    bool IsAsMemoryDemands(const Point& point);
    bool IsAsFormattingDemands(const Point& point);

    /// Counts a point of the class `name`. Returns true.
    bool Is(const std::string& name) { return ++counts_[name] != 0; }

    int CountOf(const std::string& name) const {
        const auto found = counts_.find(name);
        return found == counts_.end() ? 0 : found->second;
    }

    Sweep sweep_;
    std::map<std::string, int> counts_;

private:
    std::vector<std::string> files_;
    std::map<int, WholeRun> runsWithout_;
    std::map<int, Lines> without_;
};

}  // namespace paramgen::testing
