#include "param/camera/vproc_spec.h"

#include "param/common/key.h"
#include "param/common/propagate.h"

namespace paramgen {

constexpr Field kVportSpecFields[] = {
    FIELD(VportSpecCfg, resWidth, "res_width", 0).About("Width of the picture").Unit("px"),
    FIELD(VportSpecCfg, resHeight, "res_height", 0).About("Height of the picture").Unit("px"),
    RESERVED(VportSpecCfg, reserved).About("Reserved"),
    FIELD(VportSpecCfg, srcFrameRate, "src_framerate", 0)
        .About("Frame rate that comes in; -1 as it comes")
        .Unit("fps"),
    FIELD(VportSpecCfg, dstFrameRate, "dst_framerate", 0)
        .About("Frame rate that goes out; -1 as it comes")
        .Unit("fps"),
    FIELD(VportSpecCfg, wrapBufLine, "wrapbufline", 0)
        .About("Lines of the wrap-around buffer; 0 for whole frames")
        .Unit("lines"),
    FIELD(VportSpecCfg, cropStartX, "crop_start_x", 0)
        .About("Left edge of the part that is cut out; below 0: counted from the centre")
        .Unit("px"),
    FIELD(VportSpecCfg, cropStartY, "crop_start_y", 0)
        .About("Upper edge of the part that is cut out; below 0: counted from the centre")
        .Unit("px"),
    FIELD(VportSpecCfg, cropWidth, "crop_width", 0)
        .About("Width of the part that is cut out")
        .Unit("px"),
    FIELD(VportSpecCfg, cropHeight, "crop_height", 0)
        .About("Height of the part that is cut out")
        .Unit("px"),
    CONSTANT(VportSpecCfg, zero, 0).About("Always 0"),
};

constexpr TableOf<VportSpecCfg> kVportSpecTable{nullptr, kVportSpecFields};

constexpr Field kVpssSpecFields[] = {
    FIELD(VpssSpecAttr, maxWidth, "max_width", 0).About("Width of the largest picture").Unit("px"),
    FIELD(VpssSpecAttr, maxHeight, "max_height", 0)
        .About("Height of the largest picture")
        .Unit("px"),
    FIELD(VpssSpecAttr, srcFrameRate, "src_framerate", 0)
        .About("Frame rate that comes in; -1 as it comes")
        .Unit("fps"),
    FIELD(VpssSpecAttr, dstFrameRate, "dst_framerate", 0)
        .About("Frame rate that goes out; -1 as it comes")
        .Unit("fps"),
    FIELD(VpssSpecAttr, cropStartX, "crop_start_x", 0)
        .About("Left edge of the part of the picture that is used")
        .Unit("px"),
    FIELD(VpssSpecAttr, cropStartY, "crop_start_y", 0)
        .About("Upper edge of the part of the picture that is used")
        .Unit("px"),
    FIELD(VpssSpecAttr, cropWidth, "crop_width", 0)
        .About("Width of the part of the picture that is used")
        .Unit("px"),
    FIELD(VpssSpecAttr, cropHeight, "crop_height", 0)
        .About("Height of the part of the picture that is used")
        .Unit("px"),
    RECORD(VpssSpecAttr, ldc, kVcapLDCTable).FromMatching(kLdcSearch),
    RECORD(VpssSpecAttr, vports, kVportSpecTable).Under("vpss.%d.vport.%d"),
    RECORD(VpssSpecAttr, extVports, kVportSpecTable).Under("vpss.%d.extvport.%d"),
};

constexpr TableOf<VpssSpecAttr> kVpssSpecTable{"vpss.%d", kVpssSpecFields};

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
    FILL_OR_RETURN(node, "sprintf_s", kVpssSpecTable, group);
    LOAD_OR_RETURN(module, node, ROWS(kVpssSpecTable, maxWidth, cropHeight), attr);
    LOG_DEBUG(
        "vpss[%d] spec attr, max_width[%u],max_height[%u],src_framerate[%d],dst_framerate[%d] \n",
        group, attr->maxWidth, attr->maxHeight, attr->srcFrameRate, attr->dstFrameRate);
    LOG_DEBUG("%s attr,crop_start_x[%u],crop_start_y[%u],crop_width[%u],crop_height[%u] \n",
              node.c_str(), attr->cropStartX, attr->cropStartY, attr->cropWidth, attr->cropHeight);
    CALL_OR_RETURN(PDT_INIPARAM_LoadCamVportSpecLDCCfg(mode, &attr->ldc), "ldcV1 ldcV3 CFG");
    for (std::uint32_t i = 0; i < kVportSpecCount; ++i) {
        FILL_OR_RETURN(node, "snprintf_s", ROW(kVpssSpecTable, vports), group, i);
        CALL_OR_RETURN(PDT_INIPARAM_LoadCamVportSpecCfg(module, node.c_str(), &attr->vports[i]),
                       "vport spec config");
    }
    for (std::uint32_t i = 0; i < kExtVportSpecCount; ++i) {
        FILL_OR_RETURN(node, "snprintf_s", ROW(kVpssSpecTable, extVports), group, i);
        CALL_OR_RETURN(PDT_INIPARAM_LoadCamVportSpecCfg(module, node.c_str(), &attr->extVports[i]),
                       "ext vport spec config");
    }
    return kOk;
}

}  // namespace paramgen
