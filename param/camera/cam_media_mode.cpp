#include "param/camera/cam_media_mode.h"

#include "param/common/propagate.h"

namespace paramgen {

constexpr Field kCamMediaModeFields[] = {
    // Its label speaks of another key; whoever reads the log knows it by that name.
    FIELD(CamMediaModeCfg, camId, "camid", 0).Label("wifi.info:enable"),
    QUERY(CamMediaModeCfg, mediaMode, "mediamode"),
};

constexpr TableOf<CamMediaModeCfg> kCamMediaModeTable{nullptr, kCamMediaModeFields};

Status PDT_INIPARAM_LoadCamMediaModeCfg(const char* module, const char* prefix,
                                        CamMediaModeCfg* cfg) {
    LOAD_OR_RETURN(module, prefix, kCamMediaModeTable, cfg);
    LOG_DEBUG("%s,CAMID[%d] mediaMode[%d]\n", prefix, cfg->camId, cfg->mediaMode);
    return kOk;
}

}  // namespace paramgen
