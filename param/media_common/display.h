/// Display: the panel, its colour-space conversion, its video source and its playback window.
///
/// Every loader takes the module to read, the display's number or the record's node, and the record
/// to fill; it returns 0, or the code of the first step that failed, having logged it. What was
/// loaded before a failure stays. A null record fails with -1. No number is checked for its range.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/common/values.h"
#include "param/media_common/csc_matrix.h"
#include "param/media_common/video_mod.h"

namespace paramgen {

inline constexpr std::int32_t kDispSourceCount = 1;

/// Number of ordinary windows: none. The record has room for the playback window only.
inline constexpr std::int32_t kDispWndCount = 0;

/// Colour-space conversion. 20 bytes.
struct DispCscAttr {
    CscMatrix matrix;  ///< unchanged when the key is absent
    std::uint32_t luma;
    std::uint32_t contrast;
    std::uint32_t hue;
    std::uint32_t saturation;
};
static_assert(sizeof(DispCscAttr) == 20);

/// The area of its window that a video takes up. 24 bytes.
struct DispAspectAttr {
    std::int32_t mode;
    std::uint32_t bgColor;
    std::int32_t rectX;
    std::int32_t rectY;
    std::uint32_t rectWidth;
    std::uint32_t rectHeight;
};
static_assert(sizeof(DispAspectAttr) == 24);

/// The area of the display that a window takes up. 20 bytes.
struct DispWndAttr {
    std::int32_t rectX;
    std::int32_t rectY;
    std::uint32_t rectWidth;
    std::uint32_t rectHeight;
    std::uint32_t priority;
};
static_assert(sizeof(DispWndAttr) == 20);

/// A window. 60 bytes.
struct DispWndCfg {
    Bool32 enable;
    std::int32_t handle;
    std::int32_t previewCamId;
    std::int32_t rotate;
    DispAspectAttr aspect;
    DispWndAttr rect;
};
static_assert(sizeof(DispWndCfg) == 60);
static_assert(offsetof(DispWndCfg, aspect) == 16);
static_assert(offsetof(DispWndCfg, rect) == 40);

/// A display. 116 bytes.
struct DispCfg {
    Bool32 enable;
    std::int32_t handle;
    std::uint32_t bgColor;
    Bool32 enableCsc;
    DispCscAttr csc;
    std::byte reserved[4];
    VideoModCfg source[kDispSourceCount];
    std::uint32_t windowCount;
    DispWndCfg playbackWnd;
};
static_assert(sizeof(DispCfg) == 116);
static_assert(offsetof(DispCfg, csc) == 16);
static_assert(offsetof(DispCfg, reserved) == 36);
static_assert(offsetof(DispCfg, source) == 40);
static_assert(offsetof(DispCfg, windowCount) == 52);
static_assert(offsetof(DispCfg, playbackWnd) == 56);

extern const TableOf<DispCscAttr> kDispCscTable;
extern const TableOf<DispAspectAttr> kDispAspectTable;
extern const TableOf<DispWndAttr> kDispWndAttrTable;
extern const TableOf<DispWndCfg> kDispWndTable;
extern const TableOf<DispCfg> kDispTable;

/// Loads the colour-space conversion at the node `prefix`. Returns -1 for an unknown matrix.
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommDispCSCAttr(const char* module, const char* prefix,
                                                           DispCscAttr* attr);

/// Loads the area of a video at the node `prefix`.
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommDispAspectAttr(const char* module,
                                                              const char* prefix,
                                                              DispAspectAttr* attr);

/// Loads the area of a window at the node `prefix`.
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommDispWndAttr(const char* module, const char* prefix,
                                                           DispWndAttr* attr);

/// Loads the window at the node `prefix`.
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommDispWndCfg(const char* module, const char* prefix,
                                                          DispWndCfg* cfg);

/// Loads display `index`.
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommDispCfg(const char* module, std::int32_t index,
                                                       DispCfg* cfg);

}  // namespace paramgen
