// Mistakes that engineers make: each is told once, in words that name the cure.

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "check/check.h"
#include "diagnostics/report.h"
#include "unit/check/small_product.h"

namespace paramgen::check {
namespace {

using paramgen::testing::TempDir;
using testing::Files;

constexpr char kEntry[] = "config_cfgaccess_entry.ini";

/// The messages of what is found in a product that is changed like this.
std::vector<std::string> MessagesOf(const std::function<void(Files&)>& change) {
    Files files = testing::SmallProduct();
    change(files);
    const TempDir directory;
    testing::Write(files, directory);
    const paramgen::testing::WorkingDirectory inside(directory.path());
    std::vector<std::string> messages;
    for (const diagnostics::Finding& finding : Check(".", {}).findings) {
        messages.push_back(diagnostics::FullMessage(finding));
        for (const diagnostics::Note& note : finding.notes) {
            messages.push_back("note: " + note.message);
        }
    }
    return messages;
}

std::vector<std::string> MessagesOf(const std::string& file, const std::string& text) {
    return MessagesOf([&](Files& files) { files[file] = text; });
}

using Messages = std::vector<std::string>;

TEST(Mistakes, ASectionThatWasPastedWithItsOldNumber) {
    EXPECT_EQ(
        MessagesOf("cam0_comm_record.ini",
                   "[venc.0]\nenable = yes\nvenchdl = 0\n[venc.0]\nenable = yes\nvenchdl = 1\n"),
        (Messages{"[venc.0] comes twice; 2 keys of it replace those of before; did you mean "
                  "'venc.1'?",
                  "note: they do not count here"}));
}

TEST(Mistakes, TwoFilesSwapped) {
    const auto swap = [](Files& files) {
        files["devmng.ini"] = "[dtcf]\nshare_percent = 0\nwarning_stage = 1\n";
        files["filemng.ini"] = "[keytone]\nenable = yes\n[gsensor]\nsensitivity = 1\n";
    };
    EXPECT_EQ(MessagesOf(swap),
              (Messages{"none of the 2 keys here is read for 'devmng'; they are those of 'filemng'",
                        "none of the 2 keys here is read for 'filemng'; they are those of "
                        "'devmng'"}));
}

TEST(Mistakes, AMergeConflictInAnOptionalFile) {
    const auto conflict = [](Files& files) {
        testing::AddModule("cam0_mediamode0",
                           "[common]\n<<<<<<< HEAD\nmediamode = QX_PARAM_MEDIAMODE_1080P_30\n",
                           &files);
    };
    EXPECT_EQ(MessagesOf(conflict), Messages{"a merge conflict marker; resolve the conflict"});
}

TEST(Mistakes, AFileInAnotherEncoding) {
    const std::string wide("\xFF\xFE[\0k\0]\0\n\0", 10);
    EXPECT_EQ(MessagesOf("devmng.ini", wide), Messages{"the file is UTF-16; save it as UTF-8"});
    EXPECT_EQ(MessagesOf("devmng.ini", "\xEF\xBB\xBF[keytone]\nenable = yes\n"),
              Messages{"the file begins with a byte order mark; save it as UTF-8 without one"});
}

TEST(Mistakes, APathInAnotherCase) {
    const auto rename = [](Files& files) {
        files["DevMng.ini"] = files["devmng.ini"];
        files.erase("devmng.ini");
    };
    EXPECT_EQ(MessagesOf(rename),
              Messages{"the file of 'devmng', 'devmng.ini', cannot be read; there is "
                       "'DevMng.ini'"});
}

TEST(Mistakes, ADirectoryInPlaceOfAFile) {
    const auto replace = [](Files& files) {
        files.erase("filemng.ini");
        files["filemng.ini/readme"] = "";
    };
    EXPECT_EQ(MessagesOf(replace), Messages{"the file of 'filemng', 'filemng.ini', is a directory, "
                                            "which reads as an empty file"});
}

TEST(Mistakes, NumbersWrittenInOtherWays) {
    const std::string sensitivity = "[gsensor]\nsensitivity = ";
    EXPECT_EQ(MessagesOf("devmng.ini", sensitivity + "12M\n"),
              Messages{"'M' behind the number is dropped; 12 is left; did you mean '12000000'?"});
    EXPECT_EQ(MessagesOf("devmng.ini", sensitivity + "29,97\n"),
              Messages{"',97' behind the number is dropped; 29 is left"});
    EXPECT_EQ(MessagesOf("devmng.ini", sensitivity + "0x2\n"),
              Messages{"'0x2' is read as decimal, that is 0; did you mean '2'?"});
    EXPECT_EQ(MessagesOf("devmng.ini", "[keytone]\nenable = on\n"),
              Messages{"'on' is neither true nor false, and counts as not given; did you mean "
                       "'yes'?"});
}

TEST(Mistakes, NumbersWithLettersBehindThem) {
    const auto valueOf = [](const std::string& section, const std::string& line) {
        const auto change = [&](Files& files) {
            testing::AddModule("cam0_mediamode0",
                               "[common]\nmediamode = QX_PARAM_MEDIAMODE_1080P_30\n[" + section +
                                   "]\n" + line + "\n",
                               &files);
        };
        const Messages messages = MessagesOf(change);
        return messages.empty() ? "" : messages.front();
    };
    const std::map<std::string, std::string> kBitRates = {
        // in kbit/s
        {"12M", "'M' behind the number is dropped; 12 is left; did you mean '12000'?"},
        {"12Mbit/s", "'Mbit/s' behind the number is dropped; 12 is left; did you mean '12000'?"},
        {"800k", "'k' behind the number is dropped; 800 is left; did you mean '800'?"},
        {"12 Mbit/s", "' Mbit/s' behind the number is dropped; 12 is left; did you mean '12000'?"},
        {"'12 '", "' ' behind the number is dropped; 12 is left"},
        {"0x7fffffff", "'0x7fffffff' is read as decimal, that is 0; did you mean '2147483647'?"},
        {"0xffffffff", "'0xffffffff' is read as decimal, that is 0"},
        {"12m", "'m' behind the number is dropped; 12 is left"},
        {"9000G", "'G' behind the number is dropped; 9000 is left"},
    };
    for (const auto& [text, message] : kBitRates) {
        EXPECT_EQ(valueOf("venc.0", "h265bitrate = " + text), message);
    }
    EXPECT_EQ(valueOf("vcap.pipe.0", "isp_framerate = 29,97"),
              "',97' behind the number is dropped; 29 is left; did you mean '29.97'?");
}

TEST(Mistakes, ATypoInTheOnlyKeyOfAFile) {
    EXPECT_EQ(MessagesOf("workmode_common.ini", "[common]\npowero_workmode = 1\n"),
              Messages{"unknown key 'powero_workmode' in [common]; did you mean "
                       "'poweron_workmode'?"});
}

TEST(Mistakes, AModuleThatNothingReadsHasKeysOfItsOwn) {
    const auto change = [](Files& files) {
        testing::AddModule("cam0_mediamode0", "[common]\nmediamode = QX_PARAM_MEDIAMODE_1080P_30\n",
                           &files);
        testing::AddModule("cam0_ldccfg_1", "[LDCV1Attr]\nxratio = 1\nyratio = 2\n", &files);
    };
    EXPECT_EQ(MessagesOf(change), Messages{"none of the 2 keys here is read for 'cam0_ldccfg_1'"});
}

TEST(Mistakes, AMediaModeByTheEndOfItsName) {
    const auto change = [](Files& files) {
        files["workmode_record.ini"] += "[common.mediamode.config.0]\nmediamode = 2160P30\n";
    };
    EXPECT_EQ(MessagesOf(change), Messages{"there is no name '2160P30'; did you mean "
                                           "'QX_PARAM_MEDIAMODE_2160P_30'?"});
}

TEST(Mistakes, MinutesForSeconds) {
    const auto change = [](Files& files) {
        files["valueset.ini"] +=
            "[splite_time]\nnum = 3\nvalue0 = 60\nvalue1 = 180\nvalue2 = 300\n";
        files["workmode_record.ini"] += "[normal.0]\nenable = yes\nsplit_time = 3\n";
    };
    EXPECT_EQ(MessagesOf(change),
              Messages{"the menu [splite_time] does not offer '3'; it has 60, 180, 300"});
}

TEST(Mistakes, AForgottenCount) {
    const auto change = [](Files& files) {
        std::string& entry = files[kEntry];
        entry.replace(entry.find("module_num = 10"), 15, "module_num = 9");
    };
    EXPECT_EQ(MessagesOf(change),
              (Messages{"modules that are needed are not read: module_num is 9",
                        "note: 'workmode_record' is listed here, beyond module_num"}));
}

TEST(Mistakes, APathWithoutASlash) {
    const auto change = [](Files& files) {
        files["config/devmng.ini"] = files["devmng.ini"];
        files.erase("devmng.ini");
        std::string& entry = files[kEntry];
        entry.insert(entry.find("[devmng]\n") + 9, "path = config\n");
    };
    EXPECT_EQ(MessagesOf(change),
              (Messages{"the file of 'devmng', 'devmng.ini', cannot be read",
                        "note: a path without '/' is not taken; write ./config"}));
}

}  // namespace
}  // namespace paramgen::check
