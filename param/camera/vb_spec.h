/// The video buffer pools of one media mode.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"

namespace paramgen {

inline constexpr std::uint32_t kVBPoolCount = 8;

/// One pool. 16 bytes.
struct VBPoolCfg {
    std::uint64_t blkSize;  ///< of a block, in bytes; sign-extended from 32 bits
    std::uint32_t blkCount;
    std::byte reserved[4];
};
static_assert(sizeof(VBPoolCfg) == 16);

/// All pools. 136 bytes.
struct VBSpecCfg {
    std::uint32_t maxPoolCnt;
    std::byte reserved[4];
    VBPoolCfg pools[kVBPoolCount];
};
static_assert(sizeof(VBSpecCfg) == 136);
static_assert(offsetof(VBSpecCfg, pools) == 8);

extern const TableOf<VBPoolCfg> kVBPoolTable;
extern const TableOf<VBSpecCfg> kVBSpecTable;

/// Loads the pool count and that many pools from `module`; the other pools stay unchanged. Returns
/// 0, or the code of the first step that failed, having logged it; -1 when `cfg` is null, and for
/// more than 8 pools, after storing the count.
[[nodiscard]] Status PDT_INIPARAM_LoadCamVBSpecCfg(const char* module, VBSpecCfg* cfg);

}  // namespace paramgen
