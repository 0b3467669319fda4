#include "param/camera/vproc_comm.h"

#include "param/common/key.h"
#include "param/common/propagate.h"

namespace paramgen {

constexpr Field kVprocNrFields[] = {
    FIELD(VprocNrAttr, type, "type", 0).Label("nrType").About("Type of the noise reduction"),
    FIELD(VprocNrAttr, compressMode, "nrcompressmode", 0)
        .About("Compression mode of the noise reduction"),
    FIELD(VprocNrAttr, motionMode, "nrmotionmode", 0).About("Motion mode of the noise reduction"),
};

constexpr Field kVportLowDelayFields[] = {
    FIELD(VportLowDelayInfo, enable, "lowdelayenable", 0)
        .About("Lines are handed on before the frame is complete"),
    FIELD(VportLowDelayInfo, lineCount, "lowdelayline", 0)
        .About("Lines after which they are handed on")
        .Unit("lines"),
};

constexpr Field kExtVportCommFields[] = {
    FIELD(ExtVportCommCfg, enable, "enable", 0).About("The extended port is in use"),
    FIELD(ExtVportCommCfg, handle, "vporthdl", 0).About("Handle of the extended port"),
    FIELD(ExtVportCommCfg, bindHandle, "bindvporthdl", 0)
        .About("Handle of the port whose picture it takes"),
    FIELD(ExtVportCommCfg, videoFormat, "video_format", 0)
        .About("Video format")
        .Numbers("0 linear, 1 tile, 2 tile64"),
    FIELD(ExtVportCommCfg, pixelFormat, "pixelformat", 0)
        .About("Pixel format")
        .Numbers("0 YUV 4:2:0, 1 YUV 4:2:2"),
    FIELD(ExtVportCommCfg, cropEnable, "cropenable", 0)
        .About("A part of the picture is cut out"),  // stored before the formats
    FIELD(ExtVportCommCfg, lowDelayEnable, "lowdelayenable", 0)
        .About("Lines are handed on before the frame is complete"),
    FIELD(ExtVportCommCfg, lowDelayLine, "lowdelayline", 0)
        .About("Lines after which they are handed on")
        .Unit("lines"),
};

constexpr TableOf<VprocNrAttr> kVprocNrTable{"vpss.%d", kVprocNrFields};
constexpr TableOf<VportLowDelayInfo> kVportLowDelayTable{"vpss.%d.vport.%d", kVportLowDelayFields};
constexpr TableOf<ExtVportCommCfg> kExtVportCommTable{"vpss.%d.extvport.%d", kExtVportCommFields};

constexpr Field kVportCommFields[] = {
    FIELD(VportCommCfg, enable, "enable", 0).About("The port is in use"),
    FIELD(VportCommCfg, handle, "vporthdl", 0).About("Handle of the port"),
    FIELD(VportCommCfg, rotate, "rotate", 0).About("Rotation of the picture"),
    FIELD(VportCommCfg, mirror, "mirror", 0)
        .About("The picture is mirrored left to right"),  // read before flip, but stored after it
    FIELD(VportCommCfg, flip, "flip", 0).About("The picture is flipped upside down"),
    FIELD(VportCommCfg, cropEnable, "cropenable", 0).About("A part of the picture is cut out"),
    FIELD(VportCommCfg, videoFormat, "video_format", 0)
        .About("Video format")
        .Numbers("0 linear, 1 tile, 2 tile64"),  // stored after the two rows that follow
    FIELD(VportCommCfg, bufferShare, "buffershare", 0)
        .About("Output buffers are shared with the next module"),
    FIELD(VportCommCfg, ctrlByDisp, "ctrlbydisp", 0).About("The display starts and stops the port"),
    FIELD(VportCommCfg, pixelFormat, "pixelformat", 0)
        .About("Pixel format")
        .Numbers("0 YUV 4:2:0, 1 YUV 4:2:2"),
    RECORD(VportCommCfg, lowDelay, kVportLowDelayTable),
};

constexpr TableOf<VportCommCfg> kVportCommTable{"vpss.%d.vport.%d", kVportCommFields};

constexpr Field kVprocCommFields[] = {
    FIELD(VprocCommCfg, enable, "enable", 0).About("The processing group is in use"),
    FIELD(VprocCommCfg, handle, "vpsshdl", 0).About("Handle of the group"),
    FIELD(VprocCommCfg, vcapPipeHandle, "vcappipehdl", 0)
        .About("Handle of the capture pipe that feeds the group"),
    FIELD(VprocCommCfg, vcapPipeChnHandle, "pipechnhdl", 0)
        .About("Handle of the channel of that pipe"),
    FIELD(VprocCommCfg, pixelFormat, "pixelformat", 0)
        .About("Pixel format")
        .Numbers("0 YUV 4:2:0, 1 YUV 4:2:2"),
    // The lens keys are stored behind noise reduction.
    FIELD(VprocCommCfg, isLdcV1, "isLdcV1", 0)
        .About("Lens correction is by the first model, not by the third"),
    FIELD(VprocCommCfg, ldcEnable, "ldcEnable", 0).About("Lens correction is done in the group"),
    FIELD(VprocCommCfg, nrEnable, "nrenable", 0).About("Noise reduction is on"),
    RECORD(VprocCommCfg, nr, kVprocNrTable),
    RECORD(VprocCommCfg, vports, kVportCommTable),
    RECORD(VprocCommCfg, extVports, kExtVportCommTable),
    RESERVED(VprocCommCfg, reserved).About("Reserved"),
};

constexpr TableOf<VprocCommCfg> kVprocCommTable{"vpss.%d", kVprocCommFields};

Status PDT_INIPARAM_LoadCamVprocNrAttr(const char* module, std::int32_t group, VprocNrAttr* cfg) {
    LOAD_AT_OR_RETURN(module, kVprocNrTable, cfg, group);
    LOG_DEBUG("nr attr, nrmotionmode[%d],nrcompressmode[%d],nrType[%d] \n", cfg->motionMode,
              cfg->compressMode, cfg->type);
    return kOk;
}

Status PDT_INIPARAM_LoadCamVportLowDelayInfo(const char* module, std::int32_t group,
                                             std::int32_t port, VportLowDelayInfo* cfg) {
    LOAD_AT_OR_RETURN(module, kVportLowDelayTable, cfg, group, port);
    return kOk;
}

Status PDT_INIPARAM_LoadCamVportCommCfg(const char* module, std::int32_t group, std::int32_t port,
                                        VportCommCfg* cfg) {
    LOAD_AT_OR_RETURN(module, kVportCommTable, cfg, group, port);
    CALL_OR_RETURN(PDT_INIPARAM_LoadCamVportLowDelayInfo(module, group, port, &cfg->lowDelay),
                   "lowdelayinfo");
    LOG_DEBUG("vpss[%d]vport[%d] attr,enable[%d],vporthdl[%d],rotate[%d],isMirror[%d]\n", group,
              port, cfg->enable, cfg->handle, cfg->rotate, cfg->mirror);
    LOG_DEBUG("vpss[%d]vport[%d] attr,isFlip[%d], buffershare[%d], cropenable[%d]\n", group, port,
              cfg->flip, cfg->bufferShare, cfg->cropEnable);
    LOG_DEBUG("video_format[%d,0-LINEAR,1-TILE,2-TILE64], pixelformat[%d,0-yuv420,1-yuv422] \n",
              cfg->videoFormat, cfg->pixelFormat);
    LOG_DEBUG("lowdelayenable[%d] lineCnt[%u]\n", cfg->lowDelay.enable, cfg->lowDelay.lineCount);
    return kOk;
}

Status PDT_INIPARAM_LoadExtVportCommCfg(const char* module, std::int32_t group, std::int32_t port,
                                        ExtVportCommCfg* cfg) {
    Key node;
    FILL_OR_RETURN(node, "snprintf_s", kExtVportCommTable, group, port);
    LOAD_OR_RETURN(module, node, kExtVportCommTable, cfg);
    LOG_DEBUG("vpss[%d]vport[%d] attr,enable[%d],vporthdl[%d],bindvporthdl[%d], cropenable[%d]\n",
              group, port, cfg->enable, cfg->handle, cfg->bindHandle, cfg->cropEnable);
    return kOk;
}

Status PDT_INIPARAM_LoadCamVprocCommArg(const char* module, std::int32_t group, VprocCommCfg* cfg) {
    LOAD_AT_OR_RETURN(module, kVprocCommTable, cfg, group);
    CALL_OR_RETURN(PDT_INIPARAM_LoadCamVprocNrAttr(module, group, &cfg->nr), "VprocNrAttr");
    LOG_DEBUG(
        "vpss[%d] attr, enable[%d],vpsshdl[%d],vcappipehdl[%d],pipeChnHdl[%d],pixelformat[%d] "
        "nrEnable[%d]\n",
        group, cfg->enable, cfg->handle, cfg->vcapPipeHandle, cfg->vcapPipeChnHandle,
        cfg->pixelFormat, cfg->nrEnable);
    return kOk;
}

Status PDT_INIPARAM_LoadCamVprocCommCfg(const char* module, std::int32_t group, VprocCommCfg* cfg) {
    REQUIRE_RECORD_OR_RETURN(cfg);
    Key node;
    FILL_OR_RETURN(node, "sprintf_s", kVprocCommTable, group);
    CALL_OR_RETURN(PDT_INIPARAM_LoadCamVprocCommArg(module, group, cfg), "VprocCommArg");
    for (std::int32_t port = 0; port < kVportCount; ++port) {
        CALL_OR_RETURN(PDT_INIPARAM_LoadCamVportCommCfg(module, group, port, &cfg->vports[port]),
                       "vport config");
    }
    for (std::int32_t port = 0; port < kExtVportCount; ++port) {
        CALL_OR_RETURN(PDT_INIPARAM_LoadExtVportCommCfg(module, group, port, &cfg->extVports[port]),
                       "extport config");
    }
    return kOk;
}

}  // namespace paramgen
