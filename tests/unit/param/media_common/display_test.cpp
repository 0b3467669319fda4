#include "param/media_common/display.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "param/common/load_fields.h"
#include "support/captured_output.h"
#include "support/same_record.h"
#include "support/table_walk.h"
#include "unit/param/media_common/section_load.h"

namespace paramgen::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr char kMatrixKey[] = "disp.0.csc:cscmatrix";

LoadResult LoadDisp(const ProductTree& tree) {
    return RunLoad(tree, 116, [](void* record) {
        return PDT_INIPARAM_LoadMediaCommDispCfg("media_common", 0, static_cast<DispCfg*>(record));
    });
}

TEST(Display, NumberOfTheDisplayIsInEveryNode) {
    ProductTree tree = MediaTree("disp.3:bg_color", "1");
    tree.Set("media_common", "disp.3.csc:luma", "2")
        .Set("media_common", "disp.3.SRC.0:chnhdl", "3")
        .Set("media_common", "disp.3.playbackwindow.0:rotate", "4");
    const LoadResult result = RunLoad(tree, 116, [](void* record) {
        return PDT_INIPARAM_LoadMediaCommDispCfg("media_common", 3, static_cast<DispCfg*>(record));
    });
    EXPECT_EQ(result.status, 0);
    std::string expected(116, '\0');
    expected[8] = 1;
    expected[20] = 2;
    expected[48] = 3;
    expected[68] = 4;
    EXPECT_TRUE(SameRecord(kDispTable, expected, result.record));
    EXPECT_EQ(EchoOf(result.output)[0],
              "PDT_INIPARAM_LoadMediaCommDispCfg: Display[3]: enable[0] disphdl[0]\n");
}

