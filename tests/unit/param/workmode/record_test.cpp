#include "param/workmode/record.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/captured_output.h"
#include "support/product_tree.h"
#include "support/records.h"
#include "support/row_checks.h"
#include "support/same_record.h"
#include "support/table_walk.h"
#include "unit/param/workmode/record_load.h"

namespace paramgen::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

/// The rows of the mode without its overlays.
std::vector<WalkedField> Fields() {
    std::vector<WalkedField> fields;
    for (const WalkedField& walked : WalkTable(kRecWorkModeTable, "workmode_record")) {
        if (walked.offset >= 4308) {
            fields.push_back(walked);
        }
    }
    return fields;
}

// OFFSET SIZE KIND SOURCE MODULE KEY DEFAULT LABEL, without the module
TEST(Record, TableIsTheModesLayout) {
    const char* const expected[] = {
        "4308 4 i32 reader common.mediamode.config.0:camid 0 wifi.info:enable",
        "4312 4 name query common.mediamode.config.0:mediamode - "
        "common.mediamode.config.0:mediamode",
        "4316 4 i32 constant - - 0 -",
        "4320 4 i32 query record.common:thm_type 0 record.common:thm_type",
        "4324 4 u32 query record.common:repaire_unit 0 record.common:repaire_unit",
        "4328 4 u32 query record.common:pre_alloc_unit 0 record.common:pre_alloc_unit",
        "4336 4 bool reader photosource.0:enable 0 enable",
        "4340 4 i32 reader photosource.0:vcappipehdl 0 vcappipehdl",
        "4344 4 i32 reader photosource.0:pipechnhdl 0 pipechnhdl",
        "4348 4 i32 reader photosource.0:vpsshdl 0 vpsshdl",
        "4352 4 i32 reader photosource.0:vporthdl 0 vporthdl",
        "4356 4 i32 reader photosource.0:venchdl 0 venchdl",
        "4360 4 i32 reader photosource.0:thumbnail_hdl 0 thumbnail_hdl",
        "4368 4 bool reader normal.0:enable 0 enable",
        "4376 4 i32 reader normal.0:split_type 0 split_type",
        "4380 4 u32 reader normal.0:split_time 0 split_time",
        "4392 4 u32 reader normal.0:prerec_time 0 prerec_time",
        "4508 4 i32 reader normal.0:playfps 0 playfps",
        "4512 4 i32 reader normal.0:record_type 0 record_type",
        "4516 4 u32 reader normal.0:lapse_interval 0 lapse_interval",
        "4520 4 i32 reader normal.0:slowrec_playfps 0 slowrec_playfps",
        "4396 4 u32 reader normal.0:filecnt 0 filecnt",
        "4480 4 u32 reader normal.0:thmcnt 0 thmcnt",
        "4484 4 i32 loader normal.0:thmhdl0 0 thmhdl0",
        "4488 4 i32 loader normal.0:thmhdl1 0 thmhdl1",
        "4492 4 i32 loader normal.0:thmhdl2 0 thmhdl2",
        "4496 4 i32 loader normal.0:thmhdl3 0 thmhdl3",
        "4400 4 u32 reader normal.0.filenum.0.fileattr:venccnt 0 venccnt",
        "4412 4 i32 query normal.0.filenum.0.fileattr:venc_hdl0 0 "
        "normal.0.filenum.0.fileattr:venc_hdl0",
        "4416 4 i32 query normal.0.filenum.0.fileattr:venc_hdl1 0 "
        "normal.0.filenum.0.fileattr:venc_hdl1",
        "4420 4 i32 query normal.0.filenum.0.fileattr:recbuffer_time0 0 "
        "normal.0.filenum.0.fileattr:recbuffer_time0",
        "4424 4 i32 query normal.0.filenum.0.fileattr:recbuffer_time1 0 "
        "normal.0.filenum.0.fileattr:recbuffer_time1",
        "4404 4 u32 reader normal.0.filenum.0.fileattr:aenccnt 0 aenccnt",
        "4428 4 i32 query normal.0.filenum.0.fileattr:aenc_hdl0 0 "
        "normal.0.filenum.0.fileattr:aenc_hdl0",
        "4436 4 i32 reader normal.0.filenum.0.fileattr:thumbnail_hdl 0 thumbnail_hdl",
        "4408 4 bytes nobody - - - -",
        "4432 4 bytes nobody - - - -",
        "4440 4 u32 reader normal.0.filenum.1.fileattr:venccnt 0 venccnt",
        "4452 4 i32 query normal.0.filenum.1.fileattr:venc_hdl0 0 "
        "normal.0.filenum.1.fileattr:venc_hdl0",
        "4456 4 i32 query normal.0.filenum.1.fileattr:venc_hdl1 0 "
        "normal.0.filenum.1.fileattr:venc_hdl1",
        "4460 4 i32 query normal.0.filenum.1.fileattr:recbuffer_time0 0 "
        "normal.0.filenum.1.fileattr:recbuffer_time0",
        "4464 4 i32 query normal.0.filenum.1.fileattr:recbuffer_time1 0 "
        "normal.0.filenum.1.fileattr:recbuffer_time1",
        "4444 4 u32 reader normal.0.filenum.1.fileattr:aenccnt 0 aenccnt",
        "4468 4 i32 query normal.0.filenum.1.fileattr:aenc_hdl0 0 "
        "normal.0.filenum.1.fileattr:aenc_hdl0",
        "4476 4 i32 reader normal.0.filenum.1.fileattr:thumbnail_hdl 0 thumbnail_hdl",
        "4448 4 bytes nobody - - - -",
        "4472 4 bytes nobody - - - -",
        "4500 4 i32 query normal.0.filenum.0.fileattr:recvbuf_size 0 "
        "normal.0.filenum.0.fileattr:recvbuf_size",
        "4504 4 i32 query normal.0.filenum.1.fileattr:recvbuf_size 0 "
        "normal.0.filenum.1.fileattr:recvbuf_size",
        "4372 4 bytes nobody - - - -",
        "4384 8 bytes nobody - - - -",
        "4524 4 bytes nobody - - - -",
        "4332 4 bytes nobody - - - -",
        "4364 4 bytes nobody - - - -",
    };
    std::vector<std::string> found;
    for (const WalkedField& walked : Fields()) {
        EXPECT_EQ(walked.module, "workmode_record");
        std::string line = Describe(walked);
        const std::size_t module = line.find(" workmode_record ");
        if (module != std::string::npos) {
            line.erase(module, sizeof " workmode_record" - 1);
        }
        found.push_back(line);
    }
    EXPECT_THAT(found, ElementsAreArray(expected));
    EXPECT_EQ(DescribeTable(kRecWorkModeTable, "workmode_record")[2],
              "0 4 u32 reader workmode_record osd:osdcnt 0 osdcnt");
}

