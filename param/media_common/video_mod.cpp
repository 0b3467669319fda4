#include "param/media_common/video_mod.h"

#include "param/common/propagate.h"

namespace paramgen {

constexpr Field kVideoModFields[] = {
    FIELD(VideoModCfg, boundModule, "bindedmod", 0)
        .About("Number of the firmware module that the video comes from"),
    FIELD(VideoModCfg, moduleHandle, "modhdl", 0).About("Handle of the group of that module"),
    FIELD(VideoModCfg, channelHandle, "chnhdl", 0).About("Handle of the channel of that group"),
};

constexpr TableOf<VideoModCfg> kVideoModTable{nullptr, kVideoModFields};

Status PDT_INIPARAM_LoadVideoModCfg(const char* module, const char* prefix, VideoModCfg* cfg) {
    LOAD_OR_RETURN(module, prefix, kVideoModTable, cfg);
    LOG_DEBUG(" %s bindedMod[%d] modHdl[%d],  chnHdl[%d] \n", prefix, cfg->boundModule,
              cfg->moduleHandle, cfg->channelHandle);
    return kOk;
}

}  // namespace paramgen
