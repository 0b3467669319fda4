/// On-screen overlays of a work mode: what each of them shows, and on which displays.
///
/// Every loader takes the module to read, the node of the overlays, and the block to fill; it
/// returns 0, or the code of the first step that failed, having logged it. What was loaded before a
/// failure stays. A null record fails with -1. No value is checked for its range; counts are stored
/// as read, and loops stop at what the block has room for.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/common/values.h"

namespace paramgen {

inline constexpr std::uint32_t kOsdCountMax = 16;
inline constexpr std::uint32_t kOsdDisplayCountMax = 4;

/// One display that an overlay is shown on. 44 bytes.
struct OsdDisplayCfg {
    Bool32 show;
    std::int32_t bindModule;
    std::int32_t moduleHandle;
    std::int32_t channelHandle;
    std::uint32_t foregroundAlpha;
    std::uint32_t backgroundAlpha;
    std::byte reserved24[4];
    std::int32_t startX;
    std::int32_t startY;
    std::byte reserved36[4];
    std::uint32_t batch;
};
static_assert(sizeof(OsdDisplayCfg) == 44);
static_assert(offsetof(OsdDisplayCfg, startX) == 28);
static_assert(offsetof(OsdDisplayCfg, batch) == 40);

/// One overlay. 268 bytes.
struct OsdEntryCfg {
    std::uint32_t displayCount;  ///< as read, even when it is larger than `displays`
    std::int32_t type;           ///< 4 when a counted overlay has no such key
    std::int32_t timeFormat;
    std::uint32_t color;
    std::uint32_t backgroundColor;
    char text[64];
    std::uint32_t bitmapWidth;
    std::uint32_t bitmapHeight;
    OsdDisplayCfg displays[kOsdDisplayCountMax];
};
static_assert(sizeof(OsdEntryCfg) == 268);
static_assert(offsetof(OsdEntryCfg, text) == 20);
static_assert(offsetof(OsdEntryCfg, displays) == 92);

/// The overlays of a work mode. 4308 bytes.
struct OsdCfg {
    std::uint32_t count;  ///< as read, even when it is larger than `entries`
    std::uint32_t baseFontWidth;
    std::uint32_t baseFontHeight;
    std::uint32_t baseWidth;
    std::uint32_t baseHeight;
    OsdEntryCfg entries[kOsdCountMax];
};
static_assert(sizeof(OsdCfg) == 4308);
static_assert(offsetof(OsdCfg, entries) == 20);

extern const TableOf<OsdDisplayCfg> kOsdDisplayTable;
extern const TableOf<OsdEntryCfg> kOsdEntryTable;
extern const TableOf<OsdCfg> kOsdTable;

/// Loads the whole block.
[[nodiscard]] Status PDT_INIPARAM_LoadOsdCfg(const char* module, const char* node, OsdCfg* cfg);

/// Loads the count of overlays and that many overlays, without their displays.
[[nodiscard]] Status PDT_INIPARAM_LoadOsdContent(const char* module, const char* node, OsdCfg* cfg);

/// Loads the displays of each overlay, as many as it counts.
[[nodiscard]] Status PDT_INIPARAM_LoadOsdDispAttr(const char* module, const char* node,
                                                  OsdCfg* cfg);

}  // namespace paramgen
