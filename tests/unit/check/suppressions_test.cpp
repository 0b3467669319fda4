// Comments that silence warnings, and where they do.

#include <gtest/gtest.h>

#include <string>

#include "check/check.h"
#include "diagnostics/report.h"
#include "unit/check/small_product.h"

namespace paramgen::check {
namespace {

using paramgen::testing::TempDir;

std::string ReportOf(const testing::Files& files) {
    const TempDir directory;
    testing::Write(files, directory);
    const paramgen::testing::WorkingDirectory inside(directory.path());
    return diagnostics::TextReport(Check(".", {}).findings, false);
}

std::string ReportOfDevmng(const std::string& text) {
    testing::Files files = testing::SmallProduct();
    files["devmng.ini"] = text;
    return ReportOf(files);
}

constexpr char kIgnore[] = "; paramtool: ignore not-a-boolean (why)\n";

TEST(Suppressions, AtTheEndOfALineOrAloneAboveIt) {
    const std::string ignore = kIgnore;
    EXPECT_EQ(ReportOfDevmng("[keytone]\nenable = on " + ignore), "");
    EXPECT_EQ(ReportOfDevmng("[keytone]\n" + ignore + "enable = on\n"), "");
    EXPECT_EQ(ReportOfDevmng("[keytone]\n# paramtool: ignore not-a-boolean (why)\nenable = on\n"),
              "");
    EXPECT_NE(ReportOfDevmng("[keytone]\nenable = on\n" + ignore + "[buzzer]\nenable = no\n"), "");
}

TEST(Suppressions, AtAHeaderForItsSectionAndAtTheTopForTheFile) {
    const std::string ignore = kIgnore;
    const std::string two = "enable = on\n[buzzer]\nenable = off\n";
    EXPECT_EQ(ReportOfDevmng(ignore + "[keytone]\n" + two), "");
    const std::string header = ReportOfDevmng("[keytone] " + ignore + two);
    EXPECT_EQ(header.find("devmng.ini:2:"), std::string::npos) << header;
    EXPECT_NE(header.find("devmng.ini:4:10: warning: "), std::string::npos) << header;
}

TEST(Suppressions, OfAWholeFileStandInTheEntryFile) {
    testing::Files files = testing::SmallProduct();
    files["devmng.ini"] = "";
    files["config_cfgaccess_entry.ini"] += "; paramtool: ignore empty-module devmng.ini (later)\n";
    EXPECT_EQ(ReportOf(files), "");
}

TEST(Suppressions, OfAFileAreForKeysAboveThemAsWell) {
    const std::string ignore = "; paramtool: ignore unknown-key (legacy)\n";
    EXPECT_EQ(ReportOfDevmng("old = 1\n" + ignore + "[keytone]\nenable = 1\nold = 2\n"), "");
}

TEST(Suppressions, ThatLieInEachOtherAreAllNeeded) {
    const std::string ignore = kIgnore;
    EXPECT_EQ(ReportOfDevmng(ignore + "[keytone] " + ignore + ignore + "enable = on " + ignore),
              "");
    const std::string report =
        ReportOfDevmng("[keytone] " + ignore + "enable = on\n[buzzer] " + ignore + "enable = no\n");
    EXPECT_NE(report.find("devmng.ini:3:12: warning: there is no warning"), std::string::npos)
        << report;
    EXPECT_EQ(report.find("devmng.ini:1:"), std::string::npos) << report;
}

TEST(Suppressions, DoNotSilenceErrors) {
    const std::string report = ReportOfDevmng(
        "[gsensor]\nsensitivity = 99999999999 ; paramtool: ignore number-out-of-range (x)\n");
    EXPECT_NE(report.find("error: "), std::string::npos) << report;
    EXPECT_NE(report.find("[unneeded-suppression]"), std::string::npos) << report;
}

TEST(Suppressions, ThatAreNotUnderstoodAreTold) {
    EXPECT_NE(ReportOfDevmng("[keytone]\nenable = 1 ; paramtool: ignroe octal (x)\n")
                  .find("not understood"),
              std::string::npos);
    EXPECT_NE(ReportOfDevmng("[keytone]\nenable = 1 ; paramtool: ignore octall (x)\n")
                  .find("there is no finding 'octall'"),
              std::string::npos);
}

}  // namespace
}  // namespace paramgen::check
