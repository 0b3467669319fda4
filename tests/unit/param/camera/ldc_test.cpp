#include "param/camera/ldc.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

#include "support/product_tree.h"
#include "support/records.h"
#include "support/row_checks.h"
#include "support/same_record.h"
#include "support/table_walk.h"
#include "unit/param/camera/spec_rows.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char k720P30[] = "QX_PARAM_MEDIAMODE_720P_30";    // number 1
constexpr char k1080P30[] = "QX_PARAM_MEDIAMODE_1080P_30";  // number 7

/// The search of a capture channel, or of a processing group.
using Search = Status (*)(MediaMode mode, VcapLDCAttr* attr);

LoadResult SearchFor(Search search, int mode, const ProductTree& tree) {
    return RunLoad(tree, 144, [=](void* record) {
        return search(static_cast<MediaMode>(mode), static_cast<VcapLDCAttr*>(record));
    });
}
LoadResult ForCapture(int mode, const ProductTree& tree) {
    return SearchFor(PDT_INITPARAM_LoadCorrespondingVcapLDCAttr, mode, tree);
}
LoadResult ForProcessing(int mode, const ProductTree& tree) {
    return SearchFor(PDT_INIPARAM_LoadCamVportSpecLDCCfg, mode, tree);
}

/// The record that both searches fill from a tree; they must agree.
std::string FoundFor(int mode, const ProductTree& tree) {
    const std::string capture = ForCapture(mode, tree).record;
    EXPECT_EQ(capture, ForProcessing(mode, tree).record);
    return capture;
}

/// A record that is zero except for the first model's horizontal ratio, `xratio`.
std::string Ratio(int xratio) {
    std::string record(144, '\0');
    record[8] = static_cast<char>(xratio);
    return record;
}

/// A product without any of the modules that are searched.
ProductTree NoLdc() {
    return ProductTree().AddModule("other");
}

/// Adds LDC module `number`, which serves `mode` (none when null) and is recognised by its
/// `xratio`.
ProductTree& AddLdc(ProductTree& tree, int number, const char* mode, int xratio) {
    const std::string module = "cam0_ldccfg_" + std::to_string(number);
    if (mode != nullptr) {
        tree.Set(module, "common:mediamode", mode);
    }
    return tree.Set(module, "LDCV1Attr:xratio", std::to_string(xratio));
}

// OFFSET SIZE KIND SOURCE MODULE KEY DEFAULT LABEL
TEST(Ldc, TableIsTheRecordsLayout) {
    EXPECT_EQ(DescribeTable(kVcapLDCTable, "cam0_ldccfg_0"), LdcLines(0));
}

TEST(Ldc, EveryRowLoadsItsOwnBytes) {
    CheckRows({.fields = WalkTable(kVcapLDCTable, "ldc"),
               .size = 144,
               .load =
                   [](void* record) {
                       return PDT_INITPARAM_LoadVcapLDCAttr("ldc",
                                                            static_cast<VcapLDCAttr*>(record));
                   },
               .base = ProductTree().AddModule("ldc")});
}

TEST(Ldc, EveryRowLoadsItsOwnBytesInBothSearches) {
    for (const Search search :
         {PDT_INITPARAM_LoadCorrespondingVcapLDCAttr, PDT_INIPARAM_LoadCamVportSpecLDCCfg}) {
        for (const std::string module : {"cam0_ldccfg_0", "cam0_ldccfg_1"}) {
            CheckRows({.fields = WalkTable(kVcapLDCTable, module),
                       .size = 144,
                       .load =
                           [=](void* record) {
                               return search(static_cast<MediaMode>(7),
                                             static_cast<VcapLDCAttr*>(record));
                           },
                       .base = ProductTree().Set(module, "common:mediamode", k1080P30)});
        }
    }
}

