// The value set section: what the menus offer.

#include "golden/independent_sections.h"

namespace paramgen::testing::independent {
namespace {

void PlaceNumbers(Placer& put, std::size_t at, const std::string& item) {
    const std::uint32_t count = put.Count(at + 0, item + ":num", 10, Above::kIsWrong);
    for (std::size_t k = 0; k < count && !put.Failed(); ++k) {
        put.Text(at + 4 + 16 * k, 12, item + ":description" + N(k));
        put.U32(at + 16 + 16 * k, item + ":value" + N(k));
    }
}

void PlaceModes(Placer& put, std::size_t at, const std::string& item) {
    const std::uint32_t count = put.Count(at + 0, item + ":num", 10, Above::kIsWrong);
    for (std::size_t k = 0; k < count && !put.Failed(); ++k) {
        put.Text(at + 4 + 16 * k, 12, item + ":description" + N(k));
        put.Mode(at + 16 + 16 * k, item + ":value" + N(k));
    }
}

/// Times are in seconds in the file, and in milliseconds in the image.
void PlaceTimes(Placer& put, std::size_t at, const std::string& item) {
    PlaceNumbers(put, at, item);
    for (std::size_t k = 0; k < put.At(at + 0) && !put.Failed(); ++k) {
        put.Word(at + 16 + 16 * k, put.At(at + 16 + 16 * k) * 1000);
    }
}

}  // namespace

void PlaceValueSets(Placer put, std::size_t at) {
    PlaceNumbers(put, at + 0, "cam.0.enc.payloadtype");
    PlaceModes(put, at + 492, "cam.0.mediamode.record");
    PlaceModes(put, at + 656, "cam.0.mediamode.photo");
    PlaceNumbers(put, at + 1640, "cam.0.wdr.status");
    PlaceNumbers(put, at + 1804, "cam.0.video.mode");
    PlaceNumbers(put, at + 1968, "cam.0.ldc.status");
    PlaceNumbers(put, at + 2132, "cam.0.flip.status");
    PlaceNumbers(put, at + 2296, "cam.0.mirror.status");
    PlaceNumbers(put, at + 2460, "cam.0.antiflicker.mode");
    PlaceTimes(put, at + 164, "screen.dormant");
    PlaceNumbers(put, at + 328, "screen.brightness");
    PlaceNumbers(put, at + 820, "volume");
    PlaceNumbers(put, at + 984, "drive_sensitivity");
    PlaceNumbers(put, at + 1148, "parking_sensitivity");
    PlaceNumbers(put, at + 1312, "usb.mode");
    PlaceNumbers(put, at + 1476, "system.language");
    PlaceNumbers(put, at + 2624, "splite_time");
    PlaceNumbers(put, at + 2788, "record.lapse.interval");
    PlaceNumbers(put, at + 2952, "record.type");
    PlaceNumbers(put, at + 3280, "photo.type");
    PlaceNumbers(put, at + 3444, "cam.0.singlephoto.outputformat");
    PlaceNumbers(put, at + 3608, "cam.0.lapsephoto.interval");
    PlaceModes(put, at + 3772, "cam.0.burst.mediamode");
    for (std::size_t t = 0; t < put.At(at + 3772) && !put.Failed(); ++t) {
        PlaceNumbers(put, at + 3936 + 164 * t, "cam.0.burst.type" + N(t));
    }
}

}  // namespace paramgen::testing::independent
