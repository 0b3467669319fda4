// The media common section: encoders, display, sound.

#include "golden/independent_sections.h"

namespace paramgen::testing::independent {
namespace {

void PlaceSource(Placer& put, std::size_t at, const std::string& node) {
    put.S32(at + 0, node + ":bindedmod");
    put.S32(at + 4, node + ":modhdl");
    put.S32(at + 8, node + ":chnhdl");
}

void PlaceRateControl(Placer& put, std::size_t at, const std::string& node) {
    put.U32(at + 0, node + ":max_qp");
    put.U32(at + 4, node + ":min_qp");
    put.U32(at + 8, node + ":max_iqp");
    put.U32(at + 12, node + ":min_iqp");
}

void PlaceQvbr(Placer& put, std::size_t at, const std::string& node) {
    PlaceRateControl(put, at + 0, node);
    put.S32(at + 16, node + ":bit_percent_ul");
    put.S32(at + 20, node + ":bit_percent_ll");
    put.S32(at + 24, node + ":psnr_fluctuate_ul");
    put.S32(at + 28, node + ":psnr_fluctuate_ll");
}

void PlaceVideoEncoder(Placer& put, std::size_t at, const std::string& node) {
    put.S32(at + 0, node + ":scene_mode");
    put.U32(at + 4, node + ".h264:profile");
    PlaceRateControl(put, at + 12, node + ".h264.cbr");
    PlaceRateControl(put, at + 28, node + ".h264.vbr");
    PlaceQvbr(put, at + 44, node + ".h264.qvbr");
    put.U32(at + 8, node + ".h265:profile");
    PlaceRateControl(put, at + 76, node + ".h265.cbr");
    PlaceRateControl(put, at + 92, node + ".h265.vbr");
    PlaceQvbr(put, at + 108, node + ".h265.qvbr");
    put.Word(at + 140, 85);
    put.Word(at + 144, 75);
}

void PlaceSnapEncoder(Placer& put, std::size_t at, const std::string& node) {
    put.Bool(at + 0, node + ":enable_dcf");
    put.U8(at + 4, node + ":largethumbnail_num");
    put.S32(at + 8, node + ":largethumbnail0_width");
    put.S32(at + 12, node + ":largethumbnail0_height");
    put.S32(at + 16, node + ":largethumbnail1_width");
    put.S32(at + 20, node + ":largethumbnail1_height");
    put.U32(at + 24, node + ":quality_factor");
    put.S32(at + 28, node + ":receivemode");
    put.S32(at + 32, node + ":encode_mode");
}

void PlaceHierarchicalQp(Placer& put, std::size_t at) {
    put.Bool(at + 0, "venc.hierarchical.qp:enable");
    put.S32(at + 4, "venc.hierarchical.qp:qp_delta0");
    put.S32(at + 8, "venc.hierarchical.qp:qp_delta1");
    put.S32(at + 12, "venc.hierarchical.qp:qp_delta2");
    put.S32(at + 16, "venc.hierarchical.qp:qp_delta3");
    put.S32(at + 20, "venc.hierarchical.qp:frame_num0");
    put.S32(at + 24, "venc.hierarchical.qp:frame_num1");
    put.S32(at + 28, "venc.hierarchical.qp:frame_num2");
    put.S32(at + 32, "venc.hierarchical.qp:frame_num3");
}

void PlaceWindow(Placer& put, std::size_t at, const std::string& node) {
    put.Bool(at + 0, node + ":enable");
    put.S32(at + 4, node + ":wndhdl");
    put.S32(at + 8, node + ":preview_cam_id");
    put.S32(at + 12, node + ":rotate");
    put.S32(at + 16, node + ".aspectratio:mode");
    put.U32(at + 20, node + ".aspectratio:bg_color");
    put.S32(at + 24, node + ".aspectratio:rect_x");
    put.S32(at + 28, node + ".aspectratio:rect_y");
    put.U32(at + 32, node + ".aspectratio:rect_width");
    put.U32(at + 36, node + ".aspectratio:rect_height");
    put.S32(at + 40, node + ".wndattr:rect_x");
    put.S32(at + 44, node + ".wndattr:rect_y");
    put.U32(at + 48, node + ".wndattr:rect_width");
    put.U32(at + 52, node + ".wndattr:rect_height");
    put.U32(at + 56, node + ".wndattr:priority");
}

void PlaceDisplay(Placer& put, std::size_t at) {
    put.Bool(at + 0, "disp.0:enable");
    put.S32(at + 4, "disp.0:disphdl");
    put.U32(at + 8, "disp.0:bg_color");
    put.Bool(at + 12, "disp.0.csc:enable");
    put.Matrix(at + 16, "disp.0.csc:cscmatrix");
    put.U32(at + 20, "disp.0.csc:luma");
    put.U32(at + 24, "disp.0.csc:contrast");
    put.U32(at + 28, "disp.0.csc:hue");
    put.U32(at + 32, "disp.0.csc:saturation");
    put.Word(at + 36, 0);
    PlaceSource(put, at + 40, "disp.0.SRC.0");
    put.U32(at + 52, "disp.0:windowcnt");
    PlaceWindow(put, at + 56, "disp.0.playbackwindow.0");
}

void PlaceAudioCapture(Placer& put, std::size_t at) {
    put.Bool(at + 0, "acapture.0:enable");
    put.S32(at + 4, "acapture.0:handle");
    put.S32(at + 8, "acapture.0:sample_rate");
    put.S32(at + 12, "acapture.0:bit_width");
    put.S32(at + 16, "acapture.0:sound_mode");
    put.S32(at + 20, "acapture.0:track_mode");
    put.S32(at + 24, "acapture.0:work_mode");
    put.U32(at + 28, "acapture.0.aac:ptnum_per_frm");
    put.S32(at + 32, "acapture.0:mixer_mic_mode");
    put.S32(at + 36, "acapture.0:resample_rate");
    put.Word(at + 40, 0);
    put.S32(at + 44, "acapture.0:audiogain");
    put.Bool(at + 48, "acapture.0.chnl.0:enable");
    put.S32(at + 52, "acapture.0.chnl.0:handle");
    put.Bool(at + 56, "acapture.0.chnl.0:enable_vqe");
    put.Bool(at + 60, "acapture.0.chnl.1:enable");
    put.S32(at + 64, "acapture.0.chnl.1:handle");
    put.Bool(at + 68, "acapture.0.chnl.1:enable_vqe");
}

void PlaceAudioEncoder(Placer& put, std::size_t at) {
    put.Bool(at + 0, "aenc.0:enable");
    put.S32(at + 4, "aenc.0:aenchdl");
    put.S32(at + 8, "aenc.0:acaphdl");
    put.S32(at + 12, "aenc.0:acapchdl");
    put.Word(at + 16, 0);
    put.U32(at + 20, "aenc.0.aac:ptnum_per_frm");
    put.S32(at + 24, "aenc.0.aac:aac_type");
    put.S32(at + 28, "aenc.0.aac:bit_rate");
    put.S32(at + 32, "aenc.0.aac:sample_rate");
    put.S32(at + 36, "aenc.0.aac:bit_width");
    put.S32(at + 40, "aenc.0.aac:sound_mode");
    put.S32(at + 44, "aenc.0.aac:trans_type");
    put.S16(at + 48, "aenc.0.aac:band_width");
}

void PlaceAudioOutput(Placer& put, std::size_t at) {
    put.Bool(at + 0, "ao.0:enable");
    put.S32(at + 4, "ao.0:handle");
    put.S32(at + 8, "ao.0:sample_rate");
    put.S32(at + 12, "ao.0:bit_width");
    put.S32(at + 16, "ao.0:sound_mode");
    put.S32(at + 20, "ao.0:track_mode");
    put.S32(at + 24, "ao.0:work_mode", 6);
    put.U32(at + 28, "ao.0.aac:ptnum_per_frm");
    put.Copy(at + 32, at + 8);
    put.S32(at + 36, "ao.0:ao_i2c_type");
    put.S32(at + 40, "ao.0:volume");
    put.Bool(at + 44, "ao.0.chnl.0:enable");
    put.S32(at + 48, "ao.0.chnl.0:handle");
    put.Bool(at + 52, "ao.0.chnl.1:enable");
    put.S32(at + 56, "ao.0.chnl.1:handle");
}

}  // namespace

void PlaceMediaCommon(Placer put, std::size_t at) {
    PlaceVideoEncoder(put, at + 0, "venc.video.main");
    PlaceVideoEncoder(put, at + 148, "venc.video.sub");
    PlaceSnapEncoder(put, at + 296, "venc.snap.single");
    PlaceSnapEncoder(put, at + 332, "venc.snap.sub");
    PlaceHierarchicalQp(put, at + 368);
    PlaceSource(put, at + 404, "venc.live.src.0");
    PlaceDisplay(put, at + 416);
    PlaceAudioCapture(put, at + 532);
    PlaceAudioEncoder(put, at + 604);
    PlaceAudioOutput(put, at + 656);
}

}  // namespace paramgen::testing::independent
