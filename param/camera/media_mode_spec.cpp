#include "param/camera/media_mode_spec.h"

#include "param/camera/module_mode.h"
#include "param/common/key.h"
#include "param/common/propagate.h"

namespace paramgen {

constexpr Field kVcapPipeModeFields[] = {
    QUERY(VcapPipeModeCfg, vcapPipeHdl, "vcappipe_hdl", 0)
        .About("Handle of the capture pipe; -1 for none"),
    QUERY(VcapPipeModeCfg, viVpssMode, "vivpssmode", 6)
        .About("How the pipe hands its picture to video processing"),
};

constexpr TableOf<VcapPipeModeCfg> kVcapPipeModeTable{"common.vcap.pipe.%d", kVcapPipeModeFields};

constexpr Field kCamMediaModeSpecFields[] = {
    LOADED(CamMediaModeSpecCfg, mediaMode, "mediamode")
        .At("common")
        .WantedBy(kLdcSearch)
        .About("The media mode that these settings are for"),
    RECORD(CamMediaModeSpecCfg, vcapPipes, kVcapPipeModeTable),
    RESERVED(CamMediaModeSpecCfg, reserved).About("Reserved"),
    RECORD(CamMediaModeSpecCfg, vb, kVBSpecTable),
    RECORD(CamMediaModeSpecCfg, vcap, kVcapSpecTable),
    RECORD(CamMediaModeSpecCfg, vpss, kVpssSpecTable),
    RECORD(CamMediaModeSpecCfg, venc, kVencSpecTable),
};

constexpr TableOf<CamMediaModeSpecCfg> kCamMediaModeSpecTable{nullptr, kCamMediaModeSpecFields};

Status PDT_INIPARAM_LoadMediaModeSpecCfg(const char* module, CamMediaModeSpecCfg* cfg) {
    REQUIRE_RECORD_OR_RETURN(cfg);
    Key modeKey;
    constexpr const Field& kMode = ROW(kCamMediaModeSpecTable, mediaMode);
    FILL_OR_RETURN(modeKey, "sprintf_s", "%s:%s", kMode.node, static_cast<const char*>(kMode.key));
    CALL_OR_RETURN(ReadModuleMode(module, modeKey.c_str(), &cfg->mediaMode), modeKey.c_str());
    for (std::uint32_t i = 0; i < kVcapPipeSpecCount; ++i) {
        VcapPipeModeCfg& pipe = cfg->vcapPipes[i];
        LOAD_AT_OR_RETURN(module, kVcapPipeModeTable, &pipe, i);
        LOG_DEBUG("vcap.pipe[%d] vivpssmode, vcappipe_hdl[%d], vivpssmode[%d] \n", i,
                  pipe.vcapPipeHdl, pipe.viVpssMode);
    }
    CALL_OR_RETURN(PDT_INIPARAM_LoadCamVBSpecCfg(module, &cfg->vb), "VB config");
    CALL_OR_RETURN(PDT_INIPARAM_LoadCamVcapSpecCfg(module, cfg->mediaMode, &cfg->vcap),
                   "vcap attr");
    for (std::uint32_t i = 0; i < kVpssSpecCount; ++i) {
        CALL_OR_RETURN(PDT_INIPARAM_LoadCamVpssSpecAttr(module, i, cfg->mediaMode, &cfg->vpss[i]),
                       "vproc config");
    }
    CALL_OR_RETURN(PDT_INIPARAM_LoadCamVencSpecCfg(module, &cfg->venc), "venc config");
    return kOk;
}

}  // namespace paramgen
