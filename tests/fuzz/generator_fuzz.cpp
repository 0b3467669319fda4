// The whole generator, from INI files to the image.

#include <algorithm>
#include <cstring>

#include "fuzz/fuzz.h"
#include "fuzz/product.h"
#include "generator/image.h"
#include "log/console_log.h"

namespace paramgen::testing {
namespace {

/// Whether the bytes around the sections are unchanged.
bool IsFrameWhole() {
    const auto isZero = [](std::byte byte) { return byte == std::byte{0}; };
    return g_image.header.magic == 0x70617261 && g_image.header.totalSize == 29928 &&
           std::all_of(std::begin(g_image.header.reserved), std::end(g_image.header.reserved),
                       isZero) &&
           std::all_of(std::begin(g_image.gap), std::end(g_image.gap), isZero) &&
           std::memcmp(&g_image.tail, "mrap\0\0\0\0", 8) == 0;
}

std::int32_t Load() {
    const std::int32_t status = LoadProduct();
    Require(IsFrameWhole(), "no section writes outside");
    return status;
}

}  // namespace
}  // namespace paramgen::testing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace paramgen;
    if (!testing::PrepareProduct({data, size})) {
        return 0;
    }
    const testing::InFuzzDirectory working;

    // Formatting records takes most of the time, so it is done for one product in eight.
    ConsoleLogSetup(size % 8 == 0 ? 1 : 0, 0, kConsoleDebug);
    const std::int32_t status = testing::Load();
    if (size % 64 == 0) {
        static ParamImage first;
        first = g_image;
        testing::Require(testing::Load() == status, "a run ends as the one before");
        testing::Require(std::memcmp(&first, &g_image, sizeof first) == 0,
                         "a run makes what the one before made");
    }
    return 0;
}
