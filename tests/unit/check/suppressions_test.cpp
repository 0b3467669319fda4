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

TEST(Suppressions, EndWithASectionThatIsLeftAsItWas) {
    EXPECT_EQ(ReportOfDevmng("[keytone] " + std::string(kIgnore) + "[]\nenable = on\n"), "");
}

TEST(Suppressions, SeveralMayStandInOneComment) {
    EXPECT_EQ(ReportOfDevmng("[gsensor]\nsensitivity = 0x2;x paramtool: ignore hexadecimal (a) "
                             "paramtool: ignore value-cut (see paramtool: help)\n"),
              "");
    const std::string report = ReportOfDevmng(
        "[keytone]\nenable = on ; paramtool: ignore not-a-boolean (a) paramtool: "
        "ignore octal (b)  \r\n");
    EXPECT_EQ(report,
              "devmng.ini:2:51: warning: there is no warning 'octal' to ignore "
              "[unneeded-suppression]\n"
              "    2 | enable = on ; paramtool: ignore not-a-boolean (a) paramtool: ignore octal "
              "(b)\n"
              "      |                                                   "
              "^~~~~~~~~~~~~~~~~~~~~~~~~~~\n");
}

TEST(Suppressions, OutsideTheEntryFileNameNoPath) {
    const std::string report =
        ReportOfDevmng("[keytone]\nenable = on ; paramtool: ignore not-a-boolean as it is\n");
    EXPECT_EQ(report.find("[not-a-boolean]"), std::string::npos) << report;
    EXPECT_EQ(report.find("[unneeded-suppression]"), std::string::npos) << report;
    EXPECT_NE(report.find("devmng.ini:2:15: warning: 'not-a-boolean' is ignored without a reason"),
              std::string::npos)
        << report;
}

TEST(Suppressions, MayNameAFileWithSpaces) {
    testing::Files files = testing::SmallProduct();
    std::string& entry = files["config_cfgaccess_entry.ini"];
    entry.replace(entry.find("= devmng.ini"), 12, "= dev mng.ini");
    files["dev mng.ini"] = "";
    files.erase("devmng.ini");
    entry += "; paramtool: ignore empty-module ./dev mng.ini (later)\n";
    EXPECT_EQ(ReportOf(files), "");
}

TEST(Suppressions, OfAWholeFileThatHasNoSuchWarningTellOfWhichFile) {
    testing::Files files = testing::SmallProduct();
    files["config_cfgaccess_entry.ini"] += "; paramtool: ignore not-a-boolean devmng.ini (w)\n";
    EXPECT_NE(ReportOf(files).find("there is no warning 'not-a-boolean' about the whole of "
                                   "'devmng.ini' to ignore"),
              std::string::npos);
}

TEST(Suppressions, SilenceWarningsAboutSuppressionsToo) {
    const std::string unneeded = "; paramtool: ignore unneeded-suppression (shared file)\n";
    EXPECT_EQ(ReportOfDevmng("[keytone]\n" + unneeded + "enable = 1 " + kIgnore), "");
    EXPECT_EQ(ReportOfDevmng(unneeded + "[keytone]\nenable = 1 " + kIgnore), "");
    EXPECT_EQ(ReportOfDevmng("; paramtool: ignore suppression-without-reason (old file)\n"
                             "[keytone]\nenable = on ; paramtool: ignore not-a-boolean\n"),
              "");
}

TEST(Suppressions, OfWhatIsNoFindingTellWhatIsMeant) {
    const auto report = [](const std::string& id) {
        return ReportOfDevmng("[keytone]\nenable = 1 ; paramtool: ignore " + id + " (x)\n");
    };
    EXPECT_NE(report("not-a-boolen").find("'not-a-boolen'; did you mean 'not-a-boolean'? ["),
              std::string::npos);
    EXPECT_NE(report("octal,").find("'octal,'; did you mean 'octal'? ["), std::string::npos);
    EXPECT_NE(report("values").find("'values' is a group of findings; name the one to ignore ["),
              std::string::npos);
}

}  // namespace
}  // namespace paramgen::check