TEST(Record, EveryRowLoadsItsOwnBytes) {
    CheckRows({.fields = Fields(), .size = 4528, .load = Load, .base = FullTree()});
}

TEST(Record, EverythingAbsentLeavesEverythingZero) {
    const LoadResult result = LoadTree(EmptyTree());
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kRecWorkModeTable, std::string(4528, '\0'), result.record));
}

TEST(Record, EchoOfEverythingAbsent) {
    EXPECT_THAT(
        EchoOf(LoadTree(EmptyTree()).output),
        ElementsAre("PDT_INIPARAM_LoadRecWorkModeConf: WorkMode Record Media Configure:\n",
                    "PDT_INIPARAM_LoadRecMediaCfg: Record mediamode Configure:\n",
                    "PDT_INIPARAM_LoadCamMediaModeCfg: common.mediamode.config.0,CAMID[0] "
                    "mediaMode[0]\n",
                    "PDT_INIPARAM_LoadRecMediaCfg: Rec Osd\n",
                    "PDT_INIPARAM_LoadOsdCfg: s32OsdCnt[0] BaseFontSize[0,0] BaseRes[0,0]\n",
                    "PDT_INIPARAM_LoadRecWorkModeConf: \n\n",
                    "PDT_INIPARAM_LoadRecCommCfg: record comm  muxer_type[0,0-mp4,1-mov,2-ts ] ",
                    "PDT_INIPARAM_LoadRecCommCfg: thm_type[0, 0-INDEPENDENCE,1-EMBEDDED,2-NONE],"
                    "repaire_unit[0],pre_alloc_unit[0]\n",
                    "PDT_INIPARAM_LoadRecWorkModeConf: \n\n",
                    "PDT_INIPARAM_LoadPhotoAttr: photosource:enable[0],vcappipehdl[0],"
                    "pipechnhdl[0],vpsshdl[0],vporthdl[0],venchdl[0],vencThmHdl[0]\n",
                    "PDT_INIPARAM_LoadRecAttr: record attr :\n",
                    "PDT_INIPARAM_LoadRecAttr: normal record attr  enable[0],split_type[0],"
                    "split_time[0] ",
                    "PDT_INIPARAM_LoadRecAttr: prerec_time[0ms],filecnt[0],thmcnt[0] ",
                    "PDT_INIPARAM_LoadRecAttr: playfps[0], slowrec_playfps[0]\n",
                    "PDT_INIPARAM_LoadRecFilesAttr: normal record attr filecnt[0],thmcnt[0] \n",
                    "PDT_INIPARAM_LoadRecWorkModeConf: \n\n"));
}

