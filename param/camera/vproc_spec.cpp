#include "param/camera/vproc_spec.h"

#include "param/camera/nodes.h"
#include "param/common/key.h"
#include "param/common/propagate.h"

namespace paramgen {

constexpr Field kVportSpecFields[] = {
    FIELD(VportSpecCfg, resWidth, "res_width", 0),
    FIELD(VportSpecCfg, resHeight, "res_height", 0),
    RESERVED(VportSpecCfg, reserved),
    FIELD(VportSpecCfg, srcFrameRate, "src_framerate", 0),
    FIELD(VportSpecCfg, dstFrameRate, "dst_framerate", 0),
    FIELD(VportSpecCfg, wrapBufLine, "wrapbufline", 0),
    FIELD(VportSpecCfg, cropStartX, "crop_start_x", 0),
    FIELD(VportSpecCfg, cropStartY, "crop_start_y", 0),
    FIELD(VportSpecCfg, cropWidth, "crop_width", 0),
    FIELD(VportSpecCfg, cropHeight, "crop_height", 0),
    CONSTANT(VportSpecCfg, zero, 0),
};

constexpr TableOf<VportSpecCfg> kVportSpecTable{nullptr, kVportSpecFields};

constexpr Field kVpssSpecFields[] = {
    FIELD(VpssSpecAttr, maxWidth, "max_width", 0),
    FIELD(VpssSpecAttr, maxHeight, "max_height", 0),
    FIELD(VpssSpecAttr, srcFrameRate, "src_framerate", 0),
    FIELD(VpssSpecAttr, dstFrameRate, "dst_framerate", 0),
    FIELD(VpssSpecAttr, cropStartX, "crop_start_x", 0),
    FIELD(VpssSpecAttr, cropStartY, "crop_start_y", 0),
    FIELD(VpssSpecAttr, cropWidth, "crop_width", 0),
    FIELD(VpssSpecAttr, cropHeight, "crop_height", 0),
    RECORD(VpssSpecAttr, ldc, kVcapLDCTable).FromMatching(kLdcSearch),
    RECORD(VpssSpecAttr, vports, kVportSpecTable).Under(kVportNode),
    RECORD(VpssSpecAttr, extVports, kVportSpecTable).Under(kExtVportNode),
};

constexpr TableOf<VpssSpecAttr> kVpssSpecTable{kVpssNode, kVpssSpecFields};

Status PDT_INIPARAM_LoadCamVportSpecCfg(const char* module, const char* node, VportSpecCfg* cfg) {
    LOAD_OR_RETURN(module, node, kVportSpecTable, cfg);
    LOG_DEBUG(
        "%s attr,res_width[%u],res_height[%u],src_framerate[%d],dst_framerate[%d],wrapBufLine[%u] "
        "\n",
        node, cfg->resWidth, cfg->resHeight, cfg->srcFrameRate, cfg->dstFrameRate,
        cfg->wrapBufLine);
    LOG_DEBUG("%s attr,crop_start_x[%u],crop_start_y[%u],crop_width[%u],crop_height[%u] \n", node,
              cfg->cropStartX, cfg->cropStartY, cfg->cropWidth, cfg->cropHeight);
    return kOk;
}

Status PDT_INIPARAM_LoadCamVpssSpecAttr(const char* module, std::uint32_t group, MediaMode mode,
                                        VpssSpecAttr* attr) {
    Key node;
    FORMAT_OR_RETURN(node, "sprintf_s", kVpssNode, group);
    LOAD_OR_RETURN(module, node.c_str(), ROWS(kVpssSpecTable, maxWidth, cropHeight), attr);
    LOG_DEBUG(
        "vpss[%d] spec attr, max_width[%u],max_height[%u],src_framerate[%d],dst_framerate[%d] \n",
        group, attr->maxWidth, attr->maxHeight, attr->srcFrameRate, attr->dstFrameRate);
    LOG_DEBUG("%s attr,crop_start_x[%u],crop_start_y[%u],crop_width[%u],crop_height[%u] \n",
              node.c_str(), attr->cropStartX, attr->cropStartY, attr->cropWidth, attr->cropHeight);
    CALL_OR_RETURN(PDT_INIPARAM_LoadCamVportSpecLDCCfg(mode, &attr->ldc), "ldcV1 ldcV3 CFG");
    for (std::uint32_t i = 0; i < kVportSpecCount; ++i) {
        FORMAT_OR_RETURN(node, "snprintf_s", kVportNode, group, i);
        CALL_OR_RETURN(PDT_INIPARAM_LoadCamVportSpecCfg(module, node.c_str(), &attr->vports[i]),
                       "vport spec config");
    }
    for (std::uint32_t i = 0; i < kExtVportSpecCount; ++i) {
        FORMAT_OR_RETURN(node, "snprintf_s", kExtVportNode, group, i);
        CALL_OR_RETURN(PDT_INIPARAM_LoadCamVportSpecCfg(module, node.c_str(), &attr->extVports[i]),
                       "ext vport spec config");
    }
    return kOk;
}

}  // namespace paramgen
