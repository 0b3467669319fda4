/// Encoder settings of a media-mode common block: each configured encoder with its bindings and its
/// intra refresh.
///
/// Every loader takes the module to read, the number of the encoder, and the record to fill; it
/// returns 0, or the code of the first step that failed, having logged it. What was loaded before a
/// failure stays. A null record fails with -1.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/common/values.h"

namespace paramgen {

inline constexpr std::int32_t kVencCount = 5;
inline constexpr std::uint32_t kVencBindCount = 4;

/// The sources that an encoder is bound to. Handles beyond the count stay unchanged. 40 bytes.
struct VencBindSrcAttr {
    std::int32_t module;
    std::uint32_t count;  ///< of bindings, as configured; at most 4 are read
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

/// Loads the bindings of encoder `venc`.
[[nodiscard]] Status PDT_PARAM_LoadCamVencBindSrcAttr(const char* module, std::int32_t venc,
                                                      VencBindSrcAttr* cfg);

/// Loads the intra refresh of encoder `venc`.
[[nodiscard]] Status PDT_INIPARAM_LoadVencChnIntraFreshCfg(const char* module, std::int32_t venc,
                                                           VencIntraRefreshCfg* cfg);

/// Loads encoder `venc`, and stores in `isExist` whether it has an "enable" key (1) or not (0). The
/// encoder is loaded in both cases.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVencCommAttr(const char* module, std::int32_t venc,
                                                      VencCommAttr* cfg, std::int32_t* isExist);

/// Loads the encoders up to and including the first one without an "enable" key. The count does not
/// include that one.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVencCommCfg(const char* module, CamVencCommCfg* cfg);

}  // namespace paramgen
