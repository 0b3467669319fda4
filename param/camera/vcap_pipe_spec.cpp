#include "param/camera/vcap_pipe_spec.h"

#include "param/common/key.h"
#include "param/common/propagate.h"

namespace paramgen {

constexpr Field kVcapFrameRateFields[] = {
    FIELD(VcapFrameRateCfg, src, "src_framerate", 0)
        .About("Frame rate that comes in; -1 as it comes")
        .Unit("fps"),
    FIELD(VcapFrameRateCfg, dst, "dst_framerate", 0)
        .About("Frame rate that goes out; -1 as it comes")
        .Unit("fps"),
};

constexpr Field kVcapIspPubFields[] = {
    QUERY(VcapIspPubAttr, frameRate, "isp_framerate", 0)
        .About("Frame rate of the image processor")
        .Unit("fps"),
    FIELD(VcapIspPubAttr, width, "isp_width", 0)
        .About("Width of the image processor's picture")
        .Unit("px"),
    FIELD(VcapIspPubAttr, height, "isp_height", 0)
        .About("Height of the image processor's picture")
        .Unit("px"),
    RESERVED(VcapIspPubAttr, reserved).About("Reserved"),
    FIELD(VcapIspPubAttr, mirrorFlip, "isp_mirrorflip", 0)
        .About("How the image processor turns the picture"),
};

constexpr Field kVcapPipeChnSpecFields[] = {
    FIELD(VcapPipeChnSpecCfg, dstWidth, "dst_width", 0)
        .About("Width of the picture that leaves the channel")
        .Unit("px"),
    FIELD(VcapPipeChnSpecCfg, dstHeight, "dst_height", 0)
        .About("Height of the picture that leaves the channel")
        .Unit("px"),
    FIELD(VcapPipeChnSpecCfg, srcFrameRate, "src_framerate", 0)
        .About("Frame rate that comes in; -1 as it comes")
        .Unit("fps"),
    FIELD(VcapPipeChnSpecCfg, dstFrameRate, "dst_framerate", 0)
        .About("Frame rate that goes out; -1 as it comes")
        .Unit("fps"),
    FIELD(VcapPipeChnSpecCfg, motionDenoise, "MotionDenoiseEnable", 0)
        .About("Moving parts of the picture are denoised"),
    FIELD(VcapPipeChnSpecCfg, motionDenoiseIsoThresh, "MotionDenoiseIsoThresh", 200)
        .About("Sensitivity above which moving parts are denoised")
        .Unit("ISO"),
    RECORD(VcapPipeChnSpecCfg, ldc, kVcapLDCTable).FromMatching(kLdcSearch),
    CONSTANT(VcapPipeChnSpecCfg, zero, 0).About("Always 0"),
};

constexpr TableOf<VcapFrameRateCfg> kVcapFrameRateTable{"vcap.pipe.%d", kVcapFrameRateFields};
constexpr TableOf<VcapIspPubAttr> kVcapIspPubTable{nullptr, kVcapIspPubFields};
// "chl", not "chn": the keys that all media modes share are under "chn".
constexpr TableOf<VcapPipeChnSpecCfg> kVcapPipeChnSpecTable{"vcap.pipe.%d.chl.%d",
                                                            kVcapPipeChnSpecFields};

constexpr Field kVcapPipeSpecFields[] = {
    FIELD(VcapPipeSpecCfg, enable, "enable", 0).About("The pipe is in use"),
    RECORD(VcapPipeSpecCfg, frameRate, kVcapFrameRateTable),
    FIELD(VcapPipeSpecCfg, ispBypass, "isp_bypass", 0)
        .Label("isp_Bypass")
        .About("The image processor is bypassed"),
    FIELD(VcapPipeSpecCfg, bypassMode, "pipe_bypassmode", 0).About("Bypass mode of the pipe"),
    RECORD(VcapPipeSpecCfg, ispPub, kVcapIspPubTable),
    FIELD(VcapPipeSpecCfg, frameInterruptType, "frameinterrupt_type", 0)
        .About("Type of the frame interrupt"),
    FIELD(VcapPipeSpecCfg, aibnrSupport, "aibnr_support", 0)
        .About("Noise reduction of the raw picture by a model is supported"),
    FIELD(VcapPipeSpecCfg, ai3dnrSupport, "ai3dnr_support", 0)
        .About("Noise reduction over time by a model is supported"),
    FIELD(VcapPipeSpecCfg, bnrBufferNum, "bnr_buffer_num", 0)
        .About("Number of buffers of the raw noise reduction"),
    FIELD(VcapPipeSpecCfg, earlyLine, "earlyline", 0)
        .About("Line at which the early interrupt comes")
        .Unit("lines"),
    FIELD(VcapPipeSpecCfg, sceneParamIdx, "scene_param_idx", 0)
        .About("Row of the picture tuning table"),
    CONSTANT(VcapPipeSpecCfg, zero, 0).About("Always 0"),
    RECORD(VcapPipeSpecCfg, chn, kVcapPipeChnSpecTable),
};

constexpr TableOf<VcapPipeSpecCfg> kVcapPipeSpecTable{"vcap.pipe.%d", kVcapPipeSpecFields};

Status PDT_INIPARAM_LoadCamVcapPipeFrameRateCfg(const char* module, std::uint32_t pipe,
                                                VcapFrameRateCfg* cfg) {
    LOAD_AT_OR_RETURN(module, kVcapFrameRateTable, cfg, pipe);
    return kOk;
}

Status PDT_INIPARAM_LoadCamVcapIspPubAttr(const char* module, const char* node,
                                          VcapIspPubAttr* attr) {
    LOAD_OR_RETURN(module, node, kVcapIspPubTable, attr);
    LOG_DEBUG("isp pub attr, isp_framerate[%f], isp_width[%d], isp_height[%d] isp_mirrorflip[%d]\n",
              static_cast<double>(attr->frameRate), attr->width, attr->height, attr->mirrorFlip);
    return kOk;
}

Status PDT_INIPARAM_LoadCamVcapSingleValue(const char* module, std::uint32_t pipe,
                                           VcapPipeSpecCfg* cfg) {
    LOAD_AT_OR_RETURN(module, ROWS(kVcapPipeSpecTable, frameInterruptType, zero), cfg, pipe);
    return kOk;
}

Status PDT_INIPARAM_LoadCamVcapPipeChnSpecCfg(const char* module, std::uint32_t pipe,
                                              std::uint32_t chn, MediaMode mode,
                                              VcapPipeChnSpecCfg* cfg) {
    Key node;
    FILL_OR_RETURN(node, "sprintf_s", kVcapPipeChnSpecTable, pipe, chn);
    LOAD_OR_RETURN(module, node, ROWS(kVcapPipeChnSpecTable, dstWidth, dstHeight), cfg);
    LOG_DEBUG("pipe[%d] chn[%d] dest resolution , dst_width[%d],dst_height[%d] \n", pipe, chn,
              cfg->dstWidth, cfg->dstHeight);
    LOAD_OR_RETURN(module, node, ROWS(kVcapPipeChnSpecTable, srcFrameRate, motionDenoiseIsoThresh),
                   cfg);
    LOG_DEBUG(
        "pipe[%d] chn[%d] src_framerate[%d],dst_framerate[%d] motionDenoiseEnable[%d] "
        "isotresh[%d\n",
        pipe, chn, cfg->srcFrameRate, cfg->dstFrameRate, cfg->motionDenoise,
        cfg->motionDenoiseIsoThresh);
    CALL_OR_RETURN(PDT_INITPARAM_LoadCorrespondingVcapLDCAttr(mode, &cfg->ldc), "LDC total attr");
    LOAD_OR_RETURN(module, node, ROW(kVcapPipeChnSpecTable, zero), cfg);
    return kOk;
}

Status PDT_INIPARAM_LoadCamVcapPipeSpecCfg(const char* module, std::uint32_t pipe, MediaMode mode,
                                           VcapPipeSpecCfg* cfg) {
    Key node;
    FILL_OR_RETURN(node, "sprintf_s", kVcapPipeSpecTable, pipe);
    LOAD_OR_RETURN(module, node, ROW(kVcapPipeSpecTable, enable), cfg);
    CALL_OR_RETURN(PDT_INIPARAM_LoadCamVcapPipeFrameRateCfg(module, pipe, &cfg->frameRate),
                   "framerate");
    LOAD_OR_RETURN(module, node, ROWS(kVcapPipeSpecTable, ispBypass, bypassMode), cfg);
    LOG_DEBUG("vcap pipe[%d] ,enable[%d],src_framerate[%d], dst_framerate[%d], isp_Bypass[%d] \n",
              pipe, cfg->enable, cfg->frameRate.src, cfg->frameRate.dst, cfg->ispBypass);
    CALL_OR_RETURN(PDT_INIPARAM_LoadCamVcapIspPubAttr(module, node.c_str(), &cfg->ispPub),
                   "IspPubAttr");
    CALL_OR_RETURN(PDT_INIPARAM_LoadCamVcapSingleValue(module, pipe, cfg), "Vcap Single value");
    LOG_DEBUG("vcap pipe[%d] , sceneParamIdx[%d] \n", pipe, cfg->sceneParamIdx);
    for (std::uint32_t chn = 0; chn < kVcapPipeSpecChnCount; ++chn) {
        CALL_OR_RETURN(
            PDT_INIPARAM_LoadCamVcapPipeChnSpecCfg(module, pipe, chn, mode, &cfg->chn[chn]),
            "VcapPipeChnSpec");
    }
    return kOk;
}

}  // namespace paramgen
