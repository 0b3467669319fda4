// Mistakes in a whole product: what follows from one is not told as well.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "check/check.h"
#include "diagnostics/report.h"
#include "unit/check/small_product.h"

namespace paramgen::check {
namespace {

using paramgen::testing::TempDir;
using testing::Files;

Files Example() {
    const std::filesystem::path tree = std::filesystem::path(PARAMGEN_EXAMPLES) / "dashcam";
    Files files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(tree)) {
        if (entry.path().extension() == ".ini") {
            std::ostringstream text;
            text << std::ifstream(entry.path()).rdbuf();
            files[std::filesystem::relative(entry.path(), tree).string()] = text.str();
        }
    }
    return files;
}

/// "file:line id" of everything that is found in the example when it is changed like this.
std::vector<std::string> FoundIn(const std::function<void(Files&)>& change,
                                 const Choice& choice = {}) {
    Files files = Example();
    change(files);
    const TempDir directory;
    testing::Write(files, directory);
    const paramgen::testing::WorkingDirectory inside(directory.path());
    std::vector<std::string> found;
    for (const diagnostics::Finding& finding : Check(".", choice).findings) {
        found.push_back(finding.place.file + ":" + std::to_string(finding.place.line) + " " +
                        std::string(RuleOf(finding.id).name));
    }
    return found;
}

using Found = std::vector<std::string>;

/// Replaces the first `from`.
void Replace(std::string* text, const std::string& from, const std::string& to) {
    const std::size_t at = text->find(from);
    ASSERT_NE(at, std::string::npos) << from;
    text->replace(at, from.size(), to);
}

TEST(OneCause, TwoFilesOfNearlyTheSameSectionsSwapped) {
    const auto swap = [](Files& files) {
        files["workmode/photo.ini"].swap(files["workmode/record.ini"]);
    };
    EXPECT_EQ(FoundIn(swap), (Found{"workmode/photo.ini:10 unknown-section",
                                    "workmode/record.ini:23 unknown-section"}));
}

TEST(OneCause, ASectionWithAnotherOnesNumber) {
    // The fourth encoder replaces the third, whose handle is 2; [venc.4] is not read then.
    const auto renumber = [](Files& files) {
        std::string& pipeline = files["camera/cam0_comm_record.ini"];
        Replace(&pipeline, "[venc.3]", "[venc.2]");
        Replace(&pipeline, "[venc.3.intraRefresh]", "[venc.2.intraRefresh]");
    };
    EXPECT_EQ(FoundIn(renumber), (Found{"camera/cam0_comm_record.ini:288 duplicate-key",
                                        "camera/cam0_comm_record.ini:300 duplicate-key",
                                        "camera/cam0_comm_record.ini:306 unread-key",
                                        "camera/cam0_comm_record.ini:318 unread-key"}));
}

TEST(OneCause, AHandleThatNobodyHasIsToldWhenItIsWrittenNowhere) {
    const auto remove = [](Files& files) {
        Replace(&files["workmode/record.ini"], "thumbnail_hdl = 3", "thumbnail_hdl = 7");
    };
    EXPECT_EQ(FoundIn(remove), Found{"workmode/record.ini:23 handle-unknown"});
}

TEST(OneCause, AnUnknownParentOfAHandle) {
    const auto change = [](Files& files) {
        Replace(&files["workmode/record.ini"], "vpsshdl       = 0", "vpsshdl       = 7");
    };
    EXPECT_EQ(FoundIn(change), Found{"workmode/record.ini:20 handle-unknown"});
}

TEST(OneCause, AChoiceOfAMenuThatIsNoNumber) {
    const auto set = [](const std::string& value) {
        return FoundIn([&](Files& files) {
            Replace(&files["devmng.ini"], "sensitivity = 2", "sensitivity = " + value);
        });
    };
    EXPECT_EQ(set("two"), Found{"devmng.ini:19 not-a-number"});
    EXPECT_EQ(set(""), Found{"devmng.ini:19 not-a-number"});
    EXPECT_EQ(set("7"), Found{"devmng.ini:19 not-offered"});
    const auto spoil = [](Files& files) {
        std::string& menus = files["valueset.ini"];
        const std::size_t menu = menus.find("[drive_sensitivity]");
        menus.replace(menus.find("2\n", menus.find("value2", menu)), 1, "two");
    };
    EXPECT_EQ(FoundIn(spoil), Found{"valueset.ini:138 not-a-number"});
}

TEST(OneCause, ACountThatIsWrong) {
    const auto set = [](const std::string& file, const std::string& from, const std::string& to) {
        return FoundIn([&](Files& files) { Replace(&files[file], from, to); });
    };
    EXPECT_EQ(set("workmode/record.ini", "osdcnt      = 4", "osdcnt = 99999999999"),
              Found{"workmode/record.ini:76 number-out-of-range"});
    EXPECT_EQ(set("workmode/record.ini", "osdcnt      = 4", "osdcnt = four"),
              Found{"workmode/record.ini:76 not-a-number"});
    EXPECT_EQ(set("valueset.ini", "[drive_sensitivity]\nnum = 4", "[drive_sensitivity]\nnum = -1"),
              Found{"valueset.ini:132 count-too-large"});
    EXPECT_EQ(set("valueset.ini", "[drive_sensitivity]\nnum = 4", "[drive_sensitivity]\nnum = 2"),
              (Found{"valueset.ini:137 unread-key", "valueset.ini:138 unread-key",
                     "valueset.ini:139 unread-key", "valueset.ini:140 unread-key"}))
        << "the menu does not offer 2, which is written there";
}

TEST(OneCause, AChoiceOfAMenuWithAUnit) {
    const auto set = [](Files& files) {
        Replace(&files["workmode/record.ini"], "split_time      = 180", "split_time = 3 min");
    };
    EXPECT_EQ(FoundIn(set), Found{"workmode/record.ini:29 trailing-text"});
}

TEST(OneCause, WhatIsNotToldHidesNothing) {
    const auto without = [](const std::string& id, const std::string& file, const std::string& from,
                            const std::string& to) {
        return FoundIn([&](Files& files) { Replace(&files[file], from, to); },
                       {.enabled = {}, .disabled = {id}});
    };
    EXPECT_EQ(without("trailing-text", "workmode/record.ini", "split_time      = 180",
                      "split_time = 3 min"),
              Found{"workmode/record.ini:29 not-offered"});
    EXPECT_EQ(without("unread-key", "valueset.ini", "[drive_sensitivity]\nnum = 4",
                      "[drive_sensitivity]\nnum = 2"),
              Found{"devmng.ini:19 not-offered"});
}

TEST(OneCause, AWideFileWithoutAMark) {
    const auto widen = [](Files& files) {
        std::string wide;
        for (const char c : files["devmng.ini"]) {
            wide += {c, '\0'};
        }
        files["devmng.ini"] = wide;
    };
    EXPECT_EQ(FoundIn(widen), Found{"devmng.ini:1 encoding"});
}

}  // namespace
}  // namespace paramgen::check