/// A module for mode 7 with every key set, each to a different value.
ProductTree FullModule(const std::string& module) {
    ProductTree tree;
    tree.Set(module, "common:mediamode", k1080P30)
        .Set(module, "LDCV1Attr:enable", "yes")
        .Set(module, "LDCV1Attr:aspect", "yes")
        .Set(module, "LDCV1Attr:xratio", "11")
        .Set(module, "LDCV1Attr:yratio", "-12")
        .Set(module, "LDCV1Attr:xyratio", "13")
        .Set(module, "LDCV1Attr:centerxoffset", "-14")
        .Set(module, "LDCV1Attr:centeryoffset", "15")
        .Set(module, "LDCV1Attr:distortionratio", "-16")
        .Set(module, "LDCV3Attr:enable", "no")
        .Set(module, "LDCV3Attr:aspect", "1")
        .Set(module, "LDCV3Attr:xratio", "21")
        .Set(module, "LDCV3Attr:yratio", "22")
        .Set(module, "LDCV3Attr:xyratio", "-23")
        .Set(module, "LDCV3Attr:focal_len_x", "24")
        .Set(module, "LDCV3Attr:focal_len_y", "25")
        .Set(module, "LDCV3Attr:coord_shift_x", "26")
        .Set(module, "LDCV3Attr:coord_shift_y", "27")
        .Set(module, "LDCV3Attr:coef_intp_ratio", "28");
    for (int i = 0; i < 9; ++i) {
        const std::string number = std::to_string(i);
        tree.Set(module, "LDCV3Attr:src_calibration_ratio" + number, std::to_string(1000 + i))
            .Set(module, "LDCV3Attr:src_calibration_ratio_next" + number,
                 std::to_string(-1000 - i));
    }
    return tree;
}

std::string FullRecord() {
    std::string record;
    for (const int word : {1, 1, 11, -12, 13, -14, 15, -16, 0, 1, 21, 22, -23, 24, 25, 26, 27}) {
        record += Word(word);
    }
    for (int i = 0; i < 9; ++i) {
        record += Word(1000 + i);
    }
    for (int i = 0; i < 9; ++i) {
        record += Word(-1000 - i);
    }
    return record + Word(28);
}

/// The echo of loading the full module's two models.
Lines FullEcho() {
    Lines echo = {
        "PDT_INIPARAM_LoadLDCV1Attr: ldc attr,aspect[1],xratio[11],yratio[-12],xyratio[13]\n",
        "PDT_INIPARAM_LoadLDCV1Attr: centeroffset x[-14] y[15], distortionratio[-16] \n",
        "PDT_INIPARAM_LoadLDCV3Attr: ldcV3 attr,aspect[1],xratio[21],yratio[22],xyratio[-23]\n",
        "PDT_INIPARAM_LoadLDCV3Attr: ldcV3 "
        "attr,focalLenX[24],focalLenY[25],coordShiftX[26],coordShiftY[27] coefIntpRatio[28]\n",
    };
    for (int i = 0; i < 9; ++i) {
        const std::string matrix = "PDT_INIPARAM_LoadCamLDCV3MatrixCfg: src_calibration_ratio";
        const std::string number = std::to_string(i);
        echo.push_back(matrix + "_next" + number + " = -100" + number + "\n");
        echo.push_back(matrix + number + " = 100" + number + "\n");
    }
    return echo;
}

