#include "param/media_common/hierarchical_qp.h"

#include "param/common/propagate.h"

namespace paramgen {

constexpr Field kHierarchicalQpFields[] = {
    FIELD(HierarchicalQpAttr, enable, "enable", 0).About("Hierarchical quantisation is on"),
    QUERY(HierarchicalQpAttr, qpDelta, "qp_delta%u", 0)
        .About("Offset of the quantisation parameter of a layer; negative is better quality"),
    QUERY(HierarchicalQpAttr, frameNum, "frame_num%u", 0).About("Frames of a layer").Unit("frames"),
};

constexpr TableOf<HierarchicalQpAttr> kHierarchicalQpTable{"venc.hierarchical.qp",
                                                           kHierarchicalQpFields};

Status PDT_INIPARAM_LoadMediaCommVencHierarchicalQp(const char* module, HierarchicalQpAttr* attr) {
    Key prefix;
    FILL_OR_RETURN(prefix, "sprintf_s", kHierarchicalQpTable);
    const char* node = prefix.c_str();
    LOG_DEBUG("NodePrefix[%s]\n", node);
    LOAD_OR_RETURN(module, node, ROW(kHierarchicalQpTable, enable), attr);
    LOG_DEBUG("  hierarchical.qp.enable[%d]\n", attr->enable);
    for (std::uint32_t i = 0; i < kQpLayerCount; ++i) {
        LOAD_ELEMENT_OR_RETURN(module, node, ROW(kHierarchicalQpTable, qpDelta), i, attr);
        LOG_DEBUG("  QpDelta%u[%d]\n", i, attr->qpDelta[i]);
    }
    for (std::uint32_t i = 0; i < kQpLayerCount; ++i) {
        LOAD_ELEMENT_OR_RETURN(module, node, ROW(kHierarchicalQpTable, frameNum), i, attr);
        LOG_DEBUG("  FrameNum%u[%d]\n", i, attr->frameNum[i]);
    }
    return kOk;
}

}  // namespace paramgen
