#include "param/media_common/media_common.h"

#include "param/common/propagate.h"

namespace paramgen {

constexpr Field kVencCommFields[] = {
    RECORD(VencCommCfg, mainVideo, kVideoEncTable).Under("main"),
    RECORD(VencCommCfg, subVideo, kVideoEncTable).Under("sub"),
    RECORD(VencCommCfg, singleSnap, kSnapEncTable).Under("single"),
    RECORD(VencCommCfg, subSnap, kSnapEncTable).Under("sub"),
    RECORD(VencCommCfg, hierarchicalQp, kHierarchicalQpTable),
};

constexpr TableOf<VencCommCfg> kVencCommTable{nullptr, kVencCommFields};

constexpr Field kMediaCommFields[] = {
    RECORD(MediaCommCfg, venc, kVencCommTable),
    RECORD(MediaCommCfg, liveSource, kVideoModTable).Under("venc.live.src.%d"),
    RECORD(MediaCommCfg, disp, kDispTable),
    RECORD(MediaCommCfg, acap, kAcapTable),
    RECORD(MediaCommCfg, aenc, kAencTable),
    RECORD(MediaCommCfg, ao, kAoTable),
};

constexpr ModuleTableOf<MediaCommCfg> kMediaCommTable{"media_common", kMediaCommFields};

Status PDT_INIPARAM_LoadMediaCommVencCommConf(const char* module, VencCommCfg* cfg) {
    REQUIRE_RECORD_OR_RETURN(cfg);
    CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommVideoEncAttr(
                       module, ROW(kVencCommTable, mainVideo).node, &cfg->mainVideo),
                   "MainVideoEnc");
    CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommVideoEncAttr(
                       module, ROW(kVencCommTable, subVideo).node, &cfg->subVideo),
                   "SubVideoEnc");
    CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommSnapEncAttr(
                       module, ROW(kVencCommTable, singleSnap).node, &cfg->singleSnap),
                   "SingSnapAttr");
    CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommSnapEncAttr(module, ROW(kVencCommTable, subSnap).node,
                                                         &cfg->subSnap),
                   "SubSnapAttr");
    CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommVencHierarchicalQp(module, &cfg->hierarchicalQp),
                   "HierarchicalQp");
    return kOk;
}

Status PDT_INIPARAM_LoadMediaCommConf(MediaCommCfg* section) {
    const char* module = kMediaCommTable.module;
    REQUIRE_RECORD_OR_RETURN(section);
    CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommVencCommConf(module, &section->venc),
                   "LoadMediaCommVencCommConf");
    for (std::int32_t i = 0; i < kLiveSourceCount; ++i) {
        Key node;
        FILL_OR_RETURN(node, "sprintf_s", ROW(kMediaCommTable, liveSource), i);
        CALL_OR_RETURN(PDT_INIPARAM_LoadVideoModCfg(module, node.c_str(), &section->liveSource[i]),
                       node.c_str());
    }
    for (std::int32_t i = 0; i < kDispCount; ++i) {
        CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommDispCfg(module, i, &section->disp[i]), "Vdisp");
    }
    for (std::int32_t i = 0; i < kAcapCount; ++i) {
        CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommAcapCfg(module, i, &section->acap[i]), "Acap");
    }
    for (std::int32_t i = 0; i < kAencCount; ++i) {
        CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommAencCfg(module, i, &section->aenc[i]), "Aenc");
    }
    for (std::int32_t i = 0; i < kAoCount; ++i) {
        CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommAoCfg(module, i, &section->ao[i]), "Ao");
    }
    return kOk;
}

}  // namespace paramgen
