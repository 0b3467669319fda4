/// Encoder settings of a media-mode common block: the encoders that are configured, each with the
/// source that it is bound to and its intra refresh.
///
/// Every loader takes the module to read, the number of the encoder, and the record to fill; it
/// returns 0 or the code of its first failing step, having logged it. What was loaded before a
/// failure stays.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/common/values.h"

namespace paramgen {

inline constexpr std::int32_t kVencCount = 5;
inline constexpr std::uint32_t kVencBindCount = 4;

/// What an encoder is bound to. Bindings at and beyond the count stay as they are. 40 bytes.
struct VencBindSrcAttr {
    std::int32_t module;
    std::uint32_t count;  ///< of bindings, as configured; 4 at most are read
    std::int32_t moduleHandles[kVencBindCount];
    std::int32_t chnHandles[kVencBindCount];
};
static_assert(sizeof(VencBindSrcAttr) == 40);
static_assert(offsetof(VencBindSrcAttr, chnHandles) == 24);

/// Intra refresh of an encoder. 16 bytes.
struct VencIntraRefreshCfg {
    Bool32 enable;
    std::int32_t mode;
    std::uint32_t refreshNum;
    std::uint32_t reqIQp;
};
static_assert(sizeof(VencIntraRefreshCfg) == 16);

/// One encoder. 80 bytes.
struct VencCommAttr {
    Bool32 enable;
    std::int32_t handle;
    Bool32 isByFrame;
    VencBindSrcAttr bindSrc;
    std::int32_t payload;
    std::int32_t rcMode;
    std::int32_t type;
    VencIntraRefreshCfg intraRefresh;
};
static_assert(sizeof(VencCommAttr) == 80);
static_assert(offsetof(VencCommAttr, bindSrc) == 12);
static_assert(offsetof(VencCommAttr, payload) == 52);
static_assert(offsetof(VencCommAttr, intraRefresh) == 64);

/// The encoders. 404 bytes.
struct CamVencCommCfg {
    std::uint32_t count;
    VencCommAttr vencs[kVencCount];
};
static_assert(sizeof(CamVencCommCfg) == 404);
static_assert(offsetof(CamVencCommCfg, vencs) == 4);

extern const TableOf<VencBindSrcAttr> kVencBindSrcTable;
extern const TableOf<VencIntraRefreshCfg> kVencIntraRefreshTable;
extern const TableOf<VencCommAttr> kVencCommAttrTable;
extern const TableOf<CamVencCommCfg> kCamVencCommTable;

[[nodiscard]] Status PDT_PARAM_LoadCamVencBindSrcAttr(const char* module, std::int32_t venc,
                                                      VencBindSrcAttr* cfg);
[[nodiscard]] Status PDT_INIPARAM_LoadVencChnIntraFreshCfg(const char* module, std::int32_t venc,
                                                           VencIntraRefreshCfg* cfg);

/// One encoder; `isExist` tells whether it has an "enable" key (1) or not (0). It is loaded either
/// way.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVencCommAttr(const char* module, std::int32_t venc,
                                                      VencCommAttr* cfg, std::int32_t* isExist);

/// The encoders up to and including the first one without an "enable" key, and the count, which
/// leaves that one out.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVencCommCfg(const char* module, CamVencCommCfg* cfg);

}  // namespace paramgen
