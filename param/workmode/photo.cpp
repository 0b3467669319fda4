#include "param/workmode/photo.h"

#include <iterator>

#include "param/common/propagate.h"
#include "param/workmode/nodes.h"

namespace paramgen {

constexpr char kSourceNode[] = "photosource.%u";
constexpr char kTypeNode[] = "phototype.%u";
constexpr char kSingleNode[] = "phototype.%u.single";
constexpr char kLapseNode[] = "phototype.%u.lapse";
constexpr char kBurstNode[] = "phototype.%u.burst";

/// Label of some texts that do not fit. Odd as it looks, it is what the log has always said.
constexpr char kNotFormatted[] = "ret = ret = sprintf_s";

constexpr Field kPhotoSourceFields[] = {
    FIELD(PhotoSourceCfg, enable, "enable", 0).About("Photos can be taken"),
    FIELD(PhotoSourceCfg, capturePipe, "vcappipehdl", 0).About("Handle of the capture pipe"),
    FIELD(PhotoSourceCfg, pipeChannel, "pipechnhdl", 0).About("Handle of its channel"),
    FIELD(PhotoSourceCfg, processingGroup, "vpsshdl", 0).About("Handle of the processing group"),
    FIELD(PhotoSourceCfg, processingPort, "vporthdl", 0).About("Handle of its port"),
    FIELD(PhotoSourceCfg, encoder, "venchdl", 0).About("Handle of the encoder"),
    FIELD(PhotoSourceCfg, thumbnailEncoder, "thumbnail_hdl", 0)
        .About("Handle of the encoder of the thumbnail"),
};

constexpr Field kPhotoBurstFields[] = {
    QUERY(PhotoBurstCfg, mediaMode, "mediamode").About("Media mode of bursts"),
    FIELD(PhotoBurstCfg, type, "burst_type", 0)
        .Label("LoadIntValueByNodePrefix")
        .Numbers(
            "0 3 in 1, 1 5 in 1, 2 10 in 1, 3 15 in 1, 4 30 in 1, 5 20 in 2, 6 30 in 2, 7 30 in 3")
        .About("Shots in seconds")
        .Numbers(
            "0 3 in 1, 1 5 in 1, 2 10 in 1, 3 15 in 1, 4 30 in 1, 5 20 in 2, 6 30 in 2, 7 30 in 3"),
};

constexpr TableOf<PhotoSourceCfg> kPhotoSourceTable{nullptr, kPhotoSourceFields};
constexpr TableOf<PhotoBurstCfg> kPhotoBurstTable{nullptr, kPhotoBurstFields};

constexpr Field kPhotoTypeFields[] = {
    FIELD(PhotoTypeCfg, type, "type", 0)
        .About("Kind of photo that the mode starts with")
        .Numbers("0 single, 1 time lapse, 2 burst"),
    FIELD(PhotoTypeCfg, singleOutputFormat, "outputformat", 0)
        .Under(kSingleNode)
        .About("Format of single photos")
        .Numbers("0 JPEG, 1 raw, 2 both"),
    FIELD(PhotoTypeCfg, lapseInterval, "interval_time", 0)
        .Under(kLapseNode)
        .About("Time between two photos")
        .Unit("s"),
    RECORD(PhotoTypeCfg, burst, kPhotoBurstTable).Under(kBurstNode),
};

constexpr TableOf<PhotoTypeCfg> kPhotoTypeTable{kTypeNode, kPhotoTypeFields};

constexpr Field kPhotoFields[] = {
    RECORD(PhotoCfg, source, kPhotoSourceTable).Under(kSourceNode),
    RECORD(PhotoCfg, type, kPhotoTypeTable),
};

constexpr TableOf<PhotoCfg> kPhotoTable{nullptr, kPhotoFields};

constexpr Field kPhotoWorkModeFields[] = {
    RECORD(PhotoWorkModeCfg, mediaMode, kCamMediaModeTable).Under(kMediaModeConfigNode),
    RECORD(PhotoWorkModeCfg, photo, kPhotoTable),
    RECORD(PhotoWorkModeCfg, osd, kOsdTable).Under(kOsdNode),
    RESERVED(PhotoWorkModeCfg, reserved).About("Reserved"),
};

constexpr TableOf<PhotoWorkModeCfg> kPhotoWorkModeTable{nullptr, kPhotoWorkModeFields};

Status PDT_INIPARAM_LoadPhotoAttr(const char* module, const char* node, PhotoSourceCfg* cfg) {
    LOAD_OR_RETURN(module, node, kPhotoSourceTable, cfg);
    LOG_DEBUG(
        "photosource:enable[%d],vcappipehdl[%d],pipechnhdl[%d],vpsshdl[%d],vporthdl[%d],"
        "venchdl[%d],vencThmHdl[%d]\n",
        cfg->enable, cfg->capturePipe, cfg->pipeChannel, cfg->processingGroup, cfg->processingPort,
        cfg->encoder, cfg->thumbnailEncoder);
    return kOk;
}

Status PDT_INIPARAM_LoadPhotoBurstAttr(const char* module, const char* node, PhotoBurstCfg* cfg) {
    Key mediaModeKey;
    if (FormatFullKey(&mediaModeKey, node, ROW(kPhotoBurstTable, mediaMode), 0) == -1) {
        LOG_ERROR("[%s] failed\n", kNotFormatted);
        return kFailed;
    }
    LOAD_OR_RETURN(module, node, kPhotoBurstTable, cfg);
    LOG_DEBUG(
        "MediaMode[%d], BurstType[%d:0-3_1,1-5_1,2-10_1,3-15_1,4-30_1,5-20_2,6-30_2,7-30_3]\n",
        cfg->mediaMode, cfg->type);
    return kOk;
}

Status PDT_INIPARAM_LoadPhotoCfg(const char* module, PhotoCfg* cfg) {
    REQUIRE_RECORD_OR_RETURN(cfg);
    Key node;
    LOG_DEBUG("Photo PhotoSrc\n");
    for (std::uint32_t i = 0; i < std::size(cfg->source); ++i) {
        FORMAT_OR_RETURN(node, "photosource sprintf_s", kSourceNode, i);
        CALL_OR_RETURN(PDT_INIPARAM_LoadPhotoAttr(module, node.c_str(), &cfg->source[i]),
                       "PhotoSrc");
    }
    LOG_DEBUG("Photo type\n");
    for (std::uint32_t i = 0; i < std::size(cfg->type); ++i) {
        PhotoTypeCfg* type = &cfg->type[i];
        FORMAT_OR_RETURN(node, "sprintf_s", kTypeNode, i);
        LOAD_OR_RETURN(module, node.c_str(), ROW(kPhotoTypeTable, type), type);
        FORMAT_OR_RETURN(node, "singlephoto sprintf_s", kSingleNode, i);
        LOAD_OR_RETURN(module, node.c_str(), ROW(kPhotoTypeTable, singleOutputFormat), type);
        FORMAT_OR_RETURN(node, "lapsephoto sprintf_s", kLapseNode, i);
        LOAD_OR_RETURN(module, node.c_str(), ROW(kPhotoTypeTable, lapseInterval), type);
        FORMAT_OR_RETURN(node, "burstphoto sprintf_s", kBurstNode, i);
        CALL_OR_RETURN(PDT_INIPARAM_LoadPhotoBurstAttr(module, node.c_str(), &type->burst),
                       "LoadPhotoBurstAttr");
        // The next record goes on in the same line.
        LOG_DEBUG("photo type cfg: type[%u], single_outputformat[%u], lapse_interval[%u]",
                  type->type, type->singleOutputFormat, type->lapseInterval);
    }
    return kOk;
}

Status PDT_INIPARAM_LoadPhotoWorkModeCfg(const char* module, PhotoWorkModeCfg* cfg) {
    REQUIRE_RECORD_OR_RETURN(cfg);
    LOG_DEBUG("Photo mediamode Configure:\n");
    for (std::int32_t i = 0; i < std::ssize(cfg->mediaMode); ++i) {
        Key node;
        FORMAT_OR_RETURN(node, kNotFormatted, kMediaModeConfigNode, i);
        CALL_OR_RETURN(PDT_INIPARAM_LoadCamMediaModeCfg(module, node.c_str(), &cfg->mediaMode[i]),
                       node.c_str());
    }
    CALL_OR_RETURN(PDT_INIPARAM_LoadPhotoCfg(module, &cfg->photo), "Photo cfg");
    LOG_DEBUG("Photo Osd\n");
    CALL_OR_RETURN(PDT_INIPARAM_LoadOsdCfg(module, kOsdNode, &cfg->osd), "Osd");
    return kOk;
}

}  // namespace paramgen
