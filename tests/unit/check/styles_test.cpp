// Healthy products in other styles than the example's: nothing is found in them.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <string>

#include "check/check.h"
#include "diagnostics/report.h"
#include "unit/check/small_product.h"

namespace paramgen::check {
namespace {

using paramgen::testing::TempDir;
using testing::Files;

/// The example's INI files.
Files Example() {
    const std::filesystem::path directory = std::string(PARAMGEN_EXAMPLES) + "/dashcam";
    Files files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(directory)) {
        if (entry.path().extension() == ".ini") {
            files[std::filesystem::relative(entry.path(), directory).string()] =
                paramgen::testing::ReadFile(entry.path());
        }
    }
    return files;
}

std::string ReportOf(const Files& files) {
    const TempDir directory;
    testing::Write(files, directory);
    const paramgen::testing::WorkingDirectory inside(directory.path());
    return diagnostics::TextReport(Check(".", {}).findings, false);
}

/// The example with every line changed.
Files EachLine(const std::function<std::string(const std::string&)>& change) {
    Files files = Example();
    for (auto& [path, text] : files) {
        std::string changed;
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = std::min(text.find('\n', at), text.size());
            changed += change(text.substr(at, end - at)) + "\n";
            at = end + 1;
        }
        text = changed;
    }
    return files;
}

bool IsValue(const std::string& line) {
    return !line.empty() && std::string("#;[").find(line[0]) == std::string::npos &&
           line.find('=') != std::string::npos;
}

TEST(Styles, TheExampleIsFine) {
    EXPECT_EQ(ReportOf(Example()), "");
}

TEST(Styles, CarriageReturns) {
    EXPECT_EQ(ReportOf(EachLine([](const std::string& line) { return line + "\r"; })), "");
}

TEST(Styles, TabsAroundEverything) {
    const auto indented = [](const std::string& line) {
        const std::size_t equals = line.find('=');
        return IsValue(line)
                   ? "\t" + line.substr(0, equals) + "\t=\t" + line.substr(equals + 1) + "\t"
                   : "\t" + line + "\t";
    };
    EXPECT_EQ(ReportOf(EachLine(indented)), "");
}

TEST(Styles, CommentsBehindValues) {
    const auto commented = [](const char* comment) {
        return [=](const std::string& line) {
            const bool hasComment = line.find_first_of(";#") != std::string::npos;
            return IsValue(line) && !hasComment ? line + comment : line;
        };
    };
    EXPECT_EQ(ReportOf(EachLine(commented(" ; factory value"))), "");
    EXPECT_EQ(ReportOf(EachLine(commented("\t# factory value"))), "");
}

TEST(Styles, ASectionThatContinuesLater) {
    Files files = testing::SmallProduct();
    files["workmode_record.ini"] =
        "[record.common]\nthm_type = 1\n[osd]\nosdcnt = 0\n[record.common]\nrepaire_unit = 2048\n";
    EXPECT_EQ(ReportOf(files), "");
}

TEST(Styles, OneFileForAllModules) {
    Files files;
    std::string& entry = files["config_cfgaccess_entry.ini"];
    std::string& all = files["all.ini"];
    std::string sections;
    std::size_t count = 0;
    for (const auto& [path, text] : testing::SmallProduct()) {
        if (path == "config_cfgaccess_entry.ini") {
            continue;
        }
        const std::string module = path.substr(0, path.size() - 4);
        entry += "module" + std::to_string(++count) + " = " + module + "\n";
        sections += "[" + module + "]\ncfg_filename = all.ini\n";
        all += all.find(text) == std::string::npos ? text : "";
    }
    entry = "[module]\nmodule_num = " + std::to_string(count) + "\n" + entry + sections;
    EXPECT_EQ(ReportOf(files), "");
}

TEST(Styles, OneFileForTwoModulesThatWriteItsPathInTwoWays) {
    Files files = testing::SmallProduct();
    std::string& entry = files["config_cfgaccess_entry.ini"];
    const std::string before = "cfg_filename = filemng.ini";
    entry.replace(entry.find(before), before.size(), "path = ./\ncfg_filename = devmng.ini");
    files["devmng.ini"] += files["filemng.ini"];
    files.erase("filemng.ini");
    EXPECT_EQ(ReportOf(files), "");
}

TEST(Styles, OneMediaModeAndNoPlaybackOrLens) {
    const std::string mode = "QX_PARAM_MEDIAMODE_1080P_30";
    const std::string start = "[common.mediamode.config.0]\ncamid = 0\nmediamode = " + mode + "\n";
    Files files = testing::SmallProduct();
    testing::AddModule("cam0_mediamode0", "[common]\nmediamode = " + mode + "\n", &files);
    files["workmode_record.ini"] += start;
    files["workmode_photo.ini"] += start;
    for (const char* menu : {"record", "photo"}) {
        files["valueset.ini"] += std::string("[cam.0.mediamode.") + menu +
                                 "]\nnum = 1\ndescription0 = FHD\nvalue0 = " + mode + "\n";
    }
    EXPECT_EQ(ReportOf(files), "");
}

TEST(Styles, WindowsOfDisplaysHaveNoEffectAndNeedNone) {
    Files files = testing::SmallProduct();
    files["media_common.ini"] +=
        "[disp.0.window.0]\nenable = yes\nx = 0\n[disp.0.window.1]\ny = 1\n";
    EXPECT_EQ(ReportOf(files), "");
}

TEST(Styles, SpellingInAnyCaseWithSpacesAndQuotes) {
    Files files = testing::SmallProduct();
    files["devmng.ini"] = "[ KeyTone ]\nENABLE=\"yes\"\n\n  [GSENSOR]\n  Sensitivity = '2'\n";
    EXPECT_EQ(ReportOf(files), "");
}

}  // namespace
}  // namespace paramgen::check
