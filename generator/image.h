/// The parameter image: one fixed-layout, little-endian block of 29,928 bytes.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "param/camera/camera.h"
#include "param/common/field.h"
#include "param/devmng/devmng.h"
#include "param/filemng/filemng.h"
#include "param/media_common/media_common.h"
#include "param/valueset/valueset.h"
#include "param/workmode/workmode.h"

namespace paramgen {

static_assert(std::endian::native == std::endian::little,
              "records are stored as they lie in memory");

inline constexpr std::uint32_t kImageMagic = 0x70617261;  ///< "arap" in the file
inline constexpr std::uint32_t kTailMark = 0x7061726D;    ///< "mrap" in the file

/// Header of the image.
struct ImageHeader {
    std::uint32_t magic;
    std::uint32_t totalSize;  ///< of the whole image, in bytes
    std::byte reserved[8];
};

/// Tail of the image.
struct ImageTail {
    std::uint32_t mark;
    std::uint32_t zero;
};

/// The image.
struct ParamImage {
    ImageHeader header;
    WorkModeCfg workMode;
    MediaCommCfg mediaComm;
    std::byte gap[4];  ///< brings the cameras to an 8-byte boundary
    CamMediaCfg cam[kCamCount];
    FileMngCfg fileMng;
    DevMngCfg devMng;
    ValueSetCfg valueSet;
    ImageTail tail;
};
static_assert(sizeof(ImageHeader) == 16 && sizeof(WorkModeCfg) == 8912);
static_assert(sizeof(MediaCommCfg) == 716 && sizeof(CamMediaCfg) == 12832);
static_assert(sizeof(FileMngCfg) == 1444 && sizeof(DevMngCfg) == 420);
static_assert(sizeof(ValueSetCfg) == 5576 && sizeof(ImageTail) == 8);
static_assert(offsetof(ParamImage, workMode) == 16);
static_assert(offsetof(ParamImage, mediaComm) == 8928);
static_assert(offsetof(ParamImage, gap) == 9644);
static_assert(offsetof(ParamImage, cam) == 9648);
static_assert(offsetof(ParamImage, fileMng) == 22480);
static_assert(offsetof(ParamImage, devMng) == 23924);
static_assert(offsetof(ParamImage, valueSet) == 24344);
static_assert(offsetof(ParamImage, tail) == 29920);
static_assert(sizeof(ParamImage) == 29928);
static_assert(std::is_standard_layout_v<ParamImage> && std::is_trivially_copyable_v<ParamImage>);

extern const TableOf<ParamImage> kImageTable;

/// The image of this run.
extern ParamImage g_image;

/// Zeroes `image` and stores its header and tail.
void BuildFrame(ParamImage* image);

}  // namespace paramgen
