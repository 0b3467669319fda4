#include "param/workmode/photo.h"

#include <iterator>

#include "param/common/propagate.h"

namespace paramgen {

/// Label of some texts that do not fit. It looks like a mistake, but readers of the log know it.
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
        .About("Shots in seconds")
        .Numbers(
            "0 3 in 1, 1 5 in 1, 2 10 in 1, 3 15 in 1, 4 30 in 1, 5 20 in 2, 6 30 in 2, 7 30 in 3"),
};

constexpr TableOf<PhotoSourceCfg> kPhotoSourceTable{nullptr, kPhotoSourceFields};
constexpr TableOf<PhotoBurstCfg> kPhotoBurstTable{nullptr, kPhotoBurstFields};

constexpr Field kPhotoTypeFields[] = {
    FIELD(PhotoTypeCfg, type, "type", 0).About("Kind of photo that the mode starts with"),
    FIELD(PhotoTypeCfg, singleOutputFormat, "outputformat", 0)
        .Under("phototype.%u.single")
        .About("Format of single photos"),
    FIELD(PhotoTypeCfg, lapseInterval, "interval_time", 0)
        .Under("phototype.%u.lapse")
        .About("Time between two photos")
        .Unit("s"),
    RECORD(PhotoTypeCfg, burst, kPhotoBurstTable).Under("phototype.%u.burst"),
};

constexpr TableOf<PhotoTypeCfg> kPhotoTypeTable{"phototype.%u", kPhotoTypeFields};

constexpr Field kPhotoFields[] = {
    RECORD(PhotoCfg, source, kPhotoSourceTable).Under("photosource.%u"),
    RECORD(PhotoCfg, type, kPhotoTypeTable),
};

constexpr TableOf<PhotoCfg> kPhotoTable{nullptr, kPhotoFields};

constexpr Field kPhotoWorkModeFields[] = {
    RECORD(PhotoWorkModeCfg, mediaMode, kCamMediaModeTable).Under("common.mediamode.config.%d"),
    RECORD(PhotoWorkModeCfg, photo, kPhotoTable),
    RECORD(PhotoWorkModeCfg, osd, kOsdTable).Under("osd"),
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
        FILL_OR_RETURN(node, "photosource sprintf_s", ROW(kPhotoTable, source), i);
        CALL_OR_RETURN(PDT_INIPARAM_LoadPhotoAttr(module, node.c_str(), &cfg->source[i]),
                       "PhotoSrc");
    }
    LOG_DEBUG("Photo type\n");
    for (std::uint32_t i = 0; i < std::size(cfg->type); ++i) {
        PhotoTypeCfg* type = &cfg->type[i];
        LOAD_AT_OR_RETURN(module, ROWS(kPhotoTypeTable, type, type), type, i);
        FILL_OR_RETURN(node, "singlephoto sprintf_s", ROW(kPhotoTypeTable, singleOutputFormat), i);
        LOAD_OR_RETURN(module, node, ROW(kPhotoTypeTable, singleOutputFormat), type);
        FILL_OR_RETURN(node, "lapsephoto sprintf_s", ROW(kPhotoTypeTable, lapseInterval), i);
        LOAD_OR_RETURN(module, node, ROW(kPhotoTypeTable, lapseInterval), type);
        FILL_OR_RETURN(node, "burstphoto sprintf_s", ROW(kPhotoTypeTable, burst), i);
        CALL_OR_RETURN(PDT_INIPARAM_LoadPhotoBurstAttr(module, node.c_str(), &type->burst),
                       "LoadPhotoBurstAttr");
        // No line break: the next record continues the line.
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
        FILL_OR_RETURN(node, kNotFormatted, ROW(kPhotoWorkModeTable, mediaMode), i);
        CALL_OR_RETURN(PDT_INIPARAM_LoadCamMediaModeCfg(module, node.c_str(), &cfg->mediaMode[i]),
                       node.c_str());
    }
    CALL_OR_RETURN(PDT_INIPARAM_LoadPhotoCfg(module, &cfg->photo), "Photo cfg");
    LOG_DEBUG("Photo Osd\n");
    Key osdNode;
    FILL_OR_RETURN(osdNode, kNotFormatted, ROW(kPhotoWorkModeTable, osd));
    CALL_OR_RETURN(PDT_INIPARAM_LoadOsdCfg(module, osdNode.c_str(), &cfg->osd), "Osd");
    return kOk;
}

}  // namespace paramgen
