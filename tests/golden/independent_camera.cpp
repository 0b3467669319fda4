// The camera section: its switches, three common blocks and five media modes.

#include "golden/independent_sections.h"

namespace paramgen::testing::independent {
namespace {

void PlacePipeCommon(Placer& put, std::size_t at, const std::string& node) {
    put.S32(at + 0, node + ":vcappipehdl");
    put.S32(at + 4, node + ":pipetype");
    put.Bool(at + 8, node + ":lowdelayenable");
    put.U32(at + 12, node + ":lowdelayline");
    put.Bool(at + 16, node + ".chn.0:enable");
    put.S32(at + 20, node + ".chn.0:pipechnhdl");
    put.S32(at + 24, node + ".chn.0:pixelformat");
    put.S32(at + 28, node + ".chn.0:rotate");
    put.Bool(at + 32, node + ".chn.0:flip");
    put.Bool(at + 36, node + ".chn.0:mirror");
    put.S32(at + 40, node + ".chn.0:brightness");
    put.S32(at + 44, node + ".chn.0:saturation");
    put.Bool(at + 48, node + ".chn.0:lowdelayenable");
    put.U32(at + 52, node + ".chn.0:lowdelayline");
    put.Bool(at + 56, node + ".chn.0:isLdcV1");
    put.Bool(at + 60, node + ".chn.0:ldcEnable");
}

void PlaceCaptureCommon(Placer& put, std::size_t at) {
    put.Bool(at + 0, "vcap.dev:enable");
    put.S32(at + 4, "vcap.dev:vcapdevhdl");
    put.S32(at + 8, "vcap.dev:wdr_mode");
    put.S32(at + 12, "vcap.dev:input_mode");
    put.S32(at + 16, "vcap.dev:interface_mode");
    put.S32(at + 20, "vcap.dev:datasequce");
    put.S32(at + 24, "vcap.dev:inputdatatype");
    PlacePipeCommon(put, at + 28, "vcap.pipe.0");
    PlacePipeCommon(put, at + 92, "vcap.pipe.1");
    PlacePipeCommon(put, at + 156, "vcap.pipe.2");
    PlacePipeCommon(put, at + 220, "vcap.pipe.3");
}

void PlacePortCommon(Placer& put, std::size_t at, const std::string& node) {
    put.Bool(at + 0, node + ":enable");
    put.S32(at + 4, node + ":vporthdl");
    put.S32(at + 8, node + ":rotate");
    put.Bool(at + 12, node + ":flip");
    put.Bool(at + 16, node + ":mirror");
    put.S32(at + 20, node + ":cropenable");
    put.Bool(at + 24, node + ":buffershare");
    put.Bool(at + 28, node + ":ctrlbydisp");
    put.S32(at + 32, node + ":video_format");
    put.S32(at + 36, node + ":pixelformat");
    put.Bool(at + 40, node + ":lowdelayenable");
    put.U32(at + 44, node + ":lowdelayline");
}

void PlaceExtendedPortCommon(Placer& put, std::size_t at, const std::string& node) {
    put.Bool(at + 0, node + ":enable");
    put.S32(at + 4, node + ":vporthdl");
    put.S32(at + 8, node + ":bindvporthdl");
    put.S32(at + 12, node + ":cropenable");
    put.S32(at + 16, node + ":video_format");
    put.S32(at + 20, node + ":pixelformat");
    put.Bool(at + 24, node + ":lowdelayenable");
    put.U32(at + 28, node + ":lowdelayline");
}

void PlaceProcessingCommon(Placer& put, std::size_t at) {
    put.Bool(at + 0, "vpss.0:enable");
    put.S32(at + 4, "vpss.0:vpsshdl");
    put.S32(at + 8, "vpss.0:vcappipehdl");
    put.S32(at + 12, "vpss.0:pipechnhdl");
    put.S32(at + 16, "vpss.0:pixelformat");
    put.Bool(at + 20, "vpss.0:nrenable");
    put.Word(at + 24, 0);
    put.S32(at + 28, "vpss.0:type");
    put.S32(at + 32, "vpss.0:nrcompressmode");
    put.S32(at + 36, "vpss.0:nrmotionmode");
    put.Bool(at + 40, "vpss.0:isLdcV1");
    put.Bool(at + 44, "vpss.0:ldcEnable");
    PlacePortCommon(put, at + 48, "vpss.0.vport.0");
    PlacePortCommon(put, at + 96, "vpss.0.vport.1");
    PlacePortCommon(put, at + 144, "vpss.0.vport.2");
    PlacePortCommon(put, at + 192, "vpss.0.vport.3");
    PlaceExtendedPortCommon(put, at + 240, "vpss.0.extvport.0");
    PlaceExtendedPortCommon(put, at + 272, "vpss.0.extvport.1");
}

void PlaceEncoderCommon(Placer& put, std::size_t at, const std::string& node) {
    put.Bool(at + 0, node + ":enable");
    put.S32(at + 4, node + ":venchdl");
    put.Bool(at + 8, node + ":isByFrame");
    put.S32(at + 12, node + ":bindedmod");
    const std::uint32_t bindings = put.Count(at + 16, node + ":bindcnt", 4, Above::kIsCut);
    for (std::size_t b = 0; b < bindings; ++b) {
        put.S32(at + 20 + 4 * b, node + ":modhdl_" + N(b));
        put.S32(at + 36 + 4 * b, node + ":chnhdl_" + N(b));
    }
    put.S32(at + 52, node + ":payload");
    put.S32(at + 56, node + ":rcmode");
    put.S32(at + 60, node + ":type");
    put.Bool(at + 64, node + ".intraRefresh:refreshEnable");
    put.S32(at + 68, node + ".intraRefresh:intraRefreshMode");
    put.U32(at + 72, node + ".intraRefresh:refreshNum");
    put.U32(at + 76, node + ".intraRefresh:reqIQp");
}

/// Also fills the first encoder without an "enable" key, but does not count it.
void PlaceEncodersCommon(Placer& put, std::size_t at) {
    for (std::size_t n = 0; n < 5; ++n) {
        PlaceEncoderCommon(put, at + 4 + 80 * n, "venc." + N(n));
        if (!put.HasKey("venc." + N(n) + ":enable")) {
            return;
        }
        put.Word(at + 0, static_cast<std::uint32_t>(n + 1));
    }
}

void PlaceMediaModeCommon(Placer put, std::size_t at) {
    PlaceCaptureCommon(put, at + 0);
    PlaceProcessingCommon(put, at + 440);
    PlaceEncodersCommon(put, at + 744);
    put.Bool(at + 1148, "disp.window.crop:enable");
    put.U32(at + 1152, "disp.window.crop:max_h");
    put.U32(at + 1156, "disp.window.crop:cur_h");
    put.S32(at + 1160, "disp.window.crop:mode");
}

void PlaceBufferPools(Placer& put, std::size_t at) {
    const std::uint32_t pools = put.Count(at + 0, "vb:max_poolcnt", 8, Above::kIsWrong);
    if (pools > 8) {
        put.Fail();
    }
    for (std::size_t i = 0; i < pools && !put.Failed(); ++i) {
        put.S64(at + 8 + 16 * i, "vb.pool." + N(i) + ":blk_size");
        put.U32(at + 16 + 16 * i, "vb.pool." + N(i) + ":blk_count");
    }
}

void PlacePortSpec(Placer& put, std::size_t at, const std::string& node) {
    put.U32(at + 0, node + ":res_width");
    put.U32(at + 4, node + ":res_height");
    put.S32(at + 16, node + ":src_framerate");
    put.S32(at + 20, node + ":dst_framerate");
    put.U32(at + 24, node + ":wrapbufline");
    put.S32(at + 28, node + ":crop_start_x");
    put.S32(at + 32, node + ":crop_start_y");
    put.U32(at + 36, node + ":crop_width");
    put.U32(at + 40, node + ":crop_height");
    put.Word(at + 44, 0);
}

void PlaceProcessingSpec(Placer& put, std::size_t at, std::int32_t mode) {
    put.U32(at + 0, "vpss.0:max_width");
    put.U32(at + 4, "vpss.0:max_height");
    put.S32(at + 8, "vpss.0:src_framerate");
    put.S32(at + 12, "vpss.0:dst_framerate");
    put.S32(at + 16, "vpss.0:crop_start_x");
    put.S32(at + 20, "vpss.0:crop_start_y");
    put.U32(at + 24, "vpss.0:crop_width");
    put.U32(at + 28, "vpss.0:crop_height");
    PlaceLensCorrection(put, at + 320, mode);
    PlacePortSpec(put, at + 32, "vpss.0.vport.0");
    PlacePortSpec(put, at + 80, "vpss.0.vport.1");
    PlacePortSpec(put, at + 128, "vpss.0.vport.2");
    PlacePortSpec(put, at + 176, "vpss.0.vport.3");
    PlacePortSpec(put, at + 224, "vpss.0.extvport.0");
    PlacePortSpec(put, at + 272, "vpss.0.extvport.1");
}

void PlaceEncoderSpec(Placer& put, std::size_t at, const std::string& node) {
    put.U32(at + 0, node + ":res_width");
    put.U32(at + 4, node + ":res_height");
    put.U32(at + 8, node + ":bufsize");
    put.U32(at + 12, node + ":gop");
    put.S32(at + 16, node + ":src_framerate");
    put.S32(at + 20, node + ":dst_framerate");
    put.U32(at + 24, node + ":h264bitrate");
    put.U32(at + 28, node + ":h265bitrate");
    put.U32(at + 32, node + ":stat_time");
}

/// Counts as for the common encoders, but by another key.
void PlaceEncodersSpec(Placer& put, std::size_t at) {
    for (std::size_t n = 0; n < 5; ++n) {
        PlaceEncoderSpec(put, at + 4 + 36 * n, "venc." + N(n));
        if (!put.HasKey("venc." + N(n) + ":res_width")) {
            return;
        }
        put.Word(at + 0, static_cast<std::uint32_t>(n + 1));
    }
}

void PlaceMediaModeSpec(Placer put, std::size_t at) {
    const std::int32_t mode = put.Mode(at + 0, "common:mediamode");
    for (std::size_t p = 0; p < 4; ++p) {
        put.S32(at + 4 + 8 * p, "common.vcap.pipe." + N(p) + ":vcappipe_hdl");
        put.S32(at + 8 + 8 * p, "common.vcap.pipe." + N(p) + ":vivpssmode", 6);
    }
    PlaceBufferPools(put, at + 40);
    PlaceCaptureSpec(put, at + 176, mode);
    PlaceProcessingSpec(put, at + 1212, mode);
    PlaceEncodersSpec(put, at + 1676);
}

}  // namespace

void PlaceCamera(const Placer& put, std::size_t at, std::size_t camera) {
    const std::string cam = "cam" + N(camera);
    Placer comm = put.Of(cam + "_comm");
    comm.Word(at + 0, static_cast<std::uint32_t>(camera));
    comm.Bool(at + 4, "camera:enable");
    comm.Bool(at + 8, "camera:osdshow");
    comm.U32(at + 12, "camera:video_mode");
    PlaceMediaModeCommon(put.Of(cam + "_comm_record"), at + 16);
    PlaceMediaModeCommon(put.Of(cam + "_comm_photo"), at + 1180);
    if (put.Of(cam + "_comm_playback").HasModule()) {
        PlaceMediaModeCommon(put.Of(cam + "_comm_playback"), at + 2344);
    }
    for (std::size_t m = 0; m < 5; ++m) {
        if (put.Of(cam + "_mediamode" + N(m)).HasModule()) {
            PlaceMediaModeSpec(put.Of(cam + "_mediamode" + N(m)), at + 3512 + 1864 * m);
        }
    }
}

}  // namespace paramgen::testing::independent
