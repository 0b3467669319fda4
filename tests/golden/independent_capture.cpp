// The capture and the lens correction of a media mode.

#include "golden/independent_sections.h"

namespace paramgen::testing::independent {
namespace {

void PlaceChannelSpec(Placer& put, std::size_t at, const std::string& node, std::int32_t mode) {
    put.U32(at + 0, node + ":dst_width");
    put.U32(at + 4, node + ":dst_height");
    put.S32(at + 8, node + ":src_framerate");
    put.S32(at + 12, node + ":dst_framerate");
    PlaceLensCorrection(put, at + 16, mode);
    put.Bool(at + 160, node + ":MotionDenoiseEnable");
    put.U32(at + 164, node + ":MotionDenoiseIsoThresh", 200);
    put.Word(at + 168, 0);
}

void PlacePipeSpec(Placer& put, std::size_t at, const std::string& node, std::int32_t mode) {
    put.Bool(at + 0, node + ":enable");
    put.S32(at + 4, node + ":src_framerate");
    put.S32(at + 8, node + ":dst_framerate");
    put.Bool(at + 12, node + ":isp_bypass");
    put.S32(at + 16, node + ":pipe_bypassmode");
    put.F32(at + 20, node + ":isp_framerate");
    put.U32(at + 24, node + ":isp_width");
    put.U32(at + 28, node + ":isp_height");
    put.S32(at + 36, node + ":isp_mirrorflip");
    put.S32(at + 40, node + ":scene_param_idx");
    put.S32(at + 44, node + ":frameinterrupt_type");
    put.U32(at + 48, node + ":earlyline");
    PlaceChannelSpec(put, at + 52, node + ".chl.0", mode);
    put.Bool(at + 224, node + ":aibnr_support");
    put.Bool(at + 228, node + ":ai3dnr_support");
    put.Word(at + 232, 0);
    put.U32(at + 236, node + ":bnr_buffer_num");
}

void PlaceFirstModel(Placer& put, std::size_t at) {
    put.Bool(at + 0, "LDCV1Attr:enable");
    put.Bool(at + 4, "LDCV1Attr:aspect");
    put.S32(at + 8, "LDCV1Attr:xratio");
    put.S32(at + 12, "LDCV1Attr:yratio");
    put.S32(at + 16, "LDCV1Attr:xyratio");
    put.S32(at + 20, "LDCV1Attr:centerxoffset");
    put.S32(at + 24, "LDCV1Attr:centeryoffset");
    put.S32(at + 28, "LDCV1Attr:distortionratio");
}

void PlaceThirdModel(Placer& put, std::size_t at) {
    put.Bool(at + 32, "LDCV3Attr:enable");
    put.Bool(at + 36, "LDCV3Attr:aspect");
    put.S32(at + 40, "LDCV3Attr:xratio");
    put.S32(at + 44, "LDCV3Attr:yratio");
    put.S32(at + 48, "LDCV3Attr:xyratio");
    put.S32(at + 52, "LDCV3Attr:focal_len_x");
    put.S32(at + 56, "LDCV3Attr:focal_len_y");
    put.S32(at + 60, "LDCV3Attr:coord_shift_x");
    put.S32(at + 64, "LDCV3Attr:coord_shift_y");
    for (std::size_t i = 0; i < 9; ++i) {
        put.S32(at + 68 + 4 * i, "LDCV3Attr:src_calibration_ratio" + N(i));
        put.S32(at + 104 + 4 * i, "LDCV3Attr:src_calibration_ratio_next" + N(i));
    }
    put.U32(at + 140, "LDCV3Attr:coef_intp_ratio");
}

}  // namespace

void PlaceCaptureSpec(Placer& put, std::size_t at, std::int32_t mode) {
    put.S32(at + 0, "vcap.dev:sensor_type");
    put.U32(at + 4, "vcap.dev:sensor_mode");
    put.S32(at + 8, "vcap.dev:wdr_mode");
    put.U32(at + 12, "vcap.dev:sensor_width");
    put.U32(at + 16, "vcap.dev:sensor_height");
    put.S32(at + 24, "vcap.dev:data_type");
    put.U32(at + 32, "vcap.dev:bas_width");
    put.U32(at + 36, "vcap.dev:bas_height");
    put.Copy(at + 40, at + 8);
    put.U32(at + 44, "vcap.dev:cacheLine");
    put.Mask(at + 60, "vcap.dev:componentmask0");
    put.Mask(at + 64, "vcap.dev:componentmask1");
    PlacePipeSpec(put, at + 76, "vcap.pipe.0", mode);
    PlacePipeSpec(put, at + 316, "vcap.pipe.1", mode);
    PlacePipeSpec(put, at + 556, "vcap.pipe.2", mode);
    PlacePipeSpec(put, at + 796, "vcap.pipe.3", mode);
}

/// Uses the first calibration that serves the mode. A calibration without a mode serves that of the
/// calibration before it, or 54, which is none.
void PlaceLensCorrection(const Placer& put, std::size_t at, std::int32_t mode) {
    std::int32_t found = 54;
    for (std::size_t k = 0; k < 2; ++k) {
        Placer calibration = put.Of("cam0_ldccfg_" + N(k));
        if (!calibration.HasModule()) {
            continue;
        }
        found = calibration.FindMode("common:mediamode").value_or(found);
        if (found == mode) {
            PlaceFirstModel(calibration, at);
            PlaceThirdModel(calibration, at);
            return;
        }
    }
}

}  // namespace paramgen::testing::independent