/// A product in which every key, except those of overlays, has a different value.
ProductTree ProductByHand() {
    ProductTree tree;
    const auto set = [&](const std::string& node, const std::string& key,
                         const std::string& value) {
        tree.Set("workmode_record", node + ":" + key, value);
    };
    set("common.mediamode.config.0", "camid", "1");
    set("common.mediamode.config.0", "mediamode", "QX_PARAM_MEDIAMODE_2160P_30");
    set("record.common", "muxer_type", "2");  // never read
    set("record.common", "thm_type", "-1");
    set("record.common", "repaire_unit", "2048");
    set("record.common", "pre_alloc_unit", "-2");
    set("photosource.0", "enable", "true");
    set("photosource.0", "thumbnail_hdl", "3");
    set("normal.0", "enable", "yes");
    set("normal.0", "split_type", "-3");
    set("normal.0", "split_time", "180");
    set("normal.0", "prerec_time", "8000");
    set("normal.0", "playfps", "30");
    set("normal.0", "record_type", "2");
    set("normal.0", "lapse_interval", "1000");
    set("normal.0", "slowrec_playfps", "15");
    set("normal.0", "filecnt", "3");
    set("normal.0", "thmcnt", "2");
    set("normal.0", "thmhdl0", "4");
    set("normal.0", "thmhdl1", "-5");
    set("normal.0", "thmhdl2", "6");  // beyond the count
    set("normal.0.filenum.0.fileattr", "venccnt", "3");
    set("normal.0.filenum.0.fileattr", "venc_hdl0", "10");
    set("normal.0.filenum.0.fileattr", "recbuffer_time0", "11");
    set("normal.0.filenum.0.fileattr", "venc_hdl1", "12");
    set("normal.0.filenum.0.fileattr", "recbuffer_time1", "13");
    set("normal.0.filenum.0.fileattr", "venc_hdl2", "14");
    set("normal.0.filenum.0.fileattr", "aenccnt", "2");
    set("normal.0.filenum.0.fileattr", "aenc_hdl0", "-15");
    set("normal.0.filenum.0.fileattr", "aenc_hdl1", "16");
    set("normal.0.filenum.0.fileattr", "thumbnail_hdl", "17");
    set("normal.0.filenum.0.fileattr", "recvbuf_size", "-18");
    set("normal.0.filenum.1.fileattr", "venccnt", "1");
    set("normal.0.filenum.1.fileattr", "venc_hdl0", "20");
    set("normal.0.filenum.1.fileattr", "venc_hdl1", "21");
    set("normal.0.filenum.1.fileattr", "aenc_hdl0", "22");
    set("normal.0.filenum.1.fileattr", "recvbuf_size", "23");
    set("normal.0.filenum.2.fileattr", "venccnt", "1");
    return tree;
}

TEST(Record, ModeByHand) {
    std::string expected(4528, '\0');
    const auto put = [&](std::size_t offset, const char* bytes) {
        expected.replace(offset, 4, bytes, 4);
    };
    put(4308, "\1\0\0\0");
    put(4312, "\x1e\0\0\0");
    put(4320, "\xff\xff\xff\xff");
    put(4324, "\0\x08\0\0");
    put(4328, "\xfe\xff\xff\xff");
    put(4336, "\1\0\0\0");
    put(4360, "\3\0\0\0");
    put(4368, "\1\0\0\0");
    put(4376, "\xfd\xff\xff\xff");
    put(4380, "\xb4\0\0\0");
    put(4392, "\x40\x1f\0\0");
    put(4396, "\3\0\0\0");
    put(4400, "\3\0\0\0");
    put(4404, "\2\0\0\0");
    put(4412, "\x0a\0\0\0");
    put(4416, "\x0c\0\0\0");
    put(4420, "\x0b\0\0\0");
    put(4424, "\x0d\0\0\0");
    put(4428, "\xf1\xff\xff\xff");
    put(4436, "\x11\0\0\0");
    put(4440, "\1\0\0\0");
    put(4452, "\x14\0\0\0");
    put(4480, "\2\0\0\0");
    put(4484, "\4\0\0\0");
    put(4488, "\xfb\xff\xff\xff");
    put(4500, "\xee\xff\xff\xff");
    put(4504, "\x17\0\0\0");
    put(4508, "\x1e\0\0\0");
    put(4512, "\2\0\0\0");
    put(4516, "\xe8\3\0\0");
    put(4520, "\x0f\0\0\0");
    const LoadResult result = LoadTree(ProductByHand());
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kRecWorkModeTable, expected, result.record));
}

