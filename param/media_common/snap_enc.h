/// Snapshot encoders.
///
/// The loader takes the module to read, the encoder's name and the record to fill; it returns 0, or
/// the code of the first step that failed, having logged it. What was loaded before a failure
/// stays. A null record fails with -1. No value is checked for its range.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/common/values.h"

namespace paramgen {

inline constexpr std::uint32_t kLargeThumbnailCount = 2;

/// A large thumbnail. 8 bytes.
struct LargeThumbnail {
    std::int32_t width;
    std::int32_t height;
};
static_assert(sizeof(LargeThumbnail) == 8);

/// A snapshot encoder. 36 bytes.
struct SnapEncAttr {
    Bool32 enableDcf;
    std::uint8_t largeThumbnailNum;
    std::byte reserved[3];
    LargeThumbnail largeThumbnails[kLargeThumbnailCount];
    std::uint32_t qualityFactor;
    std::int32_t receiveMode;
    std::int32_t jpegEncodeMode;
};
static_assert(sizeof(SnapEncAttr) == 36);
static_assert(offsetof(SnapEncAttr, largeThumbnailNum) == 4);
static_assert(offsetof(SnapEncAttr, largeThumbnails) == 8);
static_assert(offsetof(SnapEncAttr, qualityFactor) == 24);

extern const TableOf<LargeThumbnail> kLargeThumbnailTable;
extern const TableOf<SnapEncAttr> kSnapEncTable;

/// Loads the encoder `name`: "single" or "sub".
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommSnapEncAttr(const char* module, const char* name,
                                                           SnapEncAttr* attr);

}  // namespace paramgen
