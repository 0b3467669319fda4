/// Video encoder defaults of a stream: for each codec its profile and its rate control.
///
/// Every loader takes the module to read, the stream's name or the node above its own, and the
/// record to fill; it returns 0, or the code of the first step that failed, having logged it. What
/// was loaded before a failure stays. A null record fails with -1. No value is checked for its
/// range.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"

namespace paramgen {

/// Limits of the quantisation parameter, for CBR and VBR. 16 bytes.
struct H26xRcQpAttr {
    std::uint32_t maxQp;
    std::uint32_t minQp;
    std::uint32_t maxIqp;
    std::uint32_t minIqp;
};
static_assert(sizeof(H26xRcQpAttr) == 16);

/// Limits for QVBR. 32 bytes.
struct H26xQvbrAttr {
    H26xRcQpAttr qp;
    std::int32_t bitPercentUpper;
    std::int32_t bitPercentLower;
    std::int32_t psnrFluctuateUpper;
    std::int32_t psnrFluctuateLower;
};
static_assert(sizeof(H26xQvbrAttr) == 32);
static_assert(offsetof(H26xQvbrAttr, bitPercentUpper) == 16);

/// The rate control methods of a codec. 64 bytes.
struct H26xRateControl {
    H26xRcQpAttr cbr;
    H26xRcQpAttr vbr;
    H26xQvbrAttr qvbr;
};
static_assert(sizeof(H26xRateControl) == 64);
static_assert(offsetof(H26xRateControl, vbr) == 16);
static_assert(offsetof(H26xRateControl, qvbr) == 32);

/// The encoder of a stream. 148 bytes.
struct VideoEncAttr {
    std::int32_t sceneMode;
    std::uint32_t h264Profile;
    std::uint32_t h265Profile;
    H26xRateControl h264;
    H26xRateControl h265;
    std::uint32_t fixed85;
    std::uint32_t fixed75;
};
static_assert(sizeof(VideoEncAttr) == 148);
static_assert(offsetof(VideoEncAttr, h264) == 12);
static_assert(offsetof(VideoEncAttr, h265) == 76);
static_assert(offsetof(VideoEncAttr, fixed85) == 140);
static_assert(offsetof(VideoEncAttr, fixed75) == 144);

extern const TableOf<H26xRcQpAttr> kH26xRcQpTable;
extern const TableOf<H26xQvbrAttr> kH26xQvbrTable;
extern const TableOf<H26xRateControl> kH26xRateControlTable;
extern const TableOf<VideoEncAttr> kVideoEncTable;

// These load one rate control method of the codec at the node `codecPrefix`.
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommH26xCbrAttr(const char* module,
                                                           const char* codecPrefix,
                                                           H26xRcQpAttr* attr);
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommH26xVbrAttr(const char* module,
                                                           const char* codecPrefix,
                                                           H26xRcQpAttr* attr);
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommH26xQvbrAttr(const char* module,
                                                            const char* codecPrefix,
                                                            H26xQvbrAttr* attr);

// These load one codec of the stream at the node `streamPrefix`.
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommVencH264Attr(const char* module,
                                                            const char* streamPrefix,
                                                            VideoEncAttr* attr);
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommVencH265Attr(const char* module,
                                                            const char* streamPrefix,
                                                            VideoEncAttr* attr);

/// Loads the stream `name`: "main" or "sub".
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommVideoEncAttr(const char* module, const char* name,
                                                            VideoEncAttr* attr);

}  // namespace paramgen