TEST(Ldc, CaptureLoadsAndEchoesTheSecondModule) {
    const LoadResult result = ForCapture(7, FullModule("cam0_ldccfg_1"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.record, FullRecord());
    Lines echo = {
        "PDT_INITPARAM_LoadCorrespondingVcapLDCAttr: Cam[0]  MediaMode[0] LDCDISConfigure:\n",
        "PDT_INITPARAM_LoadCorrespondingVcapLDCAttr: Cam[0]  MediaMode[1] LDCDISConfigure:\n",
        "PARAM_INIPARAM_GetMediaModeEnum: MediaMode[QX_PARAM_MEDIAMODE_1080P_30] Enum[7]\n",
    };
    AppendLines(&echo, FullEcho());
    echo.push_back("PDT_INITPARAM_LoadVcapLDCAttr:  v1 enable[1] v3 enable[0]\n");
    EXPECT_EQ(EchoOf(result.output), echo);
}

TEST(Ldc, ProcessingLoadsAndEchoesTheSecondModule) {
    const LoadResult result = ForProcessing(7, FullModule("cam0_ldccfg_1"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.record, FullRecord());
    Lines echo = {
        "PDT_INIPARAM_LoadCamVportSpecLDCCfg: Cam[0]  MediaMode[0] LDCv1 v3Configure:\n",
        "PDT_INIPARAM_LoadCamVportSpecLDCCfg: Cam[0]  MediaMode[1] LDCv1 v3Configure:\n",
        "PARAM_INIPARAM_GetMediaModeEnum: MediaMode[QX_PARAM_MEDIAMODE_1080P_30] Enum[7]\n",
    };
    AppendLines(&echo, FullEcho());
    EXPECT_EQ(EchoOf(result.output), echo);
}

TEST(Ldc, SearchEndsWithTheFirstMatch) {
    ProductTree tree;
    AddLdc(tree, 0, k1080P30, 5);
    AddLdc(tree, 1, k1080P30, 6);
    EXPECT_EQ(FoundFor(7, tree), Ratio(5));
    const Lines capture = EchoOf(ForCapture(7, tree).output);
    EXPECT_EQ(LineAt(capture, 0),
              "PDT_INITPARAM_LoadCorrespondingVcapLDCAttr: Cam[0]  MediaMode[0] "
              "LDCDISConfigure:\n");
    EXPECT_EQ(LastLine(capture), "PDT_INITPARAM_LoadVcapLDCAttr:  v1 enable[0] v3 enable[0]\n");
}

TEST(Ldc, ModuleThatServesAnotherModeIsPassedOver) {
    ProductTree tree;
    AddLdc(tree, 0, k720P30, 5);
    AddLdc(tree, 1, k1080P30, 6);
    EXPECT_EQ(FoundFor(7, tree), Ratio(6));
    EXPECT_EQ(FoundFor(1, tree), Ratio(5));
    EXPECT_EQ(FoundFor(2, tree), Ratio(0));
}

TEST(Ldc, WithoutModulesTheRecordStaysZero) {
    const LoadResult capture = ForCapture(7, NoLdc());
    EXPECT_EQ(capture.status, 0);
    EXPECT_TRUE(SameRecord(kVcapLDCTable, std::string(144, '\0'), capture.record));
    EXPECT_THAT(ErrorsOf(capture.output), IsEmpty());
    EXPECT_THAT(
        EchoOf(capture.output),
        ElementsAre(
            "PDT_INITPARAM_LoadCorrespondingVcapLDCAttr: Cam[0]  MediaMode[0] LDCDISConfigure:\n",
            "PDT_INITPARAM_LoadCorrespondingVcapLDCAttr: Cam[0]  MediaMode[1] "
            "LDCDISConfigure:\n"));
    const LoadResult processing = ForProcessing(7, NoLdc());
    EXPECT_EQ(processing.status, 0);
    EXPECT_TRUE(SameRecord(kVcapLDCTable, std::string(144, '\0'), processing.record));
    EXPECT_THAT(
        EchoOf(processing.output),
        ElementsAre(
            "PDT_INIPARAM_LoadCamVportSpecLDCCfg: Cam[0]  MediaMode[0] LDCv1 v3Configure:\n",
            "PDT_INIPARAM_LoadCamVportSpecLDCCfg: Cam[0]  MediaMode[1] LDCv1 v3Configure:\n"));
}

TEST(Ldc, OnlyTwoModulesOfCameraZeroAreSearched) {
    ProductTree tree;
    AddLdc(tree, 2, k1080P30, 5);
    tree.Set("cam1_ldccfg_0", "common:mediamode", k1080P30)
        .Set("cam1_ldccfg_0", "LDCV1Attr:xratio", "6");
    EXPECT_EQ(FoundFor(7, tree), Ratio(0));
}

TEST(Ldc, ModuleWithoutModeTakesOverTheOneBefore) {
    ProductTree tree;
    AddLdc(tree, 0, k720P30, 5);
    AddLdc(tree, 1, nullptr, 6);
    // Module 1 serves mode 1, like the one before it, and so neither mode 7 nor "none".
    EXPECT_EQ(FoundFor(1, tree), Ratio(5));
    EXPECT_EQ(FoundFor(7, tree), Ratio(0));
    EXPECT_EQ(FoundFor(54, tree), Ratio(0));
}

TEST(Ldc, NumberOfNoModeMatchesAModuleWithoutMode) {
    ProductTree first;
    AddLdc(first, 0, nullptr, 5);
    EXPECT_EQ(FoundFor(54, first), Ratio(5));
    ProductTree second;
    AddLdc(second, 1, nullptr, 6);
    EXPECT_EQ(FoundFor(54, second), Ratio(6));
    EXPECT_EQ(FoundFor(0, second), Ratio(0));
    EXPECT_EQ(FoundFor(54, NoLdc()), Ratio(0));
}

TEST(Ldc, ModeZeroIsMatchedByItsNameOnly) {
    ProductTree tree;
    AddLdc(tree, 0, nullptr, 5);
    AddLdc(tree, 1, "QX_PARAM_MEDIAMODE_480P_25", 6);
    EXPECT_EQ(FoundFor(0, tree), Ratio(6));
}

TEST(Ldc, UnknownModeNameEndsTheSearch) {
    ProductTree tree;
    AddLdc(tree, 0, "1080P", 5);
    AddLdc(tree, 1, k1080P30, 6);
    const LoadResult capture = ForCapture(7, tree);
    EXPECT_EQ(capture.status, -1);
    EXPECT_EQ(capture.record, Ratio(0));
    EXPECT_THAT(ErrorsOf(capture.output),
                ElementsAre("PARAM_INIPARAM_GetMediaModeEnum: Invalid MediaMode[1080P]\n",
                            "PDT_INITPARAM_LoadCorrespondingVcapLDCAttr: [common:mediamode] "
                            "failed[0xFFFFFFFF]\n"));
    const LoadResult processing = ForProcessing(7, tree);
    EXPECT_EQ(processing.status, -1);
    EXPECT_EQ(processing.record, Ratio(0));
    EXPECT_THAT(ErrorsOf(processing.output),
                ElementsAre("PARAM_INIPARAM_GetMediaModeEnum: Invalid MediaMode[1080P]\n",
                            "PDT_INIPARAM_LoadCamVportSpecLDCCfg: [common:mediamode] "
                            "failed[0xFFFFFFFF]\n"));
}

TEST(Ldc, EmptyModeNameIsUnknown) {
    ProductTree tree;
    AddLdc(tree, 0, "\"\"", 5);
    EXPECT_THAT(ErrorsOf(ForCapture(7, tree).output),
                ElementsAre("PARAM_INIPARAM_GetMediaModeEnum: Invalid MediaMode[]\n",
                            "PDT_INITPARAM_LoadCorrespondingVcapLDCAttr: [common:mediamode] "
                            "failed[0xFFFFFFFF]\n"));
}

TEST(Ldc, BadFirstModelIsLabelledWithItsModule) {
    ProductTree tree;
    AddLdc(tree, 1, k1080P30, 5).Set("cam0_ldccfg_1", "LDCV1Attr:centerxoffset", "2147483648");
    const std::string reader =
        "PDT_INIPARAM_LoadIntValueByNodePrefix: [LDCV1Attr:centerxoffset] failed[0xFFFFFFFF]\n";
    const std::string model = "PDT_INIPARAM_LoadLDCV1Attr: [centerxoffset] failed[0xFFFFFFFF]\n";
    const LoadResult capture = ForCapture(7, tree);
    EXPECT_EQ(capture.status, -1);
    EXPECT_THAT(ErrorsOf(capture.output),
                ElementsAre(reader, model,
                            "PDT_INITPARAM_LoadVcapLDCAttr: [cam0_ldccfg_1] failed[0xFFFFFFFF]\n",
                            "PDT_INITPARAM_LoadCorrespondingVcapLDCAttr: "
                            "[PDT_INITPARAM_LoadVcapPipeChnLDCAttr] failed[0xFFFFFFFF]\n"));
    const LoadResult processing = ForProcessing(7, tree);
    EXPECT_EQ(processing.status, -1);
    EXPECT_THAT(
        ErrorsOf(processing.output),
        ElementsAre(reader, model,
                    "PDT_INIPARAM_LoadCamVportSpecLDCCfg: [cam0_ldccfg_1] failed[0xFFFFFFFF]\n"));
}

TEST(Ldc, BadRatiosOfTheThirdModelHaveNamesOfTheirOwn) {
    for (const auto& [key, label] : {std::pair<std::string, std::string>{"xratio", "x_ratio"},
                                     {"yratio", "y_ratio"},
                                     {"xyratio", "xy_ratio"},
                                     {"coord_shift_y", "coord_shift_y"}}) {
        ProductTree tree;
        AddLdc(tree, 0, k1080P30, 5).Set("cam0_ldccfg_0", "LDCV3Attr:" + key, "2147483648");
        EXPECT_THAT(
            ErrorsOf(ForProcessing(7, tree).output),
            ElementsAre(
                "PDT_INIPARAM_LoadIntValueByNodePrefix: [LDCV3Attr:" + key +
                    "] failed[0xFFFFFFFF]\n",
                "PDT_INIPARAM_LoadLDCV3Attr: [" + label + "] failed[0xFFFFFFFF]\n",
                "PDT_INIPARAM_LoadCamVportSpecLDCCfg: [cam0_ldccfg_0] failed[0xFFFFFFFF]\n"));
    }
}

TEST(Ldc, BadMatrixHasALabelOfItsOwn) {
    ProductTree tree;
    AddLdc(tree, 0, k1080P30, 5)
        .Set("cam0_ldccfg_0", "LDCV3Attr:src_calibration_ratio8", "2147483648");
    EXPECT_THAT(
        ErrorsOf(ForCapture(7, tree).output),
        ElementsAre("PDT_INIPARAM_LoadCamLDCV3MatrixCfg: [LDCV3Attr:src_calibration_ratio8] "
                    "failed[0xFFFFFFFF]\n",
                    "PDT_INIPARAM_LoadLDCV3Attr: [Src_calibration_ratio and "
                    "Src_calibration_ratio_next] failed[0xFFFFFFFF]\n",
                    "PDT_INITPARAM_LoadVcapLDCAttr: [cam0_ldccfg_0] failed[0xFFFFFFFF]\n",
                    "PDT_INITPARAM_LoadCorrespondingVcapLDCAttr: "
                    "[PDT_INITPARAM_LoadVcapPipeChnLDCAttr] failed[0xFFFFFFFF]\n"));
}

TEST(Ldc, NextCalibrationIsReadFirst) {
    ProductTree tree;
    AddLdc(tree, 0, k1080P30, 5)
        .Set("cam0_ldccfg_0", "LDCV3Attr:src_calibration_ratio3", "2147483648")
        .Set("cam0_ldccfg_0", "LDCV3Attr:src_calibration_ratio_next3", "2147483648");
    EXPECT_EQ(LineAt(ErrorsOf(ForCapture(7, tree).output), 0),
              "PDT_INIPARAM_LoadCamLDCV3MatrixCfg: [LDCV3Attr:src_calibration_ratio_next3] "
              "failed[0xFFFFFFFF]\n");
}

TEST(Ldc, CoefficientIsReadBeforeTheMatrix) {
    ProductTree tree;
    AddLdc(tree, 0, k1080P30, 5)
        .Set("cam0_ldccfg_0", "LDCV3Attr:src_calibration_ratio_next0", "2147483648")
        .Set("cam0_ldccfg_0", "LDCV3Attr:coef_intp_ratio", "2147483648");
    EXPECT_EQ(LineAt(ErrorsOf(ForCapture(7, tree).output), 1),
              "PDT_INIPARAM_LoadLDCV3Attr: [coef_intp_ratio] failed[0xFFFFFFFF]\n");
}

TEST(Ldc, MissingModuleFailsAtItsFirstSwitch) {
    const LoadResult result = RunLoad(NoLdc(), 144, [](void* record) {
        return PDT_INITPARAM_LoadVcapLDCAttr("cam0_ldccfg_0", static_cast<VcapLDCAttr*>(record));
    });
    EXPECT_EQ(static_cast<std::uint32_t>(result.status), 0xA1418046U);
    EXPECT_THAT(ErrorsOf(result.output),
                ElementsAre("PDT_INIPARAM_LoadBoolValueByNodePrefix: [LDCV1Attr:enable] "
                            "failed[0xA1418046]\n",
                            "PDT_INITPARAM_LoadVcapLDCAttr: [enable] failed[0xA1418046]\n"));
}

}  // namespace
}  // namespace paramgen::testing