TEST(Record, EchoByHand) {
    const std::vector<std::string> echo = EchoOf(LoadTree(ProductByHand()).output);
    ASSERT_GT(echo.size(), 7U);
    EXPECT_THAT(
        std::vector<std::string>(echo.begin() + 7, echo.end()),
        ElementsAre(
            "PDT_INIPARAM_LoadRecCommCfg: record comm  muxer_type[0,0-mp4,1-mov,2-ts ] ",
            "PDT_INIPARAM_LoadRecCommCfg: thm_type[-1, 0-INDEPENDENCE,1-EMBEDDED,2-NONE],"
            "repaire_unit[2048],pre_alloc_unit[4294967294]\n",
            "PDT_INIPARAM_LoadRecWorkModeConf: \n\n",
            "PDT_INIPARAM_LoadPhotoAttr: photosource:enable[1],vcappipehdl[0],pipechnhdl[0],"
            "vpsshdl[0],vporthdl[0],venchdl[0],vencThmHdl[3]\n",
            "PDT_INIPARAM_LoadRecAttr: record attr :\n",
            "PDT_INIPARAM_LoadRecAttr: normal record attr  enable[1],split_type[-3],"
            "split_time[180] ",
            "PDT_INIPARAM_LoadRecAttr: prerec_time[8000ms],filecnt[0],thmcnt[0] ",
            "PDT_INIPARAM_LoadRecAttr: playfps[30], slowrec_playfps[15]\n",
            "PDT_INIPARAM_LoadRecFilesAttr: normal record attr filecnt[3],thmcnt[2] \n",
            "PDT_INIPARAM_LoadRecFilesAttr: thmhdl0[4] \n",
            "PDT_INIPARAM_LoadRecFilesAttr: thmhdl1[4294967291] \n",
            "PDT_INIPARAM_LoadRecFileAttr: normal.0.filenum.0.fileattr venccnt[3] \n",
            "PDT_INIPARAM_LoadRecFileAttr: venc_hdl0[10] \n",
            "PDT_INIPARAM_LoadRecFileAttr: recbuffer_time0[11] \n",
            "PDT_INIPARAM_LoadRecFileAttr: venc_hdl1[12] \n",
            "PDT_INIPARAM_LoadRecFileAttr: recbuffer_time1[13] \n",
            "PDT_INIPARAM_LoadRecFileAttr: normal.0.filenum.0.fileattr aenccnt[2] \n",
            "PDT_INIPARAM_LoadRecFileAttr: aenc_hdl0[4294967281] \n",
            "PDT_INIPARAM_LoadRecFileAttr: normal.0.filenum.0.fileattr thumbnail_hdl[17] \n",
            "PDT_INIPARAM_LoadRecFilesAttr: recvbuf_size0[-18] \n",
            "PDT_INIPARAM_LoadRecFileAttr: normal.0.filenum.1.fileattr venccnt[1] \n",
            "PDT_INIPARAM_LoadRecFileAttr: venc_hdl0[20] \n",
            "PDT_INIPARAM_LoadRecFileAttr: recbuffer_time0[0] \n",
            "PDT_INIPARAM_LoadRecFileAttr: normal.0.filenum.1.fileattr aenccnt[0] \n",
            "PDT_INIPARAM_LoadRecFileAttr: normal.0.filenum.1.fileattr thumbnail_hdl[0] \n",
            "PDT_INIPARAM_LoadRecFilesAttr: recvbuf_size1[23] \n",
            "PDT_INIPARAM_LoadRecWorkModeConf: \n\n"));
}

}  // namespace
}  // namespace paramgen::testing
