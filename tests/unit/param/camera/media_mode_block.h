/// A media mode written by hand: its keys, and the bytes that are stored for them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "support/product_tree.h"
#include "unit/param/camera/spec_rows.h"

namespace paramgen::testing {

/// The module of the media mode.
inline constexpr char kMediaModeModule[] = "cam0_mediamode1";

/// The expected bytes of a block, and the keys that set them.
class Block {
public:
    /// Sets `key` to `value`, which is stored as a word at `offset`.
    void Number(std::size_t offset, const std::string& key, std::int64_t value,
                const std::string& module = kMediaModeModule) {
        tree.Set(module, key, std::to_string(value));
        bytes.replace(offset, 4, Word(value));
    }
    /// Sets the switch `key` to on, which is stored at `offset`.
    void Switch(std::size_t offset, const std::string& key,
                const std::string& module = kMediaModeModule) {
        tree.Set(module, key, "yes");
        bytes.replace(offset, 4, Word(1));
    }

    ProductTree tree = {};
    std::string bytes = std::string(1864, '\0');
};

inline void PutPools(Block* block) {
    block->Number(40, "vb:max_poolcnt", 8);
    for (int i = 0; i < 8; ++i) {
        const std::size_t at = 48 + 16 * static_cast<std::size_t>(i);
        const std::string node = "vb.pool." + std::to_string(i);
        block->Number(at, node + ":blk_size", 100000 + i);
        block->Number(at + 8, node + ":blk_count", 10 + i);
    }
    block->Number(48, "vb.pool.0:blk_size", -1);
    block->bytes.replace(52, 4, "\xff\xff\xff\xff");
}

inline void PutDevice(Block* block) {
    block->Number(176, "vcap.dev:sensor_type", 101);
    block->Number(180, "vcap.dev:sensor_mode", 102);
    block->Number(184, "vcap.dev:wdr_mode", -103);
    block->Number(188, "vcap.dev:sensor_width", 104);
    block->Number(192, "vcap.dev:sensor_height", 105);
    block->Number(200, "vcap.dev:data_type", 106);
    block->Number(208, "vcap.dev:bas_width", 107);
    block->Number(212, "vcap.dev:bas_height", 108);
    block->bytes.replace(216, 4, Word(-103));
    block->Number(220, "vcap.dev:cacheLine", 109);
    block->Number(236, "vcap.dev:componentmask0", 110);
    block->Number(240, "vcap.dev:componentmask1", 111);
}

/// Adds the lens-distortion record of this media mode at offset `at`.
inline void PutLdc(Block* block, std::size_t at) {
    const std::string module = "cam0_ldccfg_1";
    block->tree.Set(module, "common:mediamode", "QX_PARAM_MEDIAMODE_PHOTO_8000P");
    block->Switch(at, "LDCV1Attr:enable", module);
    block->Switch(at + 4, "LDCV1Attr:aspect", module);
    block->Number(at + 8, "LDCV1Attr:xratio", 201, module);
    block->Number(at + 12, "LDCV1Attr:yratio", 202, module);
    block->Number(at + 16, "LDCV1Attr:xyratio", 203, module);
    block->Number(at + 20, "LDCV1Attr:centerxoffset", -204, module);
    block->Number(at + 24, "LDCV1Attr:centeryoffset", 205, module);
    block->Number(at + 28, "LDCV1Attr:distortionratio", -206, module);
    block->Switch(at + 32, "LDCV3Attr:enable", module);
    block->Switch(at + 36, "LDCV3Attr:aspect", module);
    block->Number(at + 40, "LDCV3Attr:xratio", 207, module);
    block->Number(at + 44, "LDCV3Attr:yratio", 208, module);
    block->Number(at + 48, "LDCV3Attr:xyratio", 209, module);
    block->Number(at + 52, "LDCV3Attr:focal_len_x", 210, module);
    block->Number(at + 56, "LDCV3Attr:focal_len_y", 211, module);
    block->Number(at + 60, "LDCV3Attr:coord_shift_x", 212, module);
    block->Number(at + 64, "LDCV3Attr:coord_shift_y", 213, module);
    for (std::size_t i = 0; i < 9; ++i) {
        const int number = static_cast<int>(i);
        const std::string key = "LDCV3Attr:src_calibration_ratio";
        block->Number(at + 68 + 4 * i, key + std::to_string(i), 220 + number, module);
        block->Number(at + 104 + 4 * i, key + "_next" + std::to_string(i), -230 - number, module);
    }
    block->Number(at + 140, "LDCV3Attr:coef_intp_ratio", 214, module);
}

inline void PutPipe(Block* block, int number, std::size_t at) {
    const std::string pipe = "vcap.pipe." + std::to_string(number) + ":";
    const std::string chn = "vcap.pipe." + std::to_string(number) + ".chl.0:";
    const int base = 1000 * (number + 1);
    block->Switch(at, pipe + "enable");
    block->Number(at + 4, pipe + "src_framerate", base + 1);
    block->Number(at + 8, pipe + "dst_framerate", base + 2);
    block->Switch(at + 12, pipe + "isp_bypass");
    block->Number(at + 16, pipe + "pipe_bypassmode", base + 3);
    block->tree.Set(kMediaModeModule, pipe + "isp_framerate", "29.97");
    block->bytes.replace(at + 20, 4, "\x8f\xc2\xef\x41");
    block->Number(at + 24, pipe + "isp_width", base + 4);
    block->Number(at + 28, pipe + "isp_height", base + 5);
    block->Number(at + 36, pipe + "isp_mirrorflip", base + 6);
    block->Number(at + 40, pipe + "scene_param_idx", base + 7);
    block->Number(at + 44, pipe + "frameinterrupt_type", base + 8);
    block->Number(at + 48, pipe + "earlyline", base + 9);
    block->Number(at + 52, chn + "dst_width", base + 10);
    block->Number(at + 56, chn + "dst_height", base + 11);
    block->Number(at + 60, chn + "src_framerate", base + 12);
    block->Number(at + 64, chn + "dst_framerate", base + 13);
    PutLdc(block, at + 68);
    block->Switch(at + 212, chn + "MotionDenoiseEnable");
    block->Number(at + 216, chn + "MotionDenoiseIsoThresh", base + 14);
    block->Switch(at + 224, pipe + "aibnr_support");
    block->Switch(at + 228, pipe + "ai3dnr_support");
    block->Number(at + 236, pipe + "bnr_buffer_num", base + 15);
}

inline void PutGroup(Block* block) {
    block->Number(1212, "vpss.0:max_width", 301);
    block->Number(1216, "vpss.0:max_height", 302);
    block->Number(1220, "vpss.0:src_framerate", 303);
    block->Number(1224, "vpss.0:dst_framerate", 304);
    block->Number(1228, "vpss.0:crop_start_x", -305);
    block->Number(1232, "vpss.0:crop_start_y", 306);
    block->Number(1236, "vpss.0:crop_width", 307);
    block->Number(1240, "vpss.0:crop_height", 308);
    PutLdc(block, 1532);
}

inline void PutPort(Block* block, const std::string& node, int base, std::size_t at) {
    block->Number(at, node + ":res_width", base + 1);
    block->Number(at + 4, node + ":res_height", base + 2);
    block->Number(at + 16, node + ":src_framerate", base + 3);
    block->Number(at + 20, node + ":dst_framerate", base + 4);
    block->Number(at + 24, node + ":wrapbufline", base + 5);
    block->Number(at + 28, node + ":crop_start_x", -base - 6);
    block->Number(at + 32, node + ":crop_start_y", base + 7);
    block->Number(at + 36, node + ":crop_width", base + 8);
    block->Number(at + 40, node + ":crop_height", base + 9);
}

inline void PutEncoder(Block* block, int number, std::size_t at) {
    const std::string node = "venc." + std::to_string(number);
    const int base = 10000 * (number + 1);
    block->Number(at, node + ":res_width", base + 1);
    block->Number(at + 4, node + ":res_height", base + 2);
    block->Number(at + 8, node + ":bufsize", base + 3);
    block->Number(at + 12, node + ":gop", base + 4);
    block->Number(at + 16, node + ":src_framerate", base + 5);
    block->Number(at + 20, node + ":dst_framerate", base + 6);
    block->Number(at + 24, node + ":h264bitrate", base + 7);
    block->Number(at + 28, node + ":h265bitrate", base + 8);
    block->Number(at + 32, node + ":stat_time", base + 9);
}

}  // namespace paramgen::testing
