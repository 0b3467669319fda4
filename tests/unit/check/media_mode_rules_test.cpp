// Media modes: one mistake is one finding, however many places use the mode.

#include <gtest/gtest.h>

#include <string>

#include "check/check.h"
#include "diagnostics/report.h"
#include "unit/check/changes.h"

namespace paramgen::check {
namespace {

using diagnostics::RuleOf;
using paramgen::testing::TempDir;
using testing::Add;
using testing::Append;
using testing::Both;
using testing::Change;
using testing::CheckOf;
using testing::Replace;

TEST(MediaModeRules, AModeThatIsNoNameIsOneFinding) {
    const std::string mode = "QX_PARAM_MEDIAMODE_1080P_30";
    const Change uses = Both(
        Append("workmode_photo.ini", "[common.mediamode.config.0]\nmediamode = " + mode + "\n"),
        Append("valueset.ini", "[cam.0.mediamode.photo]\nnum = 1\nvalue0 = " + mode + "\n"));
    const Change serves = Add("cam0_mediamode0", "[common]\nmediamode = " + mode + "\n");
    const std::string typo = "QX_PARAM_MEDIAMODE_1080P_3O";
    for (const char* file : {"cam0_mediamode0.ini", "workmode_photo.ini", "valueset.ini"}) {
        const TempDir directory;
        const Verdict verdict =
            CheckOf(Both(Both(uses, serves), Replace(file, mode, typo)), directory, "");
        const std::string report = diagnostics::TextReport(verdict.findings, false);
        ASSERT_EQ(verdict.findings.size(), 1U) << report;
        EXPECT_EQ(RuleOf(verdict.findings[0].id).name, "unknown-name") << report;
        EXPECT_EQ(verdict.findings[0].place.file, file);
    }
}

TEST(MediaModeRules, AModuleThatLacksItsModeIsOneFinding) {
    const std::string mode = "QX_PARAM_MEDIAMODE_1080P_30";
    const Change uses = Both(
        Append("workmode_photo.ini", "[common.mediamode.config.0]\nmediamode = " + mode + "\n"),
        Append("valueset.ini", "[cam.0.mediamode.photo]\nnum = 1\nvalue0 = " + mode + "\n"));
    const std::string other = "[vb]\nmax_poolcnt = 0\n";
    for (const auto& [text, id] :
         {std::pair(other + "[common]\nmediamod = " + mode + "\n", "unknown-key"),
          std::pair(other + "[comon]\nmediamode = " + mode + "\n", "unknown-section"),
          std::pair(std::string(), "empty-module")}) {
        const TempDir directory;
        const Verdict verdict = CheckOf(Both(uses, Add("cam0_mediamode0", text)), directory, "");
        const std::string report = diagnostics::TextReport(verdict.findings, false);
        ASSERT_EQ(verdict.findings.size(), 1U) << report;
        EXPECT_EQ(RuleOf(verdict.findings[0].id).name, id) << report;
    }
}

TEST(MediaModeRules, AModeThatIsNotServedIsOneFinding) {
    const TempDir directory;
    const Change menu = Append(
        "valueset.ini", "[cam.0.mediamode.photo]\nnum = 1\nvalue0 = QX_PARAM_MEDIAMODE_1080P_30\n");
    const Change serves =
        Add("cam0_mediamode0", "[common]\nmediamode = QX_PARAM_MEDIAMODE_1080P_30\n");
    const Change other =
        Append("workmode_photo.ini",
               "[common.mediamode.config.0]\nmediamode = QX_PARAM_MEDIAMODE_1080P_60\n");
    const Verdict verdict = CheckOf(Both(Both(menu, serves), other), directory, "");
    const std::string report = diagnostics::TextReport(verdict.findings, false);
    ASSERT_EQ(verdict.findings.size(), 1U) << report;
    EXPECT_EQ(verdict.findings[0].message,
              "no cam0_mediamode module serves QX_PARAM_MEDIAMODE_1080P_60; served are "
              "QX_PARAM_MEDIAMODE_1080P_30");
}

}  // namespace
}  // namespace paramgen::check
