#include "check/reference_rules.h"

#include <algorithm>
#include <iterator>

namespace paramgen::check {
namespace {

constexpr TargetRow kTargets[] = {
    {TargetKind::kPipe, "capture pipe", "vcap.pipe.?", "vcappipehdl", nullptr, false},
    {TargetKind::kChannel, "capture channel", "vcap.pipe.?.chn.?", "pipechnhdl", "enable", true},
    {TargetKind::kGroup, "processing group", "vpss.?", "vpsshdl", "enable", false},
    {TargetKind::kPort, "port", "vpss.?.vport.?", "vporthdl", "enable", true},
    {TargetKind::kPort, "port", "vpss.?.extvport.?", "vporthdl", "enable", true},
    {TargetKind::kEncoder, "encoder", "venc.?", "venchdl", "enable", false},
    {TargetKind::kAudioEncoder, "audio encoder", "aenc.?", "aenchdl", "enable", false},
    {TargetKind::kAudioDevice, "audio capture device", "acapture.?", "handle", "enable", false},
    {TargetKind::kAudioChannel, "audio capture channel", "acapture.?.chnl.?", "handle", "enable",
     true},
};

/// The firmware's numbers of its modules.
constexpr std::int32_t kProcessing = 2;
constexpr std::int32_t kEncoding = 3;

constexpr char kPhotoPath[] = "a photo takes this path through the pipeline of its mode";
constexpr char kTrack[] = "a file takes its streams from encoders of the recording pipeline";
constexpr char kSource[] = "an encoder takes its pictures from a port of a processing group";
constexpr char kDrawn[] = "an overlay is drawn into the pictures of a port";
constexpr char kFeeds[] = "a capture channel feeds the processing group";
constexpr char kExtended[] = "an extended port is a second size of another port's picture";
constexpr char kSound[] = "an audio encoder takes its sound from a capture channel";
constexpr char kLive[] = "live view takes its stream from an encoder";
constexpr char kPanel[] = "the panel shows the pictures of a port";
constexpr char kModePipe[] = "a media mode says how each pipe hands on its pictures";
constexpr char kPipelines[] = "cam0_comm_*";

// The rows of a work mode and of the pipeline that belongs to it.
#define PHOTO_PATH(mode)                                                                \
    {"workmode_" mode,  "photosource.?",   "vcappipehdl", "enable",  nullptr, 0,        \
     TargetKind::kPipe, "cam0_comm_" mode, nullptr,       kPhotoPath},                  \
        {"workmode_" mode,     "photosource.?",   "pipechnhdl",  "enable",  nullptr, 0, \
         TargetKind::kChannel, "cam0_comm_" mode, "vcappipehdl", kPhotoPath},           \
        {"workmode_" mode,   "photosource.?",   "vpsshdl", "enable",  nullptr, 0,       \
         TargetKind::kGroup, "cam0_comm_" mode, nullptr,   kPhotoPath},                 \
        {"workmode_" mode,  "photosource.?",   "vporthdl", "enable",  nullptr, 0,       \
         TargetKind::kPort, "cam0_comm_" mode, "vpsshdl",  kPhotoPath},                 \
        {"workmode_" mode,     "photosource.?",   "venchdl", "enable",  nullptr, 0,     \
         TargetKind::kEncoder, "cam0_comm_" mode, nullptr,   kPhotoPath},               \
    {                                                                                   \
        "workmode_" mode, "photosource.?", "thumbnail_hdl", "enable", nullptr, 0,       \
            TargetKind::kEncoder, "cam0_comm_" mode, nullptr, kPhotoPath                \
    }

#define OVERLAYS(mode)                                                                     \
    {"workmode_" mode, "osd.*.display.?",  "modhdl",          "show",  "bind_module",      \
     kProcessing,      TargetKind::kGroup, "cam0_comm_" mode, nullptr, kDrawn},            \
    {                                                                                      \
        "workmode_" mode, "osd.*.display.?", "chnhdl", "show", "bind_module", kProcessing, \
            TargetKind::kPort, "cam0_comm_" mode, "modhdl", kDrawn                         \
    }

#define PIPELINE(module)                                                                     \
    {module, "vpss.?",          "vcappipehdl", "enable", nullptr,                            \
     0,      TargetKind::kPipe, module,        nullptr,  kFeeds},                            \
        {module, "vpss.?",      "pipechnhdl", "enable", nullptr, 0, TargetKind::kChannel,    \
         module, "vcappipehdl", kFeeds},                                                     \
        {module, "vpss.?.extvport.?", "bindvporthdl", "enable", nullptr,                     \
         0,      TargetKind::kPort,   module,         ".",      kExtended},                  \
        {module,      "venc.?",           "modhdl_?", "enable", "bindedmod",                 \
         kProcessing, TargetKind::kGroup, module,     nullptr,  kSource},                    \
    {                                                                                        \
        module, "venc.?", "chnhdl_?", "enable", "bindedmod", kProcessing, TargetKind::kPort, \
            module, "modhdl_?", kSource                                                      \
    }

constexpr HandleRule kHandles[] = {
    PHOTO_PATH("record"),
    PHOTO_PATH("photo"),
    {"workmode_record", "normal.?.filenum.?.fileattr", "venc_hdl?", nullptr, nullptr, 0,
     TargetKind::kEncoder, "cam0_comm_record", nullptr, kTrack},
    {"workmode_record", "normal.?.filenum.?.fileattr", "thumbnail_hdl", nullptr, nullptr, 0,
     TargetKind::kEncoder, "cam0_comm_record", nullptr, kTrack},
    {"workmode_record", "normal.?", "thmhdl?", "enable", nullptr, 0, TargetKind::kEncoder,
     "cam0_comm_record", nullptr, kTrack},
    {"workmode_record", "normal.?.filenum.?.fileattr", "aenc_hdl0", nullptr, nullptr, 0,
     TargetKind::kAudioEncoder, "media_common", nullptr,
     "a file takes its sound from an audio encoder"},
    OVERLAYS("record"),
    OVERLAYS("photo"),
    PIPELINE("cam0_comm_record"),
    PIPELINE("cam0_comm_photo"),
    PIPELINE("cam0_comm_playback"),
    {"media_common", "aenc.?", "acaphdl", "enable", nullptr, 0, TargetKind::kAudioDevice,
     "media_common", nullptr, kSound},
    {"media_common", "aenc.?", "acapchdl", "enable", nullptr, 0, TargetKind::kAudioChannel,
     "media_common", "acaphdl", kSound},
    {"media_common", "venc.live.src.?", "modhdl", nullptr, "bindedmod", kEncoding,
     TargetKind::kEncoder, kPipelines, nullptr, kLive},
    {"media_common", "disp.?.SRC.?", "modhdl", nullptr, "bindedmod", kProcessing,
     TargetKind::kGroup, kPipelines, nullptr, kPanel},
    {"media_common", "disp.?.SRC.?", "chnhdl", nullptr, "bindedmod", kProcessing, TargetKind::kPort,
     kPipelines, "modhdl", kPanel},
    {kModeModules, "common.vcap.pipe.?", "vcappipe_hdl", nullptr, nullptr, 0, TargetKind::kPipe,
     kPipelines, nullptr, kModePipe},
};

constexpr char kFactory[] = "what the product starts with is one of the menu's choices";

constexpr MenuRule kMenus[] = {
    {"workmode_record", "common.mediamode.config.?", "mediamode", "cam.0.mediamode.record",
     kFactory},
    {"workmode_photo", "common.mediamode.config.?", "mediamode", "cam.0.mediamode.photo", kFactory},
    {"workmode_photo", "phototype.?.burst", "mediamode", "cam.0.burst.mediamode", kFactory},
    {"workmode_photo", "phototype.?", "type", "photo.type", kFactory},
    {"workmode_photo", "phototype.?.single", "outputformat", "cam.0.singlephoto.outputformat",
     kFactory},
    {"workmode_photo", "phototype.?.lapse", "interval_time", "cam.0.lapsephoto.interval", kFactory},
    {"workmode_record", "normal.?", "split_time", "splite_time", kFactory},
    {"workmode_record", "normal.?", "lapse_interval", "record.lapse.interval", kFactory},
    {"workmode_record", "normal.?", "record_type", "record.type", kFactory},
    {"cam0_comm", "camera", "video_mode", "cam.0.video.mode", kFactory},
    {"devmng", "gsensor", "sensitivity", "drive_sensitivity", kFactory},
    {"devmng", "parking", "sensitivity", "parking_sensitivity", kFactory},
    {"devmng", "language", "system_language", "system.language", kFactory},
};

constexpr char kServed[] = "the settings of a media mode stand in the module that serves it";

constexpr ModeRule kModes[] = {
    {"workmode_record", "common.mediamode.config.?", "mediamode", kServed},
    {"workmode_photo", "common.mediamode.config.?", "mediamode", kServed},
    {"workmode_photo", "phototype.?.burst", "mediamode", kServed},
    {kMenuModule, "cam.?.mediamode.*", "value*", kServed},
    {kMenuModule, "cam.?.burst.mediamode", "value*", kServed},
};

constexpr char kRange[] = "together they are a range";

constexpr LimitRule kLimits[] = {
    {"media_common", "venc.video.*", "min_qp", "max_qp", kRange},
    {"media_common", "venc.video.*", "min_iqp", "max_iqp", kRange},
    {"media_common", "venc.video.*", "psnr_fluctuate_ll", "psnr_fluctuate_ul", kRange},
};

}  // namespace

std::span<const TargetRow> TargetRows() {
    return kTargets;
}

std::span<const HandleRule> HandleRules() {
    return kHandles;
}

std::span<const MenuRule> MenuRules() {
    return kMenus;
}

std::span<const ModeRule> ModeRules() {
    return kModes;
}

std::span<const LimitRule> LimitRules() {
    return kLimits;
}

const TargetRow& TargetRowOf(TargetKind kind) {
    return *std::find_if(std::begin(kTargets), std::end(kTargets),
                         [kind](const TargetRow& row) { return row.kind == kind; });
}

}  // namespace paramgen::check
