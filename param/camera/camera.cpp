#include "param/camera/camera.h"

#include "confaccess/confaccess.h"
#include "param/common/key.h"
#include "param/common/propagate.h"
#include "param/common/readers.h"

namespace paramgen {

constexpr char kCamModule[] = "cam%u_comm";
constexpr char kRecordModule[] = "cam%u_comm_record";
constexpr char kPhotoModule[] = "cam%u_comm_photo";
constexpr char kPlaybackModule[] = "cam%u_comm_playback";
constexpr char kMediaModeModule[] = "cam%u_mediamode%u";

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
    RECORD(CamMediaCfg, func, kCamFuncTable).From(kCamModule),
    RECORD(CamMediaCfg, record, kCamMediaModeCommTable).From(kRecordModule),
    RECORD(CamMediaCfg, photo, kCamMediaModeCommTable).From(kPhotoModule),
    RECORD(CamMediaCfg, playback, kCamMediaModeCommTable).From(kPlaybackModule).Optional(),
    RECORD(CamMediaCfg, mediaModes, kCamMediaModeSpecTable).From(kMediaModeModule).Optional(),
    RESERVED(CamMediaCfg, reserved).About("Brings the media modes to an 8-byte boundary"),
};

constexpr TableOf<CamMediaCfg> kCamMediaTable{nullptr, kCamMediaFields};

Status PDT_INIPARAM_LoadCamFuncAttr(const char* module, CamMediaCfg* cam) {
    REQUIRE_RECORD_OR_RETURN(cam);
    LOAD_OR_RETURN(module, nullptr, kCamFuncTable, &cam->func);
    return kOk;
}

// One function in spite of its length: every record of a camera's blocks goes by its name.
Status PDT_INIPARAM_LoadCamMediaCfg(CamMediaCfg* cams, std::uint32_t count) {
    REQUIRE_RECORD_OR_RETURN(cams);
    for (std::uint32_t c = 0; c < count && c < kCamCount; ++c) {
        CamMediaCfg& cam = cams[c];
        Key key;
        const char* module = key.c_str();
        std::int32_t isExist = 0;

        FORMAT_OR_RETURN(key, "sprintf_s", kCamModule, c);
        cam.camIndex = c;
        CALL_OR_RETURN(PDT_INIPARAM_LoadCamFuncAttr(module, &cam), "cam func attr");

        LOG_DEBUG("Cam[%u] Rec Media comm Configure:\n", c);
        FORMAT_OR_RETURN(key, "sprintf_s", kRecordModule, c);
        CALL_OR_RETURN(PDT_INIPARAM_LoadMediaModeCommCfg(module, &cam.record), module);

        LOG_DEBUG("Cam[%u] Photo Media comm Configure:\n", c);
        FORMAT_OR_RETURN(key, "sprintf_s", kPhotoModule, c);
        CALL_OR_RETURN(PDT_INIPARAM_LoadMediaModeCommCfg(module, &cam.photo), module);

        LOG_DEBUG("Cam[%u] playback Media comm Configure:\n", c);
        FORMAT_OR_RETURN(key, "sprintf_s", kPlaybackModule, c);
        CALL_OR_RETURN(ZV_CONFACCESS_IsMoudleExist(kProductConfig, module, &isExist), module);
        if (isExist == 1) {
            CALL_OR_RETURN(PDT_INIPARAM_LoadMediaModeCommCfg(module, &cam.playback), module);
        }

        for (std::uint32_t m = 0; m < kCamMediaModeSpecCount; ++m) {
            LOG_DEBUG("Cam[%u]  MediaMode[%u] Configure:\n", c, m);
            FORMAT_OR_RETURN(key, "sprintf_s", kMediaModeModule, c, m);
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
