#include "param/workmode/record.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "confaccess/confaccess.h"
#include "confaccess/watch.h"
#include "param/common/propagate.h"
#include "param/common/readers.h"

namespace paramgen {

constexpr Field kRecCommFields[] = {
    CONSTANT(RecCommCfg, muxerType, 0)
        .About("Format of the files; always 0")
        .Numbers("0 mp4, 1 mov, 2 ts"),
    QUERY(RecCommCfg, thumbnailType, "thm_type", 0)
        .At("record.common")
        .About("Where the thumbnail is")
        .Numbers("0 independent, 1 embedded, 2 none"),
    QUERY(RecCommCfg, repairUnit, "repaire_unit", 0)
        .At("record.common")
        .About("Data after which repair information is written")
        .Unit("KB"),
    QUERY(RecCommCfg, preAllocUnit, "pre_alloc_unit", 0)
        .At("record.common")
        .About("Step by which an open file grows")
        .Unit("MB"),
};

constexpr Field kRecFileFields[] = {
    FIELD(RecFileCfg, videoEncoderCount, "venccnt", 0)
        .About("Number of video encoders of the file, as read"),
    QUERY(RecFileCfg, videoEncoders, "venc_hdl%u", 0)
        .CountedBy(offsetof(RecFileCfg, videoEncoderCount), CountBeyond::kClamped)
        .About("Handle of a video encoder"),
    QUERY(RecFileCfg, recordBufferTimes, "recbuffer_time%u", 0)
        .CountedBy(offsetof(RecFileCfg, videoEncoderCount), CountBeyond::kClamped)
        .About("Time that is kept in memory of its stream")
        .Unit("ms"),
    FIELD(RecFileCfg, audioEncoderCount, "aenccnt", 0)
        .About("Number of audio encoders of the file, as read"),
    QUERY(RecFileCfg, audioEncoders, "aenc_hdl%u", 0)
        .CountedBy(offsetof(RecFileCfg, audioEncoderCount), CountBeyond::kClamped)
        .About("Handle of the audio encoder"),
    FIELD(RecFileCfg, thumbnailEncoder, "thumbnail_hdl", 0)
        .About("Handle of the encoder of the thumbnail"),
    RESERVED(RecFileCfg, reserved8).About("Reserved"),
    RESERVED(RecFileCfg, audioEncoder1).About("Room for a second audio encoder, never used"),
};

constexpr TableOf<RecCommCfg> kRecCommTable{nullptr, kRecCommFields};
constexpr TableOf<RecFileCfg> kRecFileTable{"%s.filenum.%u.fileattr", kRecFileFields};

constexpr Field kRecAttrFields[] = {
    FIELD(RecAttrCfg, enable, "enable", 0).About("Recording is on"),
    FIELD(RecAttrCfg, splitType, "split_type", 0).About("When a new file begins"),
    FIELD(RecAttrCfg, splitTime, "split_time", 0).About("Length of a file").Unit("s"),
    FIELD(RecAttrCfg, preRecordTime, "prerec_time", 0)
        .About("Time that is kept from before the start")
        .Unit("ms"),
    FIELD(RecAttrCfg, playFrameRate, "playfps", 0)
        .About("Frame rate of time lapse files")
        .Unit("fps"),
    FIELD(RecAttrCfg, recordType, "record_type", 0).About("Type of the recording"),
    FIELD(RecAttrCfg, lapseInterval, "lapse_interval", 0)
        .About("Time between two frames of a time lapse")
        .Unit("ms"),
    FIELD(RecAttrCfg, slowPlayFrameRate, "slowrec_playfps", 0)
        .About("Frame rate of slow motion files")
        .Unit("fps"),
    FIELD(RecAttrCfg, fileCount, "filecnt", 0)
        .About("Number of files that are written side by side, as read"),
    FIELD(RecAttrCfg, thumbnailCount, "thmcnt", 0).About("Number of thumbnail encoders, as read"),
    LOADED(RecAttrCfg, thumbnailHandles, "thmhdl%u", 0)
        .CountedBy(offsetof(RecAttrCfg, thumbnailCount), CountBeyond::kSpilling)
        .About("Handle of a thumbnail encoder"),
    RECORD(RecAttrCfg, files, kRecFileTable)
        .CountedBy(offsetof(RecAttrCfg, fileCount), CountBeyond::kClamped),
    QUERY(RecAttrCfg, receiveBufferSizes, "recvbuf_size", 0)
        .Under("%s.filenum.%u.fileattr")
        .CountedBy(offsetof(RecAttrCfg, fileCount), CountBeyond::kClamped)
        .About("Size of the buffer between the encoders and the file")
        .Unit("KB"),
    RESERVED(RecAttrCfg, reserved4).About("Reserved"),
    RESERVED(RecAttrCfg, reserved16).About("Reserved"),
    RESERVED(RecAttrCfg, reserved156).About("Reserved"),
};

constexpr TableOf<RecAttrCfg> kRecAttrTable{nullptr, kRecAttrFields};

constexpr Field kRecWorkModeFields[] = {
    RECORD(RecWorkModeCfg, mediaMode, kCamMediaModeTable).Under("common.mediamode.config.%d"),
    RECORD(RecWorkModeCfg, osd, kOsdTable).Under("osd"),
    RECORD(RecWorkModeCfg, comm, kRecCommTable),
    RECORD(RecWorkModeCfg, photoSource, kPhotoSourceTable).Under("photosource.%u"),
    RECORD(RecWorkModeCfg, normal, kRecAttrTable).Under("normal.%d"),
    RESERVED(RecWorkModeCfg, reserved4332).About("Reserved"),
    RESERVED(RecWorkModeCfg, reserved4364).About("Reserved"),
};

namespace {

/// Stores `handle` at `index` in the array of handles that begins at the start of `handles`.
void StoreHandle(std::span<std::byte> handles, std::uint32_t index, std::int32_t handle) {
    const std::span<std::byte> dest =
        handles.subspan(std::size_t{index} * sizeof handle, sizeof handle);
    std::memcpy(dest.data(), &handle, dest.size());
}

}  // namespace

constexpr ModuleTableOf<RecWorkModeCfg> kRecWorkModeTable{"workmode_record", kRecWorkModeFields};

Status PDT_INIPARAM_LoadRecFileAttr(const char* module, const char* node, RecFileCfg* cfg) {
    LOAD_OR_RETURN(module, node, ROW(kRecFileTable, videoEncoderCount), cfg);
    LOG_DEBUG("%s venccnt[%d] \n", node, cfg->videoEncoderCount);
    for (std::uint32_t i = 0; i < std::min(cfg->videoEncoderCount, kRecVencCountMax); ++i) {
        LOAD_ELEMENT_OR_RETURN(module, node, ROW(kRecFileTable, videoEncoders), i, cfg);
        LOG_DEBUG("venc_hdl%u[%u] \n", i, cfg->videoEncoders[i]);
        LOAD_ELEMENT_OR_RETURN(module, node, ROW(kRecFileTable, recordBufferTimes), i, cfg);
        LOG_DEBUG("recbuffer_time%u[%u] \n", i, cfg->recordBufferTimes[i]);
    }
    LOAD_OR_RETURN(module, node, ROW(kRecFileTable, audioEncoderCount), cfg);
    LOG_DEBUG("%s aenccnt[%u] \n", node, cfg->audioEncoderCount);
    // At most one audio encoder is read, even when the count is larger.
    if (cfg->audioEncoderCount >= 1) {
        LOAD_ELEMENT_OR_RETURN(module, node, ROW(kRecFileTable, audioEncoders), 0, cfg);
        LOG_DEBUG("aenc_hdl%u[%u] \n", 0U, cfg->audioEncoders[0]);
    }
    LOAD_OR_RETURN(module, node, ROW(kRecFileTable, thumbnailEncoder), cfg);
    LOG_DEBUG("%s thumbnail_hdl[%u] \n", node, cfg->thumbnailEncoder);
    return kOk;
}

Status PDT_INIPARAM_LoadRecFilesAttr(const char* module, const char* node, RecAttrCfg* cfg,
                                     std::span<std::byte> thumbnails) {
    Key key;
    LOAD_OR_RETURN(module, node, ROWS(kRecAttrTable, fileCount, thumbnailCount), cfg);
    FORMAT_KEY_OR_RETURN(key, node, ROW(kRecAttrTable, thumbnailCount), 0);
    REQUIRE_COUNT_OR_RETURN(key.c_str(), cfg->thumbnailCount,
                            thumbnails.size() / sizeof(std::int32_t));
    LOG_DEBUG("normal record attr filecnt[%d],thmcnt[%d] \n", cfg->fileCount, cfg->thumbnailCount);
    for (std::uint32_t i = 0; i < cfg->thumbnailCount; ++i) {
        constexpr const Field& row = ROW(kRecAttrTable, thumbnailHandles);
        FORMAT_KEY_OR_RETURN(key, node, row, i);
        std::int32_t handle = 0;
        WATCH_DESTINATION(thumbnails.data() + i * sizeof handle, sizeof handle);
        CALL_OR_RETURN(
            ZV_CONFACCESS_GetInt(kProductConfig, module, key.c_str(), row.Number(), &handle),
            key.c_str());
        StoreHandle(thumbnails, i, handle);
        LOG_DEBUG("thmhdl%u[%u] \n", i, handle);
    }
    for (std::uint32_t k = 0; k < std::min(cfg->fileCount, kRecFileCountMax); ++k) {
        Key fileNode;
        FILL_OR_RETURN(fileNode, "sprintf_s", ROWS(kRecAttrTable, files, receiveBufferSizes), node,
                       k);
        CALL_OR_RETURN(PDT_INIPARAM_LoadRecFileAttr(module, fileNode.c_str(), &cfg->files[k]),
                       "fileattr");
        LOAD_ELEMENT_OR_RETURN(module, fileNode, ROW(kRecAttrTable, receiveBufferSizes), k, cfg);
        LOG_DEBUG("recvbuf_size%u[%d] \n", k, cfg->receiveBufferSizes[k]);
    }
    return kOk;
}

Status PDT_INIPARAM_LoadRecAttr(const char* module, const char* node, RecAttrCfg* cfg,
                                std::span<std::byte> thumbnails) {
    LOG_DEBUG("record attr :\n");
    LOAD_OR_RETURN(module, node, ROWS(kRecAttrTable, enable, slowPlayFrameRate), cfg);
    LOG_DEBUG("normal record attr  enable[%d],split_type[%d],split_time[%d] ", cfg->enable,
              cfg->splitType, cfg->splitTime);
    // Both counts are read later: this record shows what was there before.
    LOG_DEBUG("prerec_time[%dms],filecnt[%d],thmcnt[%d] ", cfg->preRecordTime, cfg->fileCount,
              cfg->thumbnailCount);
    LOG_DEBUG("playfps[%d], slowrec_playfps[%d]\n", cfg->playFrameRate, cfg->slowPlayFrameRate);
    CALL_OR_RETURN(PDT_INIPARAM_LoadRecFilesAttr(module, node, cfg, thumbnails), "RecFilesAttr");
    return kOk;
}

Status PDT_INIPARAM_LoadRecMediaCfg(const char* module, RecWorkModeCfg* cfg) {
    REQUIRE_RECORD_OR_RETURN(cfg);
    LOG_DEBUG("Record mediamode Configure:\n");
    for (std::int32_t i = 0; i < std::ssize(cfg->mediaMode); ++i) {
        Key node;
        FILL_OR_RETURN(node, "sprintf_s", ROW(kRecWorkModeTable, mediaMode), i);
        CALL_OR_RETURN(PDT_INIPARAM_LoadCamMediaModeCfg(module, node.c_str(), &cfg->mediaMode[i]),
                       node.c_str());
    }
    LOG_DEBUG("Rec Osd\n");
    CALL_OR_RETURN(PDT_INIPARAM_LoadOsdCfg(module, ROW(kRecWorkModeTable, osd).node, &cfg->osd),
                   "Osd");
    return kOk;
}

Status PDT_INIPARAM_LoadRecCommCfg(const char* module, RecCommCfg* cfg) {
    LOAD_OR_RETURN(module, nullptr, kRecCommTable, cfg);
    LOG_DEBUG("record comm  muxer_type[%d,0-mp4,1-mov,2-ts ] ", cfg->muxerType);
    LOG_DEBUG(
        "thm_type[%d, 0-INDEPENDENCE,1-EMBEDDED,2-NONE],repaire_unit[%u],"
        "pre_alloc_unit[%u]\n",
        cfg->thumbnailType, cfg->repairUnit, cfg->preAllocUnit);
    return kOk;
}

Status PDT_INIPARAM_LoadRecWorkModeConf(RecWorkModeCfg* cfg, std::span<std::byte> thumbnails) {
    const char* module = kRecWorkModeTable.module;
    REQUIRE_RECORD_OR_RETURN(cfg);
    LOG_DEBUG("WorkMode Record Media Configure:\n");
    CALL_OR_RETURN(PDT_INIPARAM_LoadRecMediaCfg(module, cfg), "RecMedia");
    LOG_DEBUG("\n\n");
    CALL_OR_RETURN(PDT_INIPARAM_LoadRecCommCfg(module, &cfg->comm), "RecComm");
    LOG_DEBUG("\n\n");
    for (std::size_t i = 0; i < std::size(cfg->normal); ++i) {
        Key node;
        FILL_OR_RETURN(node, "sprintf_s", ROW(kRecWorkModeTable, photoSource), i);
        CALL_OR_RETURN(PDT_INIPARAM_LoadPhotoAttr(module, node.c_str(), &cfg->photoSource[i]),
                       "PhotoSrc");
        FILL_OR_RETURN(node, "sprintf_s", ROW(kRecWorkModeTable, normal), i);
        CALL_OR_RETURN(PDT_INIPARAM_LoadRecAttr(module, node.c_str(), &cfg->normal[i],
                                                thumbnails.subspan(i * sizeof(RecAttrCfg))),
                       "Normal record");
    }
    LOG_DEBUG("\n\n");
    return kOk;
}

}  // namespace paramgen
