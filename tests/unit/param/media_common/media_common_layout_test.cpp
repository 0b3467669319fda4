#include "param/media_common/media_common.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/row_checks.h"
#include "support/table_walk.h"

namespace paramgen::testing {
namespace {

// OFFSET SIZE KIND SOURCE MODULE KEY DEFAULT LABEL
constexpr const char* kLayout[] = {
    // Video encoders
    "0 4 i32 reader media_common venc.video.main:scene_mode 0 scene_mode",
    "4 4 u32 reader media_common venc.video.main.h264:profile 0 profile",
    "12 4 u32 reader media_common venc.video.main.h264.cbr:max_qp 0 max_qp",
    "16 4 u32 reader media_common venc.video.main.h264.cbr:min_qp 0 min_qp",
    "20 4 u32 reader media_common venc.video.main.h264.cbr:max_iqp 0 max_iqp",
    "24 4 u32 reader media_common venc.video.main.h264.cbr:min_iqp 0 min_iqp",
    "28 4 u32 reader media_common venc.video.main.h264.vbr:max_qp 0 max_qp",
    "32 4 u32 reader media_common venc.video.main.h264.vbr:min_qp 0 min_qp",
    "36 4 u32 reader media_common venc.video.main.h264.vbr:max_iqp 0 max_iqp",
    "40 4 u32 reader media_common venc.video.main.h264.vbr:min_iqp 0 min_iqp",
    "44 4 u32 reader media_common venc.video.main.h264.qvbr:max_qp 0 max_qp",
    "48 4 u32 reader media_common venc.video.main.h264.qvbr:min_qp 0 min_qp",
    "52 4 u32 reader media_common venc.video.main.h264.qvbr:max_iqp 0 max_iqp",
    "56 4 u32 reader media_common venc.video.main.h264.qvbr:min_iqp 0 min_iqp",
    "60 4 i32 reader media_common venc.video.main.h264.qvbr:bit_percent_ul 0 bit_percent_ul",
    "64 4 i32 reader media_common venc.video.main.h264.qvbr:bit_percent_ll 0 bit_percent_ll",
    "68 4 i32 reader media_common venc.video.main.h264.qvbr:psnr_fluctuate_ul 0 psnr_fluctuate_ul",
    "72 4 i32 reader media_common venc.video.main.h264.qvbr:psnr_fluctuate_ll 0 psnr_fluctuate_ll",
    "8 4 u32 reader media_common venc.video.main.h265:profile 0 profile",
    "76 4 u32 reader media_common venc.video.main.h265.cbr:max_qp 0 max_qp",
    "80 4 u32 reader media_common venc.video.main.h265.cbr:min_qp 0 min_qp",
    "84 4 u32 reader media_common venc.video.main.h265.cbr:max_iqp 0 max_iqp",
    "88 4 u32 reader media_common venc.video.main.h265.cbr:min_iqp 0 min_iqp",
    "92 4 u32 reader media_common venc.video.main.h265.vbr:max_qp 0 max_qp",
    "96 4 u32 reader media_common venc.video.main.h265.vbr:min_qp 0 min_qp",
    "100 4 u32 reader media_common venc.video.main.h265.vbr:max_iqp 0 max_iqp",
    "104 4 u32 reader media_common venc.video.main.h265.vbr:min_iqp 0 min_iqp",
    "108 4 u32 reader media_common venc.video.main.h265.qvbr:max_qp 0 max_qp",
    "112 4 u32 reader media_common venc.video.main.h265.qvbr:min_qp 0 min_qp",
    "116 4 u32 reader media_common venc.video.main.h265.qvbr:max_iqp 0 max_iqp",
    "120 4 u32 reader media_common venc.video.main.h265.qvbr:min_iqp 0 min_iqp",
    "124 4 i32 reader media_common venc.video.main.h265.qvbr:bit_percent_ul 0 bit_percent_ul",
    "128 4 i32 reader media_common venc.video.main.h265.qvbr:bit_percent_ll 0 bit_percent_ll",
    "132 4 i32 reader media_common venc.video.main.h265.qvbr:psnr_fluctuate_ul 0 psnr_fluctuate_ul",
    "136 4 i32 reader media_common venc.video.main.h265.qvbr:psnr_fluctuate_ll 0 psnr_fluctuate_ll",
    "144 4 u32 constant - - 75 -",
    "140 4 u32 constant - - 85 -",
    "148 4 i32 reader media_common venc.video.sub:scene_mode 0 scene_mode",
    "152 4 u32 reader media_common venc.video.sub.h264:profile 0 profile",
    "160 4 u32 reader media_common venc.video.sub.h264.cbr:max_qp 0 max_qp",
    "164 4 u32 reader media_common venc.video.sub.h264.cbr:min_qp 0 min_qp",
    "168 4 u32 reader media_common venc.video.sub.h264.cbr:max_iqp 0 max_iqp",
    "172 4 u32 reader media_common venc.video.sub.h264.cbr:min_iqp 0 min_iqp",
    "176 4 u32 reader media_common venc.video.sub.h264.vbr:max_qp 0 max_qp",
    "180 4 u32 reader media_common venc.video.sub.h264.vbr:min_qp 0 min_qp",
    "184 4 u32 reader media_common venc.video.sub.h264.vbr:max_iqp 0 max_iqp",
    "188 4 u32 reader media_common venc.video.sub.h264.vbr:min_iqp 0 min_iqp",
    "192 4 u32 reader media_common venc.video.sub.h264.qvbr:max_qp 0 max_qp",
    "196 4 u32 reader media_common venc.video.sub.h264.qvbr:min_qp 0 min_qp",
    "200 4 u32 reader media_common venc.video.sub.h264.qvbr:max_iqp 0 max_iqp",
    "204 4 u32 reader media_common venc.video.sub.h264.qvbr:min_iqp 0 min_iqp",
    "208 4 i32 reader media_common venc.video.sub.h264.qvbr:bit_percent_ul 0 bit_percent_ul",
    "212 4 i32 reader media_common venc.video.sub.h264.qvbr:bit_percent_ll 0 bit_percent_ll",
    "216 4 i32 reader media_common venc.video.sub.h264.qvbr:psnr_fluctuate_ul 0 psnr_fluctuate_ul",
    "220 4 i32 reader media_common venc.video.sub.h264.qvbr:psnr_fluctuate_ll 0 psnr_fluctuate_ll",
    "156 4 u32 reader media_common venc.video.sub.h265:profile 0 profile",
    "224 4 u32 reader media_common venc.video.sub.h265.cbr:max_qp 0 max_qp",
    "228 4 u32 reader media_common venc.video.sub.h265.cbr:min_qp 0 min_qp",
    "232 4 u32 reader media_common venc.video.sub.h265.cbr:max_iqp 0 max_iqp",
    "236 4 u32 reader media_common venc.video.sub.h265.cbr:min_iqp 0 min_iqp",
    "240 4 u32 reader media_common venc.video.sub.h265.vbr:max_qp 0 max_qp",
    "244 4 u32 reader media_common venc.video.sub.h265.vbr:min_qp 0 min_qp",
    "248 4 u32 reader media_common venc.video.sub.h265.vbr:max_iqp 0 max_iqp",
    "252 4 u32 reader media_common venc.video.sub.h265.vbr:min_iqp 0 min_iqp",
    "256 4 u32 reader media_common venc.video.sub.h265.qvbr:max_qp 0 max_qp",
    "260 4 u32 reader media_common venc.video.sub.h265.qvbr:min_qp 0 min_qp",
    "264 4 u32 reader media_common venc.video.sub.h265.qvbr:max_iqp 0 max_iqp",
    "268 4 u32 reader media_common venc.video.sub.h265.qvbr:min_iqp 0 min_iqp",
    "272 4 i32 reader media_common venc.video.sub.h265.qvbr:bit_percent_ul 0 bit_percent_ul",
    "276 4 i32 reader media_common venc.video.sub.h265.qvbr:bit_percent_ll 0 bit_percent_ll",
    "280 4 i32 reader media_common venc.video.sub.h265.qvbr:psnr_fluctuate_ul 0 psnr_fluctuate_ul",
    "284 4 i32 reader media_common venc.video.sub.h265.qvbr:psnr_fluctuate_ll 0 psnr_fluctuate_ll",
    "292 4 u32 constant - - 75 -",
    "288 4 u32 constant - - 85 -",
    // Snapshot encoders, hierarchical QP, live view
    "296 4 bool reader media_common venc.snap.single:enable_dcf 0 enable_dcf",
    "320 4 u32 reader media_common venc.snap.single:quality_factor 0 quality_factor",
    "324 4 i32 reader media_common venc.snap.single:receivemode 0 receivemode",
    "328 4 i32 reader media_common venc.snap.single:encode_mode 0 jpegEncodeMode",
    "300 1 u8 reader media_common venc.snap.single:largethumbnail_num 0 largethumbnail_num",
    "304 4 i32 query media_common venc.snap.single:largethumbnail0_width 0 "
    "venc.snap.single:largethumbnail0_width",
    "308 4 i32 query media_common venc.snap.single:largethumbnail0_height 0 "
    "venc.snap.single:largethumbnail0_height",
    "312 4 i32 query media_common venc.snap.single:largethumbnail1_width 0 "
    "venc.snap.single:largethumbnail1_width",
    "316 4 i32 query media_common venc.snap.single:largethumbnail1_height 0 "
    "venc.snap.single:largethumbnail1_height",
    "301 3 bytes nobody - - - -",
    "332 4 bool reader media_common venc.snap.sub:enable_dcf 0 enable_dcf",
    "356 4 u32 reader media_common venc.snap.sub:quality_factor 0 quality_factor",
    "360 4 i32 reader media_common venc.snap.sub:receivemode 0 receivemode",
    "364 4 i32 reader media_common venc.snap.sub:encode_mode 0 jpegEncodeMode",
    "336 1 u8 reader media_common venc.snap.sub:largethumbnail_num 0 largethumbnail_num",
    "340 4 i32 query media_common venc.snap.sub:largethumbnail0_width 0 "
    "venc.snap.sub:largethumbnail0_width",
    "344 4 i32 query media_common venc.snap.sub:largethumbnail0_height 0 "
    "venc.snap.sub:largethumbnail0_height",
    "348 4 i32 query media_common venc.snap.sub:largethumbnail1_width 0 "
    "venc.snap.sub:largethumbnail1_width",
    "352 4 i32 query media_common venc.snap.sub:largethumbnail1_height 0 "
    "venc.snap.sub:largethumbnail1_height",
    "337 3 bytes nobody - - - -",
    "368 4 bool reader media_common venc.hierarchical.qp:enable 0 enable",
    "372 4 i32 query media_common venc.hierarchical.qp:qp_delta0 0 venc.hierarchical.qp:qp_delta0",
    "376 4 i32 query media_common venc.hierarchical.qp:qp_delta1 0 venc.hierarchical.qp:qp_delta1",
    "380 4 i32 query media_common venc.hierarchical.qp:qp_delta2 0 venc.hierarchical.qp:qp_delta2",
    "384 4 i32 query media_common venc.hierarchical.qp:qp_delta3 0 venc.hierarchical.qp:qp_delta3",
    "388 4 i32 query media_common venc.hierarchical.qp:frame_num0 0 "
    "venc.hierarchical.qp:frame_num0",
    "392 4 i32 query media_common venc.hierarchical.qp:frame_num1 0 "
    "venc.hierarchical.qp:frame_num1",
    "396 4 i32 query media_common venc.hierarchical.qp:frame_num2 0 "
    "venc.hierarchical.qp:frame_num2",
    "400 4 i32 query media_common venc.hierarchical.qp:frame_num3 0 "
    "venc.hierarchical.qp:frame_num3",
    "404 4 i32 reader media_common venc.live.src.0:bindedmod 0 bindedmod",
    "408 4 i32 reader media_common venc.live.src.0:modhdl 0 modhdl",
    "412 4 i32 reader media_common venc.live.src.0:chnhdl 0 chnhdl",
    // Display
    "416 4 bool reader media_common disp.0:enable 0 enable",
    "420 4 i32 reader media_common disp.0:disphdl 0 disphdl",
    "424 4 u32 reader media_common disp.0:bg_color 0 bg_color",
    "468 4 u32 reader media_common disp.0:windowcnt 0 windowcnt",
    "428 4 bool reader media_common disp.0.csc:enable 0 csc enable",
    "432 4 name query media_common disp.0.csc:cscmatrix - disp.0.csc:cscmatrix",
    "436 4 u32 reader media_common disp.0.csc:luma 0 luma",
    "440 4 u32 reader media_common disp.0.csc:contrast 0 contrast",
    "444 4 u32 reader media_common disp.0.csc:hue 0 hue",
    "448 4 u32 reader media_common disp.0.csc:saturation 0 saturation",
    "456 4 i32 reader media_common disp.0.SRC.0:bindedmod 0 bindedmod",
    "460 4 i32 reader media_common disp.0.SRC.0:modhdl 0 modhdl",
    "464 4 i32 reader media_common disp.0.SRC.0:chnhdl 0 chnhdl",
    "472 4 bool reader media_common disp.0.playbackwindow.0:enable 0 enable",
    "476 4 i32 reader media_common disp.0.playbackwindow.0:wndhdl 0 wndhdl",
    "480 4 i32 reader media_common disp.0.playbackwindow.0:preview_cam_id 0 preview_cam_id",
    "484 4 i32 reader media_common disp.0.playbackwindow.0:rotate 0 rotate",
    "488 4 i32 reader media_common disp.0.playbackwindow.0.aspectratio:mode 0 mode",
    "492 4 u32 reader media_common disp.0.playbackwindow.0.aspectratio:bg_color 0 bg_color",
    "496 4 i32 reader media_common disp.0.playbackwindow.0.aspectratio:rect_x 0 rect_x",
    "500 4 i32 reader media_common disp.0.playbackwindow.0.aspectratio:rect_y 0 rect_y",
    "504 4 u32 reader media_common disp.0.playbackwindow.0.aspectratio:rect_width 0 rect_width",
    "508 4 u32 reader media_common disp.0.playbackwindow.0.aspectratio:rect_height 0 rect_height",
    "512 4 i32 reader media_common disp.0.playbackwindow.0.wndattr:rect_x 0 rect_x",
    "516 4 i32 reader media_common disp.0.playbackwindow.0.wndattr:rect_y 0 rect_y",
    "520 4 u32 reader media_common disp.0.playbackwindow.0.wndattr:rect_width 0 rect_width",
    "524 4 u32 reader media_common disp.0.playbackwindow.0.wndattr:rect_height 0 rect_height",
    "528 4 u32 reader media_common disp.0.playbackwindow.0.wndattr:priority 0 priority",
    "452 4 bytes nobody - - - -",
    // Sound
    "532 4 bool reader media_common acapture.0:enable 0 enable",
    "536 4 i32 reader media_common acapture.0:handle 0 handle",
    "576 4 i32 reader media_common acapture.0:audiogain 0 audiogain",
    "540 4 i32 reader media_common acapture.0:sample_rate 0 sample_rate",
    "544 4 i32 reader media_common acapture.0:bit_width 0 bit_width",
    "548 4 i32 reader media_common acapture.0:sound_mode 0 sound_mode",
    "552 4 i32 reader media_common acapture.0:track_mode 0 trackMode",
    "556 4 i32 reader media_common acapture.0:work_mode 0 work_mode",
    "564 4 i32 reader media_common acapture.0:mixer_mic_mode 0 mixer_mic_mode",
    "568 4 i32 reader media_common acapture.0:resample_rate 0 resample_rate",
    "560 4 u32 reader media_common acapture.0.aac:ptnum_per_frm 0 ptnum_per_frm",
    "572 4 u32 constant - - 0 -",
    "584 4 i32 reader media_common acapture.0.chnl.0:handle 0 handle",
    "580 4 bool reader media_common acapture.0.chnl.0:enable 0 enable",
    "588 4 bool reader media_common acapture.0.chnl.0:enable_vqe 0 enable_vqe",
    "596 4 i32 reader media_common acapture.0.chnl.1:handle 0 handle",
    "592 4 bool reader media_common acapture.0.chnl.1:enable 0 enable",
    "600 4 bool reader media_common acapture.0.chnl.1:enable_vqe 0 enable_vqe",
    "604 4 bool reader media_common aenc.0:enable 0 enable",
    "608 4 i32 reader media_common aenc.0:aenchdl 0 aenchdl",
    "612 4 i32 reader media_common aenc.0:acaphdl 0 acaphdl",
    "616 4 i32 reader media_common aenc.0:acapchdl 0 acapchdl",
    "620 4 u32 constant - - 0 -",
    "624 4 u32 reader media_common aenc.0.aac:ptnum_per_frm 0 ptnum_per_frm",
    "628 4 i32 reader media_common aenc.0.aac:aac_type 0 aac_type",
    "632 4 i32 reader media_common aenc.0.aac:bit_rate 0 bit_rate",
    "636 4 i32 reader media_common aenc.0.aac:sample_rate 0 sample_rate",
    "640 4 i32 reader media_common aenc.0.aac:bit_width 0 bit_width",
    "644 4 i32 reader media_common aenc.0.aac:sound_mode 0 sound_mode",
    "648 4 i32 reader media_common aenc.0.aac:trans_type 0 trans_type",
    "652 2 i16 reader media_common aenc.0.aac:band_width 0 band_width",
    "654 2 bytes nobody - - - -",
    "656 4 bool reader media_common ao.0:enable 0 enable",
    "660 4 i32 reader media_common ao.0:handle 0 handle",
    "696 4 i32 reader media_common ao.0:volume 0 volume",
    "664 4 i32 reader media_common ao.0:sample_rate 0 sample_rate",
    "688 4 i32 copy - - 0 -",
    "668 4 i32 reader media_common ao.0:bit_width 0 bit_width",
    "672 4 i32 reader media_common ao.0:sound_mode 0 sound_mode",
    "676 4 i32 reader media_common ao.0:track_mode 0 track_mode",
    "680 4 i32 reader media_common ao.0:work_mode 6 work_mode",
    "692 4 i32 reader media_common ao.0:ao_i2c_type 0 ao_i2c_type",
    "684 4 u32 reader media_common ao.0.aac:ptnum_per_frm 0 ptnum_per_frm",
    "704 4 i32 query media_common ao.0.chnl.0:handle 0 ao.0.chnl.0:handle",
    "700 4 bool query media_common ao.0.chnl.0:enable 0 ao.0.chnl.0:enable",
    "712 4 i32 query media_common ao.0.chnl.1:handle 0 ao.0.chnl.1:handle",
    "708 4 bool query media_common ao.0.chnl.1:enable 0 ao.0.chnl.1:enable",
};

TEST(MediaCommon, TablesAreTheSectionsLayout) {
    EXPECT_THAT(DescribeTable(kMediaCommTable, "media_common"),
                ::testing::ElementsAreArray(kLayout));
}

TEST(MediaCommon, EveryRowLoadsItsOwnBytes) {
    RowSubject subject = {
        .fields = WalkTable(kMediaCommTable, "media_common"),
        .size = 716,
        .load =
            [](void* record) {
                return PDT_INIPARAM_LoadMediaCommConf(static_cast<MediaCommCfg*>(record));
            },
        .base = ProductTree().AddModule("media_common")};
    subject.probes["disp.0.csc:cscmatrix"] = {"QX_MAPI_DISP_CSC_MATRIX_BT601FULL_TO_RGBFULL",
                                              std::string("\x11\0\0\0", 4)};
    CheckRows(subject);
}

}  // namespace
}  // namespace paramgen::testing
