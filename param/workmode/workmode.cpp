#include "param/workmode/workmode.h"

#include <span>

#include "param/common/propagate.h"

namespace paramgen {

constexpr Field kCommWorkModeFields[] = {
    QUERY(CommWorkModeCfg, powerOnMode, "poweron_workmode", 0)
        .At("common")
        .About("Work mode at power-on")
        .Numbers("0 normal record, 1 photo"),
    RESERVED(CommWorkModeCfg, reserved).About("Reserved"),
};

constexpr TableOf<CommWorkModeCfg> kCommWorkModeTable{nullptr, kCommWorkModeFields};

constexpr Field kWorkModeFields[] = {
    RECORD(WorkModeCfg, comm, kCommWorkModeTable).From("workmode_common"),
    RECORD(WorkModeCfg, photo, kPhotoWorkModeTable).From("workmode_photo"),
    RECORD(WorkModeCfg, record, kRecWorkModeTable),
};

namespace {

/// The bytes from the first thumbnail handle to the end of `section`.
std::span<std::byte> ThumbnailHandles(WorkModeCfg* section) {
    constexpr std::size_t kFirst = offsetof(WorkModeCfg, record) +
                                   offsetof(RecWorkModeCfg, normal) +
                                   offsetof(RecAttrCfg, thumbnailHandles);
    return std::as_writable_bytes(std::span(section, 1)).subspan(kFirst);
}

}  // namespace

constexpr TableOf<WorkModeCfg> kWorkModeTable{nullptr, kWorkModeFields};

Status PDT_INIPARAM_LoadCommWorkModeCfg(const char* module, CommWorkModeCfg* cfg) {
    LOAD_OR_RETURN(module, nullptr, kCommWorkModeTable, cfg);
    LOG_DEBUG("poweron_workmode[%d; 0:normal record, 1:photo]\n", cfg->powerOnMode);
    return kOk;
}

Status PDT_INIPARAM_LoadWorkModeConf(WorkModeCfg* section) {
    REQUIRE_RECORD_OR_RETURN(section);
    LOG_DEBUG("WorkMode Common Configure:\n");
    CALL_OR_RETURN(
        PDT_INIPARAM_LoadCommWorkModeCfg(ROW(kWorkModeTable, comm).module, &section->comm),
        "Common");
    LOG_DEBUG("\n\n");
    LOG_DEBUG("WorkMode Photo Media Configure:\n");
    CALL_OR_RETURN(
        PDT_INIPARAM_LoadPhotoWorkModeCfg(ROW(kWorkModeTable, photo).module, &section->photo),
        "PhotoMedia");
    LOG_DEBUG("\n\n");
    LOG_DEBUG("rec Configure:\n");
    // The label says PLAYBACK, although these are the record settings: readers of the log know it.
    CALL_OR_RETURN(PDT_INIPARAM_LoadRecWorkModeConf(&section->record, ThumbnailHandles(section)),
                   "PLAYBACK");
    LOG_DEBUG("\n\n");
    return kOk;
}

}  // namespace paramgen
