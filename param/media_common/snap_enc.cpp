#include "param/media_common/snap_enc.h"

#include "param/common/propagate.h"

namespace paramgen {

constexpr Field kLargeThumbnailFields[] = {
    QUERY(LargeThumbnail, width, "largethumbnail%d_width", 0)
        .About("Width of a large thumbnail")
        .Unit("px"),
    QUERY(LargeThumbnail, height, "largethumbnail%d_height", 0)
        .About("Height of a large thumbnail")
        .Unit("px"),
};

constexpr TableOf<LargeThumbnail> kLargeThumbnailTable{nullptr, kLargeThumbnailFields};

constexpr Field kSnapEncFields[] = {
    FIELD(SnapEncAttr, enableDcf, "enable_dcf", 0)
        .About("The JPEG gets camera file information and a thumbnail"),
    FIELD(SnapEncAttr, qualityFactor, "quality_factor", 0).About("JPEG quality"),
    FIELD(SnapEncAttr, receiveMode, "receivemode", 0)
        .About("How the encoder receives its pictures"),
    FIELD(SnapEncAttr, jpegEncodeMode, "encode_mode", 0)
        .Label("jpegEncodeMode")
        .About("How the encoder runs"),
    FIELD(SnapEncAttr, largeThumbnailNum, "largethumbnail_num", 0)
        .About("Number of large thumbnails in the file"),
    RECORD(SnapEncAttr, largeThumbnails, kLargeThumbnailTable),
    RESERVED(SnapEncAttr, reserved).About("Reserved"),
};

constexpr TableOf<SnapEncAttr> kSnapEncTable{"venc.snap.%s", kSnapEncFields};

Status PDT_INIPARAM_LoadMediaCommSnapEncAttr(const char* module, const char* name,
                                             SnapEncAttr* attr) {
    Key node;
    FILL_OR_RETURN(node, "sprintf_s", kSnapEncTable, name);
    LOG_DEBUG("NodePrefix[%s]\n", node.c_str());
    LOAD_OR_RETURN(module, node, kSnapEncTable, attr);
    LOG_DEBUG(
        "[%s] DCF[%d], QualityFactor[%u], Receivemode[%u], Encode_mode[%u], "
        "LargeThumbNailNum[%d]\n",
        node.c_str(), attr->enableDcf, attr->qualityFactor, attr->receiveMode, attr->jpegEncodeMode,
        attr->largeThumbnailNum);
    for (std::uint32_t i = 0; i < kLargeThumbnailCount; ++i) {
        LargeThumbnail& thumbnail = attr->largeThumbnails[i];
        LOAD_ELEMENT_OR_RETURN(module, node, ROW(kLargeThumbnailTable, width), i, &thumbnail);
        LOAD_ELEMENT_OR_RETURN(module, node, ROW(kLargeThumbnailTable, height), i, &thumbnail);
        LOG_DEBUG("[%s] largethumbnail%d_width[%d],largethumbnail%d_height[%u] \n", node.c_str(), i,
                  thumbnail.width, i, thumbnail.height);
    }
    return kOk;
}

}  // namespace paramgen
