// The camera of the example product without its media modes: every word, as its INI files set it.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <span>

#include "golden/dashcam_camera.h"

namespace paramgen::testing {
namespace {

constexpr std::int32_t kSwitches[] = {
    0,        // camera index
    1, 1, 1,  // enabled, overlays, video mode
};

// The words of a pipeline, line by line:
// - capture device: enabled, handle, WDR, input and interface mode, data sequence, input data type
// - pipe: handle, type, low delay and its line
// - its channel: enabled, handle, pixel format, rotation, flip, mirror, brightness, saturation, low
//   delay and its line, first lens model, lens correction
// - processing group: enabled, handle, pipe, channel, pixel format, noise reduction; a reserved
//   word, noise reduction type, compression and motion mode, first lens model, lens correction
// - port: enabled, handle, rotation, flip, mirror, crop, shared buffers, controlled by the display,
//   video format, pixel format, low delay and its line
// - extended port: enabled, handle, source port, crop, video format, pixel format, low delay and
//   its line
// - encoder: enabled, handle, by frame, source module, source count, four module handles, four
//   channel handles; payload, rate control, type; intra refresh: on, mode, count, QP of an I frame
// - display window crop: enabled, largest and current height, mode

// Recording: five encoders.
constexpr std::int32_t kRecord[] = {
    1, 1, 1, 2, 5, 3, 4,                                         // capture device
    0, 1, 1, 540,                                                // pipe 0
    1, 1, 0, 0, 0, 0, 52, 56, 0, 0, 0, 0,                        // its channel
    1, 1, 0, 128,                                                // pipe 1
    0, 2, 0, 0, 0, 0, 51, 55, 1, 96, 0, 0,                       // its channel
    2, 2, 0, 64,                                                 // pipe 2
    0, 3, 1, 1, 0, 1, 49, 48, 0, 48, 1, 0,                       // its channel
    3, 2, 0, 32,                                                 // pipe 3
    0, 4, 1, 3, 1, 0, 47, 46, 0, 24, 1, 0,                       // its channel
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  // AI noise reduction, no keys
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,     //
    // video processing
    1, 0, 0, 1, 0, 1,                      // processing group
    0, 2, 1, 3, 0, 1,                      // reserved, noise reduction, lens correction
    1, 0, 0, 0, 0, 0, 1, 0, 2, 0, 1, 270,  // port 0
    1, 1, 0, 0, 0, 0, 0, 0, 1, 0, 0, 128,  // port 1
    1, 2, 2, 0, 0, 1, 0, 1, 0, 0, 0, 36,   // port 2
    1, 3, 0, 0, 0, 0, 1, 0, 0, 0, 0, 72,   // port 3
    1, 4, 1, 0, 0, 0, 0, 18,               // extended port 0
    1, 5, 3, 1, 0, 0, 0, 9,                // extended port 1
    // encoders
    5,                                      // count
    1, 0, 0, 2, 1, 0, 0, 0, 0, 0, 0, 0, 0,  // encoder 0 and its sources
    1, 1, 0, 1, 0, 3, 28,                   // its stream, its intra refresh
    1, 1, 1, 2, 1, 0, 0, 0, 0, 1, 0, 0, 0,  // encoder 1 and its sources
    0, 0, 1, 1, 1, 5, 31,                   // its stream, its intra refresh
    1, 2, 1, 2, 2, 0, 0, 0, 0, 3, 0, 0, 0,  // encoder 2 and its sources
    3, 0, 2, 0, 0, 2, 24,                   // its stream, its intra refresh
    1, 3, 1, 2, 1, 0, 0, 0, 0, 5, 0, 0, 0,  // encoder 3 and its sources
    3, 0, 3, 0, 1, 4, 26,                   // its stream, its intra refresh
    1, 4, 1, 2, 1, 0, 0, 0, 0, 4, 0, 0, 0,  // encoder 4 and its sources
    2, 0, 3, 0, 0, 6, 27,                   // its stream, its intra refresh
    1, 432, 360, 1,                         // display window crop
};

// Photos: three encoders. The fourth is loaded, but not counted.
constexpr std::int32_t kPhoto[] = {
    1, 1, 0, 2, 5, 3, 4,                                         // capture device
    0, 1, 0, 200,                                                // pipe 0
    1, 1, 0, 0, 0, 0, 53, 58, 0, 180, 1, 1,                      // its channel
    1, 1, 0, 160,                                                // pipe 1
    0, 2, 0, 0, 0, 1, 50, 54, 0, 90, 0, 0,                       // its channel
    2, 2, 0, 80,                                                 // pipe 2
    0, 3, 1, 1, 0, 0, 48, 47, 0, 45, 0, 0,                       // its channel
    3, 2, 1, 40,                                                 // pipe 3
    0, 4, 1, 3, 1, 1, 46, 45, 1, 22, 0, 0,                       // its channel
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  // AI noise reduction, no keys
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,     //
    // video processing
    1, 1, 0, 1, 0, 1,                      // processing group
    0, 4, 2, 1, 0, 0,                      // reserved, noise reduction, lens correction
    1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 144,  // port 0
    1, 1, 0, 0, 0, 0, 0, 0, 1, 0, 1, 60,   // port 1
    1, 2, 2, 0, 0, 0, 0, 1, 0, 0, 0, 54,   // port 2
    0, 3, 1, 0, 1, 1, 0, 0, 2, 1, 0, 27,   // port 3
    1, 4, 0, 1, 0, 0, 1, 12,               // extended port 0
    0, 5, 1, 0, 1, 1, 0, 6,                // extended port 1
    // encoders
    3,                                                           // count
    1, 1, 1, 2, 1, 1, 0, 0, 0, 1, 0, 0, 0,                       // encoder 0 and its sources
    0, 0, 1, 1, 1, 7, 33,                                        // its stream, its intra refresh
    1, 2, 1, 2, 1, 1, 0, 0, 0, 0, 0, 0, 0,                       // encoder 1 and its sources
    3, 1, 2, 0, 0, 8, 22,                                        // its stream, its intra refresh
    1, 3, 0, 2, 2, 1, 1, 0, 0, 4, 2, 0, 0,                       // encoder 2 and its sources
    3, 0, 3, 0, 1, 9, 25,                                        // its stream, its intra refresh
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  // encoder 3, read from defaults
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  // encoder 4, not read
    0, 432, 432, 2,                                              // display window crop
};

// Playback: no capture, one encoder. The second is loaded, but not counted.
constexpr std::int32_t kPlayback[] = {
    0, 1, 0, 0, 0, 0, 0,                                         // capture device
    -1, 1, 0, 0,                                                 // pipe 0
    0, -1, 0, 0, 0, 0, 50, 50, 0, 0, 0, 0,                       // its channel
    -1, 0, 0, 0,                                                 // pipe 1
    0, -1, 0, 0, 0, 0, 50, 50, 0, 0, 0, 0,                       // its channel
    -1, 0, 0, 0,                                                 // pipe 2
    0, -1, 0, 0, 0, 0, 50, 50, 0, 0, 0, 0,                       // its channel
    -1, 0, 0, 0,                                                 // pipe 3
    0, -1, 0, 0, 0, 0, 50, 50, 0, 0, 0, 0,                       // its channel
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  // AI noise reduction, no keys
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,     //
    // video processing
    1, 2, -1, -1, 0, 0,                   // processing group
    0, 0, 1, 0, 0, 0,                     // reserved, noise reduction, lens correction
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,   // port 0
    0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,   // port 1
    1, 2, 0, 0, 0, 1, 1, 1, 0, 0, 0, 16,  // port 2
    1, 3, 0, 0, 0, 0, 0, 0, 1, 0, 0, 8,   // port 3
    1, 4, 2, 0, 0, 0, 0, 0,               // extended port 0
    0, 5, -1, 0, 0, 0, 0, 0,              // extended port 1
    // encoders
    1,                                                           // count
    0, 5, 1, 2, 1, 2, 0, 0, 0, 3, 0, 0, 0,                       // encoder 0 and its sources
    3, 0, 2, 0, 0, 0, 23,                                        // its stream, its intra refresh
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  // encoder 1, read from defaults
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  // encoder 2, not read
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  // encoder 3, not read
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,  // encoder 4, not read
    1, 480, 400, 3,                                              // display window crop
};

// The reserved word before the media modes.
constexpr std::int32_t kGap[] = {0};

TEST_F(DashcamCamera, SwitchesAndGapByHand) {
    ExpectWords(9648, kSwitches);
    ExpectWords(13156, kGap);
}

TEST_F(DashcamCamera, RecordPipelineByHand) {
    ExpectWords(9664, kRecord);
}

TEST_F(DashcamCamera, PhotoPipelineByHand) {
    ExpectWords(10828, kPhoto);
}

TEST_F(DashcamCamera, PlaybackPipelineByHand) {
    ExpectWords(11992, kPlayback);
}

// The words above are all words of the camera before its media modes.
static_assert(sizeof kSwitches + sizeof kRecord + sizeof kPhoto + sizeof kPlayback + sizeof kGap ==
              3512);

}  // namespace
}  // namespace paramgen::testing
