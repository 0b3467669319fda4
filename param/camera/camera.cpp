#include "param/camera/camera.h"

#include "confaccess/confaccess.h"
#include "param/common/key.h"
#include "param/common/propagate.h"
#include "param/common/readers.h"

namespace paramgen {

constexpr char kFuncNode[] = "camera";

constexpr Field kCamFuncFields[] = {
    FIELD(CamFuncAttr, enable, "enable", 0).At(kFuncNode).About("The camera is in use"),
    FIELD(CamFuncAttr, osdShow, "osdshow", 0)
        .At(kFuncNode)
        .About("Overlays of the work modes are drawn into the picture"),
    FIELD(CamFuncAttr, videoMode, "video_mode", 0).At(kFuncNode).About("Number of the video mode"),
};

constexpr TableOf<CamFuncAttr> kCamFuncTable{nullptr, kCamFuncFields};

constexpr Field kCamMediaFields[] = {
    COMPUTED(CamMediaCfg, camIndex).About("Number of the camera"),
    RECORD(CamMediaCfg, func, kCamFuncTable).From("cam%u_comm"),
    RECORD(CamMediaCfg, record, kCamMediaModeCommTable).From("cam%u_comm_record"),
    RECORD(CamMediaCfg, photo, kCamMediaModeCommTable).From("cam%u_comm_photo"),
    RECORD(CamMediaCfg, playback, kCamMediaModeCommTable).From("cam%u_comm_playback").Optional(),
    RECORD(CamMediaCfg, mediaModes, kCamMediaModeSpecTable).From("cam%u_mediamode%u").Optional(),
    RESERVED(CamMediaCfg, reserved).About("Brings the media modes to an 8-byte boundary"),
};

constexpr TableOf<CamMediaCfg> kCamMediaTable{nullptr, kCamMediaFields};

Status PDT_INIPARAM_LoadCamFuncAttr(const char* module, CamMediaCfg* cam) {
    REQUIRE_RECORD_OR_RETURN(cam);
    LOAD_OR_RETURN(module, nullptr, kCamFuncTable, &cam->func);
    return kOk;
}

// Not split in spite of its length: its name stands in the log records of all blocks of a camera.
Status PDT_INIPARAM_LoadCamMediaCfg(CamMediaCfg* cams, std::uint32_t count) {
    REQUIRE_RECORD_OR_RETURN(cams);
    for (std::uint32_t c = 0; c < count && c < kCamCount; ++c) {
        CamMediaCfg& cam = cams[c];
        Key key;
        const char* module = key.c_str();
        std::int32_t isExist = 0;

        FILL_OR_RETURN(key, "sprintf_s", ROW(kCamMediaTable, func).module, c);
        cam.camIndex = c;
        CALL_OR_RETURN(PDT_INIPARAM_LoadCamFuncAttr(module, &cam), "cam func attr");

        LOG_DEBUG("Cam[%u] Rec Media comm Configure:\n", c);
        FILL_OR_RETURN(key, "sprintf_s", ROW(kCamMediaTable, record).module, c);
        CALL_OR_RETURN(PDT_INIPARAM_LoadMediaModeCommCfg(module, &cam.record), module);

        LOG_DEBUG("Cam[%u] Photo Media comm Configure:\n", c);
        FILL_OR_RETURN(key, "sprintf_s", ROW(kCamMediaTable, photo).module, c);
        CALL_OR_RETURN(PDT_INIPARAM_LoadMediaModeCommCfg(module, &cam.photo), module);

        LOG_DEBUG("Cam[%u] playback Media comm Configure:\n", c);
        FILL_OR_RETURN(key, "sprintf_s", ROW(kCamMediaTable, playback).module, c);
        CALL_OR_RETURN(ZV_CONFACCESS_IsMoudleExist(kProductConfig, module, &isExist), module);
        if (isExist == 1) {
            CALL_OR_RETURN(PDT_INIPARAM_LoadMediaModeCommCfg(module, &cam.playback), module);
        }

        for (std::uint32_t m = 0; m < kCamMediaModeSpecCount; ++m) {
            LOG_DEBUG("Cam[%u]  MediaMode[%u] Configure:\n", c, m);
            FILL_OR_RETURN(key, "sprintf_s", ROW(kCamMediaTable, mediaModes).module, c, m);
            CALL_OR_RETURN(ZV_CONFACCESS_IsMoudleExist(kProductConfig, module, &isExist), module);
            if (isExist == 1) {
                CALL_OR_RETURN(PDT_INIPARAM_LoadMediaModeSpecCfg(module, &cam.mediaModes[m]),
                               module);
            }
        }
    }
    return kOk;
}

}  // namespace paramgen
