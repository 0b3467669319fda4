#include "param/camera/vb_spec.h"

#include "param/common/key.h"
#include "param/common/propagate.h"

namespace paramgen {

constexpr Field kVBPoolFields[] = {
    QUERY(VBPoolCfg, blkSize, "blk_size", 0).About("Size of each block").Unit("bytes"),
    QUERY(VBPoolCfg, blkCount, "blk_count", 0).About("Number of blocks"),
    RESERVED(VBPoolCfg, reserved).About("Reserved"),
};

constexpr TableOf<VBPoolCfg> kVBPoolTable{"%s.pool.%u", kVBPoolFields};

constexpr Field kVBSpecFields[] = {
    FIELD(VBSpecCfg, maxPoolCnt, "max_poolcnt", 0)
        .FullLabel()
        .About("Number of video buffer pools"),
    RESERVED(VBSpecCfg, reserved).About("Reserved"),
    RECORD(VBSpecCfg, pools, kVBPoolTable)
        .CountedBy(offsetof(VBSpecCfg, maxPoolCnt), CountBeyond::kRefused),
};

constexpr TableOf<VBSpecCfg> kVBSpecTable{"vb", kVBSpecFields};

Status PDT_INIPARAM_LoadCamVBSpecCfg(const char* module, VBSpecCfg* cfg) {
    LOAD_OR_RETURN(module, kVBSpecTable.node, ROW(kVBSpecTable, maxPoolCnt), cfg);
    if (cfg->maxPoolCnt > kVBPoolCount) {
        LOG_ERROR("Invalid VB MaxPoolCnt[%u beyond %u]\n", cfg->maxPoolCnt, kVBPoolCount);
        return kFailed;
    }
    for (std::uint32_t i = 0; i < cfg->maxPoolCnt; ++i) {
        VBPoolCfg& pool = cfg->pools[i];
        Key node;
        FILL_OR_RETURN(node, "sprintf_s", kVBPoolTable, kVBSpecTable.node, i);
        LOAD_OR_RETURN(module, node, kVBPoolTable, &pool);
        LOG_DEBUG("Pool[%u] BlkSize[%lluBytes] Count[%u]\n", i,
                  static_cast<unsigned long long>(pool.blkSize), pool.blkCount);
    }
    return kOk;
}

}  // namespace paramgen
