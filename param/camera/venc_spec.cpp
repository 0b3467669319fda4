#include "param/camera/venc_spec.h"

#include "confaccess/confaccess.h"
#include "param/common/key.h"
#include "param/common/propagate.h"
#include "param/common/readers.h"

namespace paramgen {

constexpr Field kVencSpecAttrFields[] = {
    QUERY(VencSpecAttr, resWidth, "res_width", 0).About("Width of the picture").Unit("px"),
    FIELD(VencSpecAttr, resHeight, "res_height", 0).About("Height of the picture").Unit("px"),
    FIELD(VencSpecAttr, bufSize, "bufsize", 0).About("Size of the stream buffer").Unit("bytes"),
    FIELD(VencSpecAttr, gop, "gop", 0).About("Frames from one I frame to the next").Unit("frames"),
    FIELD(VencSpecAttr, srcFrameRate, "src_framerate", 0)
        .About("Frame rate that comes in")
        .Unit("fps"),
    FIELD(VencSpecAttr, dstFrameRate, "dst_framerate", 0)
        .About("Frame rate that goes out")
        .Unit("fps"),
    FIELD(VencSpecAttr, h265BitRate, "h265bitrate", 0)
        .About("Bit rate as H.265")
        .Unit("kbit/s"),  // read before h264's, but stored after it
    FIELD(VencSpecAttr, h264BitRate, "h264bitrate", 0).About("Bit rate as H.264").Unit("kbit/s"),
    FIELD(VencSpecAttr, statTime, "stat_time", 0)
        .About("Time over which the bit rate is held")
        .Unit("s"),
};

constexpr TableOf<VencSpecAttr> kVencSpecAttrTable{"venc.%d", kVencSpecAttrFields};

constexpr Field kVencSpecFields[] = {
    RECORD(VencSpecCfg, vencs, kVencSpecAttrTable)
        .WhileExists("res_width", offsetof(VencSpecCfg, count)),
    COMPUTED(VencSpecCfg, count).About("Number of leading encoders that have a res_width key"),
    RESERVED(VencSpecCfg, reserved).About("Reserved"),
};

constexpr TableOf<VencSpecCfg> kVencSpecTable{nullptr, kVencSpecFields};

Status PDT_INIPARAM_LoadCamVencSpecAttr(const char* module, std::uint32_t venc, VencSpecAttr* attr,
                                        std::int32_t* exists) {
    REQUIRE_RECORD_OR_RETURN(attr);
    Key node;
    FILL_OR_RETURN(node, "sprintf_s", kVencSpecAttrTable, venc);
    Key width;
    FORMAT_KEY_OR_RETURN(width, node, ROW(kVencSpecAttrTable, resWidth), 0);
    CALL_OR_RETURN(ZV_CONFACCESS_IsConfItemExist(kProductConfig, module, width.c_str(), exists),
                   width.c_str());
    LOAD_OR_RETURN(module, node, kVencSpecAttrTable, attr);
    LOG_DEBUG("venc[%d] spec attr, res_width[%u],res_height[%u],bufsize[%u]\n", venc,
              attr->resWidth, attr->resHeight, attr->bufSize);
    LOG_DEBUG(
        "gop[%u],src_framerate[%u],dst_framerate[%u],h265bitrate[%u],h264bitrate[%u] "
        "statTime[%uS]\n",
        attr->gop, attr->srcFrameRate, attr->dstFrameRate, attr->h265BitRate, attr->h264BitRate,
        attr->statTime);
    return kOk;
}

Status PDT_INIPARAM_LoadCamVencSpecCfg(const char* module, VencSpecCfg* cfg) {
    REQUIRE_RECORD_OR_RETURN(cfg);
    cfg->count = 0;
    for (std::uint32_t i = 0; i < kVencSpecCount; ++i) {
        std::int32_t exists = 1;
        CALL_OR_RETURN(PDT_INIPARAM_LoadCamVencSpecAttr(module, i, &cfg->vencs[i], &exists),
                       "venc spec");
        if (exists != 1) {
            break;
        }
        ++cfg->count;
    }
    LOG_DEBUG("\033[1;33mvenc comm  cnt[%u] \n\033[m", cfg->count);
    return kOk;
}

}  // namespace paramgen
