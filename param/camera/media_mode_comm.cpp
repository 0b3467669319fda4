#include "param/camera/media_mode_comm.h"

#include "param/common/propagate.h"

namespace paramgen {

constexpr char kCropNode[] = "disp.window.crop";

constexpr Field kDispCropFields[] = {
    FIELD(DispCropCfg, enable, "enable", 0).At(kCropNode).About("The display window is cropped"),
    FIELD(DispCropCfg, maxHeight, "max_h", 0)
        .At(kCropNode)
        .About("Largest height of the crop")
        .Unit("px"),
    FIELD(DispCropCfg, currentHeight, "cur_h", 0)
        .At(kCropNode)
        .About("Height of the crop")
        .Unit("px"),
    FIELD(DispCropCfg, mode, "mode", 0).At(kCropNode).About("Crop mode"),
};

constexpr TableOf<DispCropCfg> kDispCropTable{nullptr, kDispCropFields};

constexpr Field kCamMediaModeCommFields[] = {
    RECORD(CamMediaModeCommCfg, vcap, kVcapCommTable),
    RECORD(CamMediaModeCommCfg, vproc, kVprocCommTable),
    RECORD(CamMediaModeCommCfg, venc, kCamVencCommTable),
    RECORD(CamMediaModeCommCfg, dispCrop, kDispCropTable),
};

constexpr TableOf<CamMediaModeCommCfg> kCamMediaModeCommTable{nullptr, kCamMediaModeCommFields};

Status PDT_INIPARAM_LoadCamDispCropCfg(const char* module, DispCropCfg* cfg) {
    LOAD_OR_RETURN(module, nullptr, kDispCropTable, cfg);
    LOG_DEBUG("   window crop enable[%d] maxH[%d], curH[%d], cropMod[%d]\n", cfg->enable,
              cfg->maxHeight, cfg->currentHeight, cfg->mode);
    return kOk;
}

Status PDT_INIPARAM_LoadMediaModeCommCfg(const char* module, CamMediaModeCommCfg* cfg) {
    REQUIRE_RECORD_OR_RETURN(cfg);
    CALL_OR_RETURN(PDT_INIPARAM_LoadCamVcapCommCfg(module, &cfg->vcap), "vcap comm");
    for (std::int32_t group = 0; group < kVprocCommCount; ++group) {
        CALL_OR_RETURN(PDT_INIPARAM_LoadCamVprocCommCfg(module, group, &cfg->vproc[group]),
                       "vproc comm");
    }
    CALL_OR_RETURN(PDT_INIPARAM_LoadCamVencCommCfg(module, &cfg->venc), "venc comm");
    CALL_OR_RETURN(PDT_INIPARAM_LoadCamDispCropCfg(module, &cfg->dispCrop), "crop config");
    return kOk;
}

}  // namespace paramgen
