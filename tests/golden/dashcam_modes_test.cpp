// The media modes of the example product: every word, as their INI files set it.

#include <gtest/gtest.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>

#include "golden/dashcam_camera.h"

namespace paramgen::testing {
namespace {

/// The bits of a float, as a word.
constexpr std::int32_t Bits(float rate) {
    return std::bit_cast<std::int32_t>(rate);
}

// The words of a media mode, line by line:
// - number; handle and way to the processing of each of the four pipes; a reserved word
// - pool: size (64 bits), count, a reserved word
// - sensor: type, mode, WDR, width, height, reserved, data type, reserved
// - capture device: base width and height, the sensor's WDR again, cache lines, three reserved
//   words, two component masks, two reserved words
// - pipe: enabled, source and destination rate, bypassed and how, image processor: rate, width,
//   height, reserved, mirror and flip, scene, frame interrupt and its early line
// - its channel: width, height, source and destination rate
// - first lens model: on, aspect, ratios x, y and xy, centre x and y, distortion
// - third lens model: on, aspect, ratios x, y and xy, focal lengths, coordinate shifts
// - its matrix and the one of the next focus step, interpolation ratio between them
// - motion denoise: on, ISO threshold, 0; AI noise reduction: raw, over time, 0, buffers
// - processing group: width, height, source and destination rate, crop: x, y, width, height
// - port: width, height, two reserved words, source and destination rate, wrap lines, crop, 0
// - encoder: width, height, buffer, GOP, source and destination rate, H.264 and H.265 bit rate,
//   statistics time

// Media mode 0: 2160p at 30 fps, lens corrected.
constexpr std::int32_t kMode0[] = {
    30, 0, 1, 1, 6, 2, 5, -1, 4, 0,                                // media mode, pipes
    5, 0,                                                          // pool count, reserved
    12441600, 0, 9, 0,                                             // pool 0
    1382400, 0, 6, 0,                                              // pool 1
    497664, 0, 5, 0,                                               // pool 2
    86400, 0, 4, 0,                                                // pool 3
    21600, 0, 3, 0,                                                // pool 4
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,                            // pools 5 to 7, none
    3, 1, 0, 3840, 2160, 0, 2, 0,                                  // sensor
    3840, 2160, 0, 540, 0, 0, 0, 1072693248, 1023, 0, 0,           // capture device
    1, 30, 30, 0, 0, Bits(29.97F), 3840, 2160, 0, 3, 1, 1, 1620,   // pipe 0
    3840, 2160, 30, 30,                                            // its channel
    0, 1, 86, 83, 91, -14, 9, -210,                                // first lens model
    1, 0, 54, 58, 62, 214739, 214806, 191873, 107926,              // third lens model
    100000, -1273, -31842, 2216, 11957, -604, -2385, 71, 318,      // its matrix
    100400, -1298, -31517, 2189, 11813, -588, -2342, 67, 305, 35,  // next matrix, ratio
    1, 800, 0, 1, 1, 0, 5,                                         // motion, AI denoise
    0, 30, 15, 0, 1, Bits(29.97F), 1920, 1080, 0, 1, 2, 2, 810,    // pipe 1
    1920, 1080, 30, 15,                                            // its channel
    0, 1, 86, 83, 91, -14, 9, -210,                                // first lens model
    1, 0, 54, 58, 62, 214739, 214806, 191873, 107926,              // third lens model
    100000, -1273, -31842, 2216, 11957, -604, -2385, 71, 318,      // its matrix
    100400, -1298, -31517, 2189, 11813, -588, -2342, 67, 305, 35,  // next matrix, ratio
    0, 640, 0, 0, 1, 0, 4,                                         // motion, AI denoise
    0, -1, -1, 1, 2, Bits(15.0F), 1280, 720, 0, 3, 3, 3, 360,      // pipe 2
    1280, 720, 25, 20,                                             // its channel
    0, 1, 86, 83, 91, -14, 9, -210,                                // first lens model
    1, 0, 54, 58, 62, 214739, 214806, 191873, 107926,              // third lens model
    100000, -1273, -31842, 2216, 11957, -604, -2385, 71, 318,      // its matrix
    100400, -1298, -31517, 2189, 11813, -588, -2342, 67, 305, 35,  // next matrix, ratio
    0, 480, 0, 0, 0, 0, 3,                                         // motion, AI denoise
    0, -1, -1, 1, 3, Bits(12.5F), 640, 360, 0, 0, 4, 1, 180,       // pipe 3
    640, 360, 24, 12,                                              // its channel
    0, 1, 86, 83, 91, -14, 9, -210,                                // first lens model
    1, 0, 54, 58, 62, 214739, 214806, 191873, 107926,              // third lens model
    100000, -1273, -31842, 2216, 11957, -604, -2385, 71, 318,      // its matrix
    100400, -1298, -31517, 2189, 11813, -588, -2342, 67, 305, 35,  // next matrix, ratio
    1, 320, 0, 1, 0, 0, 2,                                         // motion, AI denoise
    // video processing
    3840, 2160, 30, 30, 0, 0, 3840, 2160,                          // processing group
    3840, 2160, 0, 0, 30, 30, 540, 0, 0, 3840, 2160, 0,            // port 0
    1280, 720, 0, 0, 30, 30, 0, 0, 0, 1280, 720, 0,                // port 1
    768, 432, 0, 0, 30, 30, 0, 192, 108, 3456, 1944, 0,            // port 2
    3840, 2160, 0, 0, 30, 5, 0, 16, 8, 3808, 2144, 0,              // port 3
    320, 180, 0, 0, 30, 2, 0, 4, 2, 1272, 716, 0,                  // extended port 0
    160, 90, 0, 0, 5, 1, 0, -1904, -1071, 3808, 2142, 0,           // extended port 1
    0, 1, 86, 83, 91, -14, 9, -210,                                // first lens model
    1, 0, 54, 58, 62, 214739, 214806, 191873, 107926,              // third lens model
    100000, -1273, -31842, 2216, 11957, -604, -2385, 71, 318,      // its matrix
    100400, -1298, -31517, 2189, 11813, -588, -2342, 67, 305, 35,  // next matrix, ratio
    // encoders
    5,                                                 // count
    3840, 2160, 6220800, 60, 30, 30, 48000, 28000, 2,  // encoder 0
    1280, 720, 1048576, 30, 30, 30, 4096, 2560, 1,     // encoder 1
    3840, 2160, 8294400, 1, 5, 5, 9000, 8000, 3,       // encoder 2
    160, 90, 65536, 2, 1, 1, 256, 200, 4,              // encoder 3
    320, 180, 131072, 3, 2, 1, 512, 400, 5, 0,         // encoder 4, reserved
};

// Media mode 1: 1440p at 30 fps, WDR, not corrected.
constexpr std::int32_t kMode1[] = {
    18, 0, 2, 1, 2, 2, 6, -1, 3, 0,                              // media mode, pipes
    6, 0,                                                        // pool count, reserved
    5529600, 0, 10, 0,                                           // pool 0
    884736, 0, 7, 0,                                             // pool 1
    497664, 0, 5, 0,                                             // pool 2
    86400, 0, 3, 0,                                              // pool 3
    21600, 0, 4, 0,                                              // pool 4
    6128640, 0, 6, 0,                                            // pool 5
    0, 0, 0, 0, 0, 0, 0, 0,                                      // pools 6 to 7, none
    3, 2, 1, 2688, 1520, 0, 3, 0,                                // sensor
    2688, 1520, 1, 380, 0, 0, 0, 536346624, 511, 0, 0,           // capture device
    1, 30, 30, 0, 1, Bits(30.0F), 2560, 1440, 0, 3, 5, 2, 1080,  // pipe 0
    2560, 1440, 30, 30,                                          // its channel
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        // no lens correction
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        //
    1, 1000, 0, 0, 1, 0, 6,                                      // motion, AI denoise
    1, 30, 30, 0, 4, Bits(30.0F), 2560, 1440, 0, 3, 6, 3, 1060,  // pipe 1
    2560, 1440, 30, 30,                                          // its channel
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        // no lens correction
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        //
    0, 900, 0, 0, 0, 0, 7,                                       // motion, AI denoise
    0, -1, -1, 1, 2, Bits(20.0F), 1280, 720, 0, 3, 7, 1, 540,    // pipe 2
    1280, 720, 20, 10,                                           // its channel
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        // no lens correction
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        //
    0, 500, 0, 1, 0, 0, 3,                                       // motion, AI denoise
    0, -1, -1, 1, 3, Bits(10.25F), 640, 360, 0, 1, 8, 2, 270,    // pipe 3
    640, 360, 18, 9,                                             // its channel
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        // no lens correction
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        //
    1, 300, 0, 0, 1, 0, 2,                                       // motion, AI denoise
    // video processing
    2560, 1440, 30, 30, 2, 4, 2556, 1432,                  // processing group
    2560, 1440, 0, 0, 30, 30, 360, 0, 0, 2560, 1440, 0,    // port 0
    1024, 576, 0, 0, 30, 25, 0, 0, 0, 1024, 576, 0,        // port 1
    768, 432, 0, 0, 30, 30, 0, 128, 72, 2304, 1296, 0,     // port 2
    2560, 1440, 0, 0, 30, 6, 0, 12, 6, 2536, 1428, 0,      // port 3
    320, 180, 0, 0, 25, 2, 0, 6, 4, 1012, 568, 0,          // extended port 0
    160, 90, 0, 0, 6, 3, 0, -1264, -711, 2528, 1422, 0,    // extended port 1
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  // no lens correction
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  //
    // encoders
    5,                                                 // count
    2560, 1440, 3686400, 60, 30, 30, 26000, 16000, 2,  // encoder 0
    1024, 576, 786432, 50, 25, 25, 3072, 1920, 3,      // encoder 1
    2560, 1440, 4194304, 1, 6, 6, 7000, 6000, 4,       // encoder 2
    160, 90, 49152, 2, 3, 1, 240, 190, 5,              // encoder 3
    320, 180, 114688, 4, 2, 1, 500, 390, 6, 0,         // encoder 4, reserved
};

// Media mode 2: 1080p at 60 fps, not corrected.
constexpr std::int32_t kMode2[] = {
    11, 0, 0, 1, 5, 2, 4, 3, 6, 0,                               // media mode, pipes
    4, 0,                                                        // pool count, reserved
    3110400, 0, 14, 0,                                           // pool 0
    1382400, 0, 8, 0,                                            // pool 1
    497664, 0, 6, 0,                                             // pool 2
    86400, 0, 7, 0,                                              // pool 3
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,              // pools 4 to 7, none
    3, 3, 0, 1920, 1080, 0, 2, 0,                                // sensor
    1920, 1080, 0, 270, 0, 0, 0, 267386880, 255, 0, 0,           // capture device
    1, 60, 60, 0, 0, Bits(59.94F), 1920, 1080, 0, 3, 9, 1, 850,  // pipe 0
    1920, 1080, 60, 60,                                          // its channel
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        // no lens correction
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        //
    1, 1600, 0, 0, 0, 0, 4,                                      // motion, AI denoise
    0, 60, 30, 0, 1, Bits(59.94F), 1280, 720, 0, 0, 10, 3, 600,  // pipe 1
    1280, 720, 60, 30,                                           // its channel
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        // no lens correction
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        //
    0, 1200, 0, 0, 1, 0, 3,                                      // motion, AI denoise
    0, -1, -1, 1, 2, Bits(25.0F), 960, 540, 0, 1, 11, 2, 400,    // pipe 2
    960, 540, 50, 25,                                            // its channel
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        // no lens correction
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        //
    1, 700, 0, 1, 1, 0, 2,                                       // motion, AI denoise
    0, -1, -1, 0, 3, Bits(7.5F), 480, 270, 0, 3, 12, 1, 200,     // pipe 3
    480, 270, 40, 8,                                             // its channel
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        // no lens correction
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        //
    0, 350, 0, 0, 0, 0, 1,                                       // motion, AI denoise
    // video processing
    1920, 1080, 60, 60, 0, 0, 1920, 1080,                  // processing group
    1920, 1080, 0, 0, 60, 60, 256, 0, 0, 1920, 1080, 0,    // port 0
    1280, 720, 0, 0, 60, 30, 0, 0, 0, 1280, 720, 0,        // port 1
    768, 432, 0, 0, 60, 30, 0, 96, 54, 1728, 972, 0,       // port 2
    1920, 1080, 0, 0, 60, 15, 0, 8, 4, 1904, 1072, 0,      // port 3
    320, 180, 0, 0, 30, 3, 0, 10, 5, 1260, 710, 0,         // extended port 0
    160, 90, 0, 0, 15, 2, 0, -944, -531, 1888, 1062, 0,    // extended port 1
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  // no lens correction
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  //
    // encoders
    5,                                                  // count
    1920, 1080, 3145728, 120, 60, 60, 30000, 18000, 1,  // encoder 0
    1280, 720, 983040, 60, 30, 30, 4000, 2400, 2,       // encoder 1
    1920, 1080, 2097152, 1, 15, 15, 6000, 5000, 3,      // encoder 2
    160, 90, 45056, 3, 2, 2, 230, 180, 4,               // encoder 3
    320, 180, 106496, 5, 3, 2, 480, 380, 5, 0,          // encoder 4, reserved
};

// Media mode 3: 1080p at 30 fps, not corrected.
constexpr std::int32_t kMode3[] = {
    7, 0, 3, 1, 4, 2, 2, 3, 1, 0,                                // media mode, pipes
    3, 0,                                                        // pool count, reserved
    3110400, 0, 8, 0,                                            // pool 0
    345600, 0, 6, 0,                                             // pool 1
    497664, 0, 4, 0,                                             // pool 2
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  // pools 3 to 7, none
    3, 4, 0, 1920, 1080, 0, 2, 0,                                // sensor
    1920, 1080, 0, 216, 0, 0, 0, 133169152, 127, 0, 0,           // capture device
    1, 30, 30, 0, 0, Bits(30.0F), 1920, 1080, 0, 3, 13, 3, 900,  // pipe 0
    1920, 1080, 30, 30,                                          // its channel
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        // no lens correction
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        //
    1, 1250, 0, 1, 1, 0, 3,                                      // motion, AI denoise
    0, 30, 10, 0, 1, Bits(27.5F), 1280, 720, 0, 3, 14, 1, 620,   // pipe 1
    1280, 720, 30, 10,                                           // its channel
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        // no lens correction
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        //
    1, 950, 0, 0, 0, 0, 2,                                       // motion, AI denoise
    0, -1, -1, 1, 2, Bits(22.5F), 720, 404, 0, 0, 15, 2, 340,    // pipe 2
    720, 404, 22, 11,                                            // its channel
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        // no lens correction
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        //
    0, 450, 0, 1, 0, 0, 4,                                       // motion, AI denoise
    0, -1, -1, 1, 3, Bits(5.0F), 400, 224, 0, 1, 16, 3, 160,     // pipe 3
    400, 224, 16, 4,                                             // its channel
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        // no lens correction
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,        //
    0, 250, 0, 0, 1, 0, 1,                                       // motion, AI denoise
    // video processing
    1920, 1080, 30, 30, 4, 2, 1912, 1076,                  // processing group
    1920, 1080, 0, 0, 30, 30, 128, 0, 0, 1920, 1080, 0,    // port 0
    640, 360, 0, 0, 30, 15, 64, 0, 0, 640, 360, 0,         // port 1
    768, 432, 0, 0, 30, 24, 0, 100, 56, 1720, 968, 0,      // port 2
    1920, 1080, 0, 0, 30, 10, 0, 20, 10, 1880, 1060, 0,    // port 3
    320, 180, 0, 0, 15, 1, 0, 3, 1, 634, 358, 0,           // extended port 0
    160, 90, 0, 0, 10, 1, 0, -936, -527, 1872, 1054, 0,    // extended port 1
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  // no lens correction
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  //
    // encoders
    5,                                                 // count
    1920, 1080, 2097152, 60, 30, 30, 16000, 10000, 3,  // encoder 0
    640, 360, 524288, 45, 15, 15, 1536, 1024, 1,       // encoder 1
    1920, 1080, 1966080, 1, 10, 10, 5500, 4500, 2,     // encoder 2
    160, 90, 40960, 4, 1, 1, 220, 170, 6,              // encoder 3
    320, 180, 98304, 6, 1, 1, 460, 370, 4, 0,          // encoder 4, reserved
};

// Media mode 4: photos of 2160p, lens corrected.
constexpr std::int32_t kMode4[] = {
    48, 0, 4, -1, 3, -1, 2, -1, 1, 0,                             // media mode, pipes
    6, 0,                                                         // pool count, reserved
    12441600, 0, 7, 0,                                            // pool 0
    1382400, 0, 5, 0,                                             // pool 1
    497664, 0, 4, 0,                                              // pool 2
    21600, 0, 3, 0,                                               // pool 3
    3110400, 0, 2, 0,                                             // pool 4
    345600, 0, 1, 0,                                              // pool 5
    0, 0, 0, 0, 0, 0, 0, 0,                                       // pools 6 to 7, none
    3, 5, 0, 3856, 2180, 0, 1, 0,                                 // sensor
    3848, 2168, 0, 436, 0, 0, 0, 66584576, 63, 0, 0,              // capture device
    1, 20, 20, 0, 0, Bits(20.0F), 3840, 2160, 0, 3, 17, 2, 1700,  // pipe 0
    3840, 2160, 20, 20,                                           // its channel
    1, 0, 77, 74, 80, -11, 6, -185,                               // first lens model
    0, 1, 47, 44, 52, 213958, 214021, 192164, 108047,             // third lens model
    99200, -1187, -30961, 2094, 11438, -559, -2277, 63, 291,      // its matrix
    99600, -1204, -30648, 2071, 11302, -543, -2236, 59, 279, 20,  // next matrix, ratio
    0, 400, 0, 1, 0, 0, 8,                                        // motion, AI denoise
    0, 20, 8, 0, 1, Bits(19.98F), 1920, 1080, 0, 1, 18, 1, 750,   // pipe 1
    1920, 1080, 20, 8,                                            // its channel
    1, 0, 77, 74, 80, -11, 6, -185,                               // first lens model
    0, 1, 47, 44, 52, 213958, 214021, 192164, 108047,             // third lens model
    99200, -1187, -30961, 2094, 11438, -559, -2277, 63, 291,      // its matrix
    99600, -1204, -30648, 2071, 11302, -543, -2236, 59, 279, 20,  // next matrix, ratio
    0, 360, 0, 0, 1, 0, 2,                                        // motion, AI denoise
    0, -1, -1, 1, 2, Bits(14.5F), 1280, 720, 0, 3, 19, 3, 300,    // pipe 2
    1280, 720, 14, 7,                                             // its channel
    1, 0, 77, 74, 80, -11, 6, -185,                               // first lens model
    0, 1, 47, 44, 52, 213958, 214021, 192164, 108047,             // third lens model
    99200, -1187, -30961, 2094, 11438, -559, -2277, 63, 291,      // its matrix
    99600, -1204, -30648, 2071, 11302, -543, -2236, 59, 279, 20,  // next matrix, ratio
    1, 280, 0, 0, 0, 0, 1,                                        // motion, AI denoise
    0, -1, -1, 0, 3, Bits(6.25F), 640, 360, 0, 1, 20, 2, 150,     // pipe 3
    640, 360, 12, 3,                                              // its channel
    1, 0, 77, 74, 80, -11, 6, -185,                               // first lens model
    0, 1, 47, 44, 52, 213958, 214021, 192164, 108047,             // third lens model
    99200, -1187, -30961, 2094, 11438, -559, -2277, 63, 291,      // its matrix
    99600, -1204, -30648, 2071, 11302, -543, -2236, 59, 279, 20,  // next matrix, ratio
    0, 240, 0, 1, 1, 0, 3,                                        // motion, AI denoise
    // video processing
    3840, 2160, 20, 20, 0, 0, 3840, 2160,                         // processing group
    3840, 2160, 0, 0, 20, 20, 0, 8, 6, 3824, 2148, 0,             // port 0
    1280, 720, 0, 0, 20, 20, 90, 0, 0, 1280, 720, 0,              // port 1
    768, 432, 0, 0, 20, 18, 0, 0, 0, 3840, 2160, 0,               // port 2
    1920, 1080, 0, 0, 20, 4, 0, -960, -540, 1920, 1080, 0,        // port 3
    160, 90, 0, 0, 20, 5, 0, 24, 12, 3792, 2136, 0,               // extended port 0
    640, 360, 0, 0, 20, 10, 0, 0, 0, 640, 360, 0,                 // extended port 1
    1, 0, 77, 74, 80, -11, 6, -185,                               // first lens model
    0, 1, 47, 44, 52, 213958, 214021, 192164, 108047,             // third lens model
    99200, -1187, -30961, 2094, 11438, -559, -2277, 63, 291,      // its matrix
    99600, -1204, -30648, 2071, 11302, -543, -2236, 59, 279, 20,  // next matrix, ratio
    // encoders
    3,                                                // count
    1280, 720, 917504, 40, 20, 20, 3500, 2200, 2,     // encoder 0
    3840, 2160, 9437184, 1, 20, 15, 12000, 11000, 1,  // encoder 1
    160, 90, 57344, 2, 5, 5, 300, 210, 3,             // encoder 2
    0, 0, 0, 0, 0, 0, 0, 0, 0,                        // encoder 3, read from defaults
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0,                     // encoder 4, not read, reserved
};

TEST_F(DashcamCamera, MediaMode0ByHand) {
    ExpectWords(13160, kMode0);
}

TEST_F(DashcamCamera, MediaMode1ByHand) {
    ExpectWords(15024, kMode1);
}

TEST_F(DashcamCamera, MediaMode2ByHand) {
    ExpectWords(16888, kMode2);
}

TEST_F(DashcamCamera, MediaMode3ByHand) {
    ExpectWords(18752, kMode3);
}

TEST_F(DashcamCamera, MediaMode4ByHand) {
    ExpectWords(20616, kMode4);
}

// The words above are all words of the media modes.
static_assert(sizeof kMode0 + sizeof kMode1 + sizeof kMode2 + sizeof kMode3 + sizeof kMode4 ==
              5 * 1864);

}  // namespace
}  // namespace paramgen::testing
