#include "param/camera/venc_comm.h"

#include "confaccess/confaccess.h"
#include "param/common/key.h"
#include "param/common/propagate.h"
#include "param/common/readers.h"

namespace paramgen {

constexpr Field kVencBindSrcFields[] = {
    FIELD(VencBindSrcAttr, module, "bindedmod", 0)
        .About("Number of the firmware module that the encoder is bound to"),
    FIELD(VencBindSrcAttr, count, "bindcnt", 0)
        .About("Number of sources that the encoder is bound to"),
    FIELD(VencBindSrcAttr, moduleHandles, "modhdl_%u", 0)
        .CountedBy(offsetof(VencBindSrcAttr, count), CountBeyond::kClamped)
        .About("Handle of the group of a source"),
    FIELD(VencBindSrcAttr, chnHandles, "chnhdl_%u", 0)
        .CountedBy(offsetof(VencBindSrcAttr, count), CountBeyond::kClamped)
        .About("Handle of the port of a source"),
};

constexpr Field kVencIntraRefreshFields[] = {
    FIELD(VencIntraRefreshCfg, enable, "refreshEnable", 0).About("Intra refresh is on"),
    FIELD(VencIntraRefreshCfg, mode, "intraRefreshMode", 0)
        .About("What is coded afresh")
        .Numbers("0 rows, 1 columns"),
    FIELD(VencIntraRefreshCfg, refreshNum, "refreshNum", 0)
        .About("Number of rows or columns that are coded afresh in each frame"),
    FIELD(VencIntraRefreshCfg, reqIQp, "reqIQp", 0)
        .About("Quantisation parameter of a requested I frame"),
};

constexpr TableOf<VencBindSrcAttr> kVencBindSrcTable{"venc.%d", kVencBindSrcFields};
constexpr TableOf<VencIntraRefreshCfg> kVencIntraRefreshTable{"venc.%d.intraRefresh",
                                                              kVencIntraRefreshFields};

constexpr Field kVencCommAttrFields[] = {
    QUERY(VencCommAttr, enable, "enable", 0).About("The encoder is in use"),
    FIELD(VencCommAttr, handle, "venchdl", 0).About("Handle of the encoder"),
    RECORD(VencCommAttr, bindSrc, kVencBindSrcTable),
    FIELD(VencCommAttr, payload, "payload", 0)
        .About("What the encoder puts out")
        .Numbers("0 H.264, 1 H.265, 2 MJPEG, 3 JPEG, 4 AAC"),
    FIELD(VencCommAttr, isByFrame, "isByFrame", 0)
        .About("The stream is handed out by frame, not by packet"),  // stored before the bindings
    FIELD(VencCommAttr, rcMode, "rcmode", 0).About("Rate control").Numbers("0 CBR, 1 VBR"),
    FIELD(VencCommAttr, type, "type", 0)
        .About("What the encoder is for")
        .Numbers("0 main video, 1 sub video, 2 single snap, 3 sub snap"),
    RECORD(VencCommAttr, intraRefresh, kVencIntraRefreshTable),
};

constexpr TableOf<VencCommAttr> kVencCommAttrTable{"venc.%d", kVencCommAttrFields};

constexpr Field kCamVencCommFields[] = {
    COMPUTED(CamVencCommCfg, count).About("Number of leading encoders that have an enable key"),
    RECORD(CamVencCommCfg, vencs, kVencCommAttrTable)
        .WhileExists("enable", offsetof(CamVencCommCfg, count)),
};

constexpr TableOf<CamVencCommCfg> kCamVencCommTable{nullptr, kCamVencCommFields};

Status PDT_PARAM_LoadCamVencBindSrcAttr(const char* module, std::int32_t venc,
                                        VencBindSrcAttr* cfg) {
    Key node;
    FILL_OR_RETURN(node, "sprintf_s", kVencBindSrcTable, venc);
    LOAD_OR_RETURN(module, node, ROWS(kVencBindSrcTable, module, count), cfg);
    LOG_DEBUG("bindMod[%d] bindCnt[%d]\n", cfg->module, cfg->count);
    for (std::uint32_t i = 0; i < cfg->count && i < kVencBindCount; ++i) {
        LOAD_ELEMENT_OR_RETURN(module, node, ROW(kVencBindSrcTable, moduleHandles), i, cfg);
        LOAD_ELEMENT_OR_RETURN(module, node, ROW(kVencBindSrcTable, chnHandles), i, cfg);
    }
    return kOk;
}

Status PDT_INIPARAM_LoadVencChnIntraFreshCfg(const char* module, std::int32_t venc,
                                             VencIntraRefreshCfg* cfg) {
    LOAD_AT_OR_RETURN(module, kVencIntraRefreshTable, cfg, venc);
    LOG_DEBUG(
        "venc[%d] intraRefresh attr, refreshEnable[%d],intraRefreshMode[%d,0-row,1-col],"
        "refreshNum[%d],reqIQp[%d] \n",
        venc, cfg->enable, cfg->mode, cfg->refreshNum, cfg->reqIQp);
    return kOk;
}

Status PDT_INIPARAM_LoadCamVencCommAttr(const char* module, std::int32_t venc, VencCommAttr* cfg,
                                        std::int32_t* isExist) {
    REQUIRE_RECORD_OR_RETURN(cfg);
    Key node;
    FILL_OR_RETURN(node, "sprintf_s", kVencCommAttrTable, venc);
    Key enable;
    FORMAT_KEY_OR_RETURN(enable, node, ROW(kVencCommAttrTable, enable), 0);
    CALL_OR_RETURN(ZV_CONFACCESS_IsConfItemExist(kProductConfig, module, enable.c_str(), isExist),
                   enable.c_str());
    LOAD_OR_RETURN(module, node, ROWS(kVencCommAttrTable, enable, handle), cfg);
    CALL_OR_RETURN(PDT_PARAM_LoadCamVencBindSrcAttr(module, venc, &cfg->bindSrc), "bindSrc");
    LOAD_OR_RETURN(module, node, ROWS(kVencCommAttrTable, payload, type), cfg);
    LOG_DEBUG("venc[%d] attr, enable[%d],venchdl[%d]\n", venc, cfg->enable, cfg->handle);
    LOG_DEBUG("payload[%d,0-h264,1-h265,2-mjpeg,3-jpeg,4-aac] \n", cfg->payload);
    LOG_DEBUG("rcmode[%d,0-cbr,1-vbr] \n", cfg->rcMode);
    LOG_DEBUG("type[%d,0-main video,1-sub video,2-single snap,3-sub snap] \n", cfg->type);
    CALL_OR_RETURN(PDT_INIPARAM_LoadVencChnIntraFreshCfg(module, venc, &cfg->intraRefresh),
                   "intraRefresh");
    return kOk;
}

Status PDT_INIPARAM_LoadCamVencCommCfg(const char* module, CamVencCommCfg* cfg) {
    REQUIRE_RECORD_OR_RETURN(cfg);
    cfg->count = 0;
    std::int32_t isExist = 1;
    for (std::int32_t venc = 0; venc < kVencCount; ++venc) {
        CALL_OR_RETURN(PDT_INIPARAM_LoadCamVencCommAttr(module, venc, &cfg->vencs[venc], &isExist),
                       "venc comm");
        if (isExist != 1) {
            break;
        }
        ++cfg->count;
    }
    LOG_DEBUG("\033[1;33mvenc comm  venccnt[%u] \n\033[m", cfg->count);
    return kOk;
}

}  // namespace paramgen
