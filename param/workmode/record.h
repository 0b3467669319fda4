/// Record work mode: files, thumbnails, splitting, pre-recording and lapse settings.
///
/// Every loader takes the module to read, the node where it does not have one of its own, and the
/// record to fill; it returns 0, or the code of the first step that failed, having logged it. What
/// was loaded before a failure stays. A null record fails with -1. No value is checked for its
/// range.
///
/// There may be more thumbnail handles than the record has room for. The others are stored in the
/// bytes behind the record, up to the end of the work mode section. A count that is too large for
/// the section fails with -1 before the first handle is read. `thumbnails` are the bytes from the
/// first handle to the section's end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "confaccess/status.h"
#include "param/camera/cam_media_mode.h"
#include "param/common/field.h"
#include "param/common/values.h"
#include "param/workmode/osd.h"
#include "param/workmode/photo.h"

namespace paramgen {

inline constexpr std::uint32_t kRecFileCountMax = 2;
inline constexpr std::uint32_t kRecVencCountMax = 2;

/// Settings of every recorded file. 16 bytes.
struct RecCommCfg {
    std::int32_t muxerType;
    std::int32_t thumbnailType;
    std::uint32_t repairUnit;
    std::uint32_t preAllocUnit;
};
static_assert(sizeof(RecCommCfg) == 16);

/// What is written into one file, by handles. 40 bytes.
struct RecFileCfg {
    std::uint32_t videoEncoderCount;  ///< as read, even when it is larger than `videoEncoders`
    std::uint32_t audioEncoderCount;  ///< as read, even when above 1
    std::byte reserved8[4];
    std::int32_t videoEncoders[kRecVencCountMax];
    std::int32_t recordBufferTimes[kRecVencCountMax];
    std::int32_t audioEncoders[1];
    std::byte audioEncoder1[4];
    std::int32_t thumbnailEncoder;
};
static_assert(sizeof(RecFileCfg) == 40);
static_assert(offsetof(RecFileCfg, videoEncoders) == 12);
static_assert(offsetof(RecFileCfg, audioEncoders) == 28);

/// Settings of normal recording. 160 bytes.
struct RecAttrCfg {
    Bool32 enable;
    std::byte reserved4[4];
    std::int32_t splitType;
    std::uint32_t splitTime;
    std::byte reserved16[8];
    std::uint32_t preRecordTime;
    std::uint32_t fileCount;  ///< as read, even when it is larger than `files`
    RecFileCfg files[kRecFileCountMax];
    std::uint32_t thumbnailCount;      ///< as read, even when it is larger than the array below
    std::int32_t thumbnailHandles[4];  ///< further handles overwrite the bytes that follow
    std::int32_t receiveBufferSizes[kRecFileCountMax];
    std::int32_t playFrameRate;
    std::int32_t recordType;
    std::uint32_t lapseInterval;
    std::int32_t slowPlayFrameRate;
    std::byte reserved156[4];
};
static_assert(sizeof(RecAttrCfg) == 160);
static_assert(offsetof(RecAttrCfg, preRecordTime) == 24);
static_assert(offsetof(RecAttrCfg, files) == 32);
static_assert(offsetof(RecAttrCfg, thumbnailCount) == 112);
static_assert(offsetof(RecAttrCfg, thumbnailHandles) == 116);
static_assert(offsetof(RecAttrCfg, slowPlayFrameRate) == 152);

/// The work mode. 4528 bytes.
struct RecWorkModeCfg {
    OsdCfg osd;
    CamMediaModeCfg mediaMode[1];
    RecCommCfg comm;
    std::byte reserved4332[4];
    PhotoSourceCfg photoSource[1];
    std::byte reserved4364[4];
    RecAttrCfg normal[1];
};
static_assert(sizeof(RecWorkModeCfg) == 4528);
static_assert(offsetof(RecWorkModeCfg, mediaMode) == 4308);
static_assert(offsetof(RecWorkModeCfg, comm) == 4316);
static_assert(offsetof(RecWorkModeCfg, photoSource) == 4336);
static_assert(offsetof(RecWorkModeCfg, normal) == 4368);

extern const TableOf<RecCommCfg> kRecCommTable;
extern const TableOf<RecFileCfg> kRecFileTable;
extern const TableOf<RecAttrCfg> kRecAttrTable;
extern const ModuleTableOf<RecWorkModeCfg> kRecWorkModeTable;

/// Loads the media modes and the overlays of `cfg`.
[[nodiscard]] Status PDT_INIPARAM_LoadRecMediaCfg(const char* module, RecWorkModeCfg* cfg);

/// Loads the settings of every recorded file.
[[nodiscard]] Status PDT_INIPARAM_LoadRecCommCfg(const char* module, RecCommCfg* cfg);

/// Loads the file at `node`.
[[nodiscard]] Status PDT_INIPARAM_LoadRecFileAttr(const char* module, const char* node,
                                                  RecFileCfg* cfg);

/// Loads the files and the thumbnail handles of `cfg`.
[[nodiscard]] Status PDT_INIPARAM_LoadRecFilesAttr(const char* module, const char* node,
                                                   RecAttrCfg* cfg,
                                                   std::span<std::byte> thumbnails);

/// Loads all settings of normal recording at `node`.
[[nodiscard]] Status PDT_INIPARAM_LoadRecAttr(const char* module, const char* node, RecAttrCfg* cfg,
                                              std::span<std::byte> thumbnails);

/// Loads the whole work mode from its module. Returns -1 when `cfg` is null.
[[nodiscard]] Status PDT_INIPARAM_LoadRecWorkModeConf(RecWorkModeCfg* cfg,
                                                      std::span<std::byte> thumbnails);

}  // namespace paramgen