TEST(Display, AbsentMatrixLeavesItsNumberZero) {
    const LoadResult result = LoadDisp(MediaTree("disp.0.csc:saturation", "9"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.record.substr(16, 20), std::string(16, '\0') + std::string("\x09\0\0\0", 4));
    EXPECT_THAT(EchoOf(result.output), Not(Contains(HasSubstr("CSCMatrix"))));
}

TEST(Display, MatrixIsStoredByItsNumber) {
    const LoadResult result =
        LoadDisp(MediaTree(kMatrixKey, "QX_MAPI_DISP_CSC_MATRIX_BT709FULL_TO_RGBFULL"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.record.substr(16, 4), std::string("\x13\0\0\0", 4));
    EXPECT_EQ(EchoOf(result.output)[4],
              "PDT_INIPARAM_GetMediaCommCSCMatrixEnum:     "
              "CSCMatrix[QX_MAPI_DISP_CSC_MATRIX_BT709FULL_TO_RGBFULL] Enum[19]\n");
}

TEST(Display, UnknownMatrixFailsTheSection) {
    const LoadResult result = LoadSection(MediaTree(kMatrixKey, "BT709"));
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(ErrorsOf(result.output),
                ElementsAre("PDT_INIPARAM_GetMediaCommCSCMatrixEnum: Invalid CSCMatrix[BT709]\n",
                            Failed("LoadMediaCommDispCSCAttr", kMatrixKey),
                            Failed("LoadMediaCommDispCfg", "CSCAttr"),
                            Failed("LoadMediaCommConf", "Vdisp")));
    EXPECT_EQ(result.record.substr(432, 4), std::string(4, '\0'));
}

TEST(Display, MatrixQueryFailsOnceByItsFullKey) {
    const LoadResult result = RunLoad(MediaTree(), 20, [](void* record) {
        return PDT_INIPARAM_LoadMediaCommDispCSCAttr("absent", "disp.0.csc",
                                                     static_cast<DispCscAttr*>(record));
    });
    EXPECT_EQ(static_cast<std::uint32_t>(result.status), 0xA1418046U);
    EXPECT_THAT(ErrorsOf(result.output),
                ElementsAre(Failed("LoadMediaCommDispCSCAttr", kMatrixKey, "A1418046")));
}

TEST(Display, PrefixTooLongForTheMatrixKey) {
    const LoadResult result = RunLoad(MediaTree(), 20, [](void* record) {
        return PDT_INIPARAM_LoadMediaCommDispCSCAttr("media_common", std::string(118, 'p').c_str(),
                                                     static_cast<DispCscAttr*>(record));
    });
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(ErrorsOf(result.output), ElementsAre(NotFormatted("LoadMediaCommDispCSCAttr")));
}

// A switch fails only when its module is missing, and then the display's own switch fails first.
TEST(Display, CscSwitchHasALabelOfItsOwn) {
    const RegisteredProduct product(MediaTree());
    DispCfg cfg = {};
    for (const WalkedField& walked : WalkTable(kDispTable, "absent", "", {0})) {
        if (walked.offset == offsetof(DispCfg, enableCsc)) {
            EXPECT_EQ(walked.key, "disp.0.csc:enable");
            const std::string output = CaptureStdout([&] {
                EXPECT_NE(LoadField({"PDT_INIPARAM_Loader", 1}, "absent", "disp.0.csc",
                                    *walked.field, 0, &cfg),
                          0);
            });
            EXPECT_THAT(ErrorsOf(output), ElementsAre(Failed("LoadBoolValueByNodePrefix",
                                                             "disp.0.csc:enable", "A1418046"),
                                                      Failed("Loader", "csc enable", "A1418046")));
        }
    }
}

TEST(Display, KeysAreTheirLabels) {
    EXPECT_THAT(ChainOf("disp.0:bg_color"),
                ElementsAre(Failed("LoadUintValueByNodePrefix", "disp.0:bg_color"),
                            Failed("LoadMediaCommDispCfg", "bg_color"),
                            Failed("LoadMediaCommConf", "Vdisp")));
    EXPECT_THAT(ChainOf("disp.0:windowcnt"),
                ElementsAre(Failed("LoadUintValueByNodePrefix", "disp.0:windowcnt"),
                            Failed("LoadMediaCommDispCfg", "windowcnt"),
                            Failed("LoadMediaCommConf", "Vdisp")));
    EXPECT_THAT(ChainOf("disp.0.csc:hue"),
                ElementsAre(Failed("LoadUintValueByNodePrefix", "disp.0.csc:hue"),
                            Failed("LoadMediaCommDispCSCAttr", "hue"),
                            Failed("LoadMediaCommDispCfg", "CSCAttr"),
                            Failed("LoadMediaCommConf", "Vdisp")));
}

TEST(Display, SourceAndWindowHaveTheirLabels) {
    EXPECT_THAT(ChainOf("disp.0.SRC.0:bindedmod"),
                ElementsAre(Failed("LoadIntValueByNodePrefix", "disp.0.SRC.0:bindedmod"),
                            Failed("LoadVideoModCfg", "bindedmod"),
                            Failed("LoadMediaCommDispCfg", "disp src"),
                            Failed("LoadMediaCommConf", "Vdisp")));
    EXPECT_THAT(ChainOf("disp.0.playbackwindow.0:rotate"),
                ElementsAre(Failed("LoadIntValueByNodePrefix", "disp.0.playbackwindow.0:rotate"),
                            Failed("LoadMediaCommDispWndCfg", "rotate"),
                            Failed("LoadMediaCommDispCfg", "playback WndCfg"),
                            Failed("LoadMediaCommConf", "Vdisp")));
}

TEST(Display, PartsOfAWindowHaveTheirLabels) {
    EXPECT_THAT(ChainOf("disp.0.playbackwindow.0.aspectratio:rect_x"),
                ElementsAre(Failed("LoadIntValueByNodePrefix",
                                   "disp.0.playbackwindow.0.aspectratio:rect_x"),
                            Failed("LoadMediaCommDispAspectAttr", "rect_x"),
                            Failed("LoadMediaCommDispWndCfg", "AspectAttr"),
                            Failed("LoadMediaCommDispCfg", "playback WndCfg"),
                            Failed("LoadMediaCommConf", "Vdisp")));
    EXPECT_THAT(
        ChainOf("disp.0.playbackwindow.0.wndattr:priority"),
        ElementsAre(Failed("LoadUintValueByNodePrefix", "disp.0.playbackwindow.0.wndattr:priority"),
                    Failed("LoadMediaCommDispWndAttr", "priority"),
                    Failed("LoadMediaCommDispWndCfg", "WndAttr"),
                    Failed("LoadMediaCommDispCfg", "playback WndCfg"),
                    Failed("LoadMediaCommConf", "Vdisp")));
}

TEST(Display, OrdinaryWindowsAreNeverRead) {
    ProductTree tree = MediaTree("disp.0:windowcnt", "2");
    const std::string before = LoadDisp(tree).record;
    EXPECT_EQ(before.substr(52), std::string("\2\0\0\0", 4) + std::string(60, '\0'));
    for (const std::string node : {"disp.0.window.0", "disp.0.window.1"}) {
        for (const std::string item :
             {":wndhdl", ":rotate", ".aspectratio:mode", ".wndattr:rect_x"}) {
            tree.Set("media_common", node + item, "99999999999");
        }
    }
    const LoadResult result = LoadDisp(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.record, before);
}

// Coordinates are printed as unsigned numbers, the aspect's background colour as a signed one.
TEST(Display, NegativeNumbersAreEchoedAsTheirFormatsSay) {
    const std::string window = "disp.0.playbackwindow.0";
    ProductTree tree = MediaTree("disp.0:bg_color", "-2");
    for (const std::string item :
         {".aspectratio:mode", ".aspectratio:bg_color", ".aspectratio:rect_x", ".wndattr:rect_y"}) {
        tree.Set("media_common", window + item, "-1");
    }
    const std::vector<std::string> echo = EchoOf(LoadDisp(tree).output);
    EXPECT_EQ(echo[1], "PDT_INIPARAM_LoadMediaCommDispCfg:  bg color[fffffffe]\n");
    EXPECT_EQ(echo[echo.size() - 2],
              "PDT_INIPARAM_LoadMediaCommDispAspectAttr:     aspect mode[-1] bgcolor[-1] "
              "start[4294967295,0], size[0,0]\n");
    EXPECT_EQ(echo.back(),
              "PDT_INIPARAM_LoadMediaCommDispWndAttr:     WndAttr pos[0,4294967295], size[0,0], "
              "priority[0]\n");
}

TEST(Display, WindowPrefixTooLongForItsKeys) {
    const LoadResult result = RunLoad(MediaTree(), 60, [](void* record) {
        return PDT_INIPARAM_LoadMediaCommDispWndCfg("media_common", std::string(115, 'p').c_str(),
                                                    static_cast<DispWndCfg*>(record));
    });
    EXPECT_EQ(result.status, -1);
    EXPECT_THAT(ErrorsOf(result.output),
                ElementsAre(NotFormatted("LoadIntValueByNodePrefix"),
                            Failed("LoadMediaCommDispWndCfg", "preview_cam_id")));
}

}  // namespace
}  // namespace paramgen::testing
