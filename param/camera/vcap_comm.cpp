#include "param/camera/vcap_comm.h"

#include "param/common/key.h"
#include "param/common/propagate.h"

namespace paramgen {

constexpr Field kVcapPipeChnCommFields[] = {
    FIELD(VcapPipeChnCommCfg, enable, "enable", 0).About("The channel is in use"),
    FIELD(VcapPipeChnCommCfg, handle, "pipechnhdl", 0).About("Handle of the channel"),
    FIELD(VcapPipeChnCommCfg, pixelFormat, "pixelformat", 0)
        .About("Pixel format")
        .Numbers("0 YUV 4:2:0, 1 YUV 4:2:2"),
    FIELD(VcapPipeChnCommCfg, rotate, "rotate", 0).About("Rotation of the picture"),
    FIELD(VcapPipeChnCommCfg, mirror, "mirror", 0)
        .About("The picture is mirrored left to right"),  // read before flip, but stored after it
    FIELD(VcapPipeChnCommCfg, flip, "flip", 0).About("The picture is flipped upside down"),
    FIELD(VcapPipeChnCommCfg, brightness, "brightness", 0).About("Brightness of the picture"),
    FIELD(VcapPipeChnCommCfg, saturation, "saturation", 0).About("Saturation of the picture"),
    FIELD(VcapPipeChnCommCfg, lowDelayEnable, "lowdelayenable", 0)
        .About("Lines are handed on before the frame is complete"),
    FIELD(VcapPipeChnCommCfg, lowDelayLine, "lowdelayline", 0)
        .About("Lines after which they are handed on")
        .Unit("lines"),
    FIELD(VcapPipeChnCommCfg, isLdcV1, "isLdcV1", 0)
        .About("Lens correction is by the first model, not by the third"),
    FIELD(VcapPipeChnCommCfg, ldcEnable, "ldcEnable", 0)
        .About("Lens correction is done in the capture channel"),
};

constexpr TableOf<VcapPipeChnCommCfg> kVcapPipeChnCommTable{"vcap.pipe.%d.chn.%d",
                                                            kVcapPipeChnCommFields};

constexpr Field kVcapPipeCommFields[] = {
    FIELD(VcapPipeCommCfg, handle, "vcappipehdl", 0).About("Handle of the pipe"),
    FIELD(VcapPipeCommCfg, type, "pipetype", 0).About("Type of the pipe"),
    FIELD(VcapPipeCommCfg, lowDelayEnable, "lowdelayenable", 0)
        .About("Lines are handed on before the frame is complete"),
    FIELD(VcapPipeCommCfg, lowDelayLine, "lowdelayline", 0)
        .About("Lines after which they are handed on")
        .Unit("lines"),
    RECORD(VcapPipeCommCfg, chns, kVcapPipeChnCommTable),
};

constexpr Field kVcapAibnrFields[] = {
    RESERVED(VcapAibnrAttr, enable).About("Noise reduction by a model is on; no key fills it yet"),
    RESERVED(VcapAibnrAttr, reserved1).About("Reserved"),
    RESERVED(VcapAibnrAttr, masterPipe)
        .About("Pipe of noise reduction by a model; no key fills it yet"),
    RESERVED(VcapAibnrAttr, reserved2).About("Reserved"),
    RESERVED(VcapAibnrAttr, modelPath)
        .About("File of the model for noise reduction; no key fills it yet"),
};

constexpr TableOf<VcapPipeCommCfg> kVcapPipeCommTable{"vcap.pipe.%d", kVcapPipeCommFields};
constexpr TableOf<VcapAibnrAttr> kVcapAibnrTable{nullptr, kVcapAibnrFields};

constexpr char kVcapDevNode[] = "vcap.dev";

constexpr Field kVcapCommFields[] = {
    FIELD(VcapCommCfg, enable, "enable", 0).At(kVcapDevNode).About("The capture device is in use"),
    FIELD(VcapCommCfg, handle, "vcapdevhdl", 0)
        .At(kVcapDevNode)
        .About("Handle of the capture device"),
    FIELD(VcapCommCfg, wdrMode, "wdr_mode", 0).At(kVcapDevNode).About("Wide dynamic range mode"),
    FIELD(VcapCommCfg, inputMode, "input_mode", 0)
        .At(kVcapDevNode)
        .About("Input mode of the sensor"),
    FIELD(VcapCommCfg, interfaceMode, "interface_mode", 0)
        .At(kVcapDevNode)
        .About("Interface mode of the sensor"),
    FIELD(VcapCommCfg, dataSequence, "datasequce", 0)
        .At(kVcapDevNode)
        .About("Sequence of the data from the sensor"),
    FIELD(VcapCommCfg, inputDataType, "inputdatatype", 0)
        .At(kVcapDevNode)
        .About("Type of the data from the sensor"),
    RECORD(VcapCommCfg, aibnr, kVcapAibnrTable),
    RECORD(VcapCommCfg, pipes, kVcapPipeCommTable),
};

constexpr TableOf<VcapCommCfg> kVcapCommTable{nullptr, kVcapCommFields};

Status PDT_INIPARAM_LoadVcapPipeChnCommCfgPartOne(const char* module, std::int32_t pipe,
                                                  std::int32_t chn, VcapPipeChnCommCfg* cfg) {
    LOAD_AT_OR_RETURN(module, ROWS(kVcapPipeChnCommTable, enable, saturation), cfg, pipe, chn);
    LOG_DEBUG(
        "pipe[%d]  chn[%d] comm attr, enable[%d], pipechnhdl[%d], "
        "pixelformat[%d, 0-yuv420,1-yuv422] \n",
        pipe, chn, cfg->enable, cfg->handle, cfg->pixelFormat);
    LOG_DEBUG("rotate[%d],isMirror[%d],isFlip[%d],brightness[%d],saturation[%d] \n", cfg->rotate,
              cfg->mirror, cfg->flip, cfg->brightness, cfg->saturation);
    return kOk;
}

Status PDT_INIPARAM_LoadVcapPipeChnCommCfgPartTwo(const char* module, std::int32_t pipe,
                                                  std::int32_t chn, VcapPipeChnCommCfg* cfg) {
    LOAD_AT_OR_RETURN(module, ROWS(kVcapPipeChnCommTable, lowDelayEnable, ldcEnable), cfg, pipe,
                      chn);
    LOG_DEBUG("lowdelayenable[%d] lowdelayline[%d] isLdcV1[%d] ldcEnable[%d]\n",
              cfg->lowDelayEnable, cfg->lowDelayLine, cfg->isLdcV1, cfg->ldcEnable);
    return kOk;
}

Status PDT_INIPARAM_LoadCamVcapPipeChnCommCfg(const char* module, std::int32_t pipe,
                                              std::int32_t chn, VcapPipeChnCommCfg* cfg) {
    REQUIRE_RECORD_OR_RETURN(cfg);
    CALL_OR_RETURN(PDT_INIPARAM_LoadVcapPipeChnCommCfgPartOne(module, pipe, chn, cfg),
                   "PDT_INIPARAM_LoadVcapPipeChnCommCfgPartOne");
    CALL_OR_RETURN(PDT_INIPARAM_LoadVcapPipeChnCommCfgPartTwo(module, pipe, chn, cfg),
                   "PDT_INIPARAM_LoadVcapPipeChnCommCfgPartTwo");
    return kOk;
}

Status PDT_INIPARAM_LoadCamVcapPipeCommCfg(const char* module, std::int32_t pipe,
                                           VcapPipeCommCfg* cfg) {
    LOAD_AT_OR_RETURN(module, ROWS(kVcapPipeCommTable, handle, lowDelayLine), cfg, pipe);
    LOG_DEBUG(
        "pipe[%d] comm attr, vcappipehdl[%d], pipetype[%d], lowdelayenable[%d], "
        "lowdelayline[%d]\n",
        pipe, cfg->handle, cfg->type, cfg->lowDelayEnable, cfg->lowDelayLine);
    for (std::int32_t chn = 0; chn < kVcapPipeChnCount; ++chn) {
        CALL_OR_RETURN(PDT_INIPARAM_LoadCamVcapPipeChnCommCfg(module, pipe, chn, &cfg->chns[chn]),
                       "VcapPipeChnComm");
    }
    return kOk;
}

Status PDT_INIPARAM_LoadCamVcapAibnrAttr(const char*, VcapCommCfg* cfg) {
    REQUIRE_RECORD_OR_RETURN(cfg);
    return kOk;
}

Status PDT_INIPARAM_LoadCamVcapAibnrModelAttr(const char*, VcapCommCfg* cfg) {
    REQUIRE_RECORD_OR_RETURN(cfg);
    return kOk;
}

Status PDT_INIPARAM_LoadCamVcapCommCfg(const char* module, VcapCommCfg* cfg) {
    LOAD_OR_RETURN(module, nullptr, ROWS(kVcapCommTable, enable, inputDataType), cfg);
    CALL_OR_RETURN(PDT_INIPARAM_LoadCamVcapAibnrAttr(module, cfg), "VcapPipeComm");
    CALL_OR_RETURN(PDT_INIPARAM_LoadCamVcapAibnrModelAttr(module, cfg), "VcapPipeComm");
    LOG_DEBUG("vcap dev comm attr  enable[%d],vcapdevhdl[%d] wdr_mode[%d]\n", cfg->enable,
              cfg->handle, cfg->wdrMode);
    LOG_DEBUG(
        "vcap dev comm attr  input_mode[%d] interface_mode[%d] datasequce[%d] "
        "inputdatatype[%d]\n",
        cfg->inputMode, cfg->interfaceMode, cfg->dataSequence, cfg->inputDataType);
    LOG_DEBUG("vcap dev AIBNR attr  enable[%d]  masterpipe[%d] modelpath[%s]\n", cfg->aibnr.enable,
              cfg->aibnr.masterPipe, cfg->aibnr.modelPath);
    for (std::int32_t pipe = 0; pipe < kVcapPipeCount; ++pipe) {
        CALL_OR_RETURN(PDT_INIPARAM_LoadCamVcapPipeCommCfg(module, pipe, &cfg->pipes[pipe]),
                       "VcapPipeComm");
    }
    return kOk;
}

}  // namespace paramgen
