#include "param/camera/cam_media_mode.h"

#include "param/common/propagate.h"

namespace paramgen {

constexpr Field kCamMediaModeFields[] = {
    // The label names another key. Readers of the log know this failure by it.
    FIELD(CamMediaModeCfg, camId, "camid", 0)
        .Label("wifi.info:enable")
        .About("Number of the camera"),
    QUERY(CamMediaModeCfg, mediaMode, "mediamode").About("Media mode that the work mode starts in"),
};

constexpr TableOf<CamMediaModeCfg> kCamMediaModeTable{nullptr, kCamMediaModeFields};

Status PDT_INIPARAM_LoadCamMediaModeCfg(const char* module, const char* prefix,
                                        CamMediaModeCfg* cfg) {
    LOAD_OR_RETURN(module, prefix, kCamMediaModeTable, cfg);
    LOG_DEBUG("%s,CAMID[%d] mediaMode[%d]\n", prefix, cfg->camId, cfg->mediaMode);
    return kOk;
}

}  // namespace paramgen
