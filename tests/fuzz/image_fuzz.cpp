// Arbitrary images are dumped, compared and decompiled.
//
// An input is a list of patches to an image. A patch is an offset of two bytes, a size of one byte,
// and that many bytes.

#include <algorithm>
#include <cstring>
#include <string>

#include "decompile/decompile.h"
#include "decompile/solver.h"
#include "fuzz/fuzz.h"
#include "image/diff.h"
#include "image/dump.h"
#include "tree/ini_file.h"

namespace paramgen::testing {
namespace {

/// The image that patches are applied to: that of a product without keys, or zeros.
image::Image Base(bool isProduct) {
    static const image::Image product = decompile::Solve(image::Image{}, {}).image;
    return isProduct ? product : image::Image{};
}

image::Image Patched(Input input) {
    image::Image image = Base(input.Byte() % 2 == 0);
    while (!input.IsEmpty()) {
        const std::size_t at = input.Word() % image.size();
        const std::size_t size = std::min<std::size_t>(input.Byte(), image.size() - at);
        for (std::size_t i = 0; i < size; ++i) {
            image[at + i] = static_cast<std::byte>(input.Byte());
        }
    }
    return image;
}

/// Expects that a dump shows every byte, and that differences from the base are listed.
void CheckTold(const image::Image& image) {
    std::size_t bytes = 0;
    for (const image::Entry& entry : image::Entries(image)) {
        bytes += entry.raw.size() / 2;
        static_cast<void>(image::IsRead(image, *entry.value));
    }
    Require(bytes == image.size(), "every byte is told");
    Require(output::Json::accept(output::Dumped(image::JsonDump(image, image::Entries(image)))),
            "a dump is valid JSON");
    const image::Input before = {.argument = "",
                                 .isTree = false,
                                 .image = Base(true),
                                 .compilation = std::nullopt,
                                 .remarks = {}};
    image::Input after = before;
    after.image = image;
    const auto differences = image::Differences(before, after);
    Require(differences.empty() == (before.image == image), "what differs is told");
    static_cast<void>(image::TextDiff(differences, {}));
    static_cast<void>(image::MarkdownDiff(differences, {}));
}

/// Expects that the decompiled tree gives the image again, except for the bytes that are listed as
/// lost.
void CheckDecompiled(const image::Image& image, bool all) {
    const decompile::Decompiled result =
        decompile::Decompile(image, {.all = all, .like = std::nullopt});
    std::size_t lost = 0;
    for (const decompile::Lost& loss : result.lost) {
        lost += loss.size;
    }
    std::size_t differ = 0;
    for (std::size_t at = 0; at < image.size(); ++at) {
        differ += result.image[at] == image[at] ? 0 : 1;
    }
    Require(differ <= lost && (differ == 0) == (lost == 0), "just what is lost is told");
    for (const decompile::TreeFile& file : result.files) {
        Require(tree::IniFile(file.bytes).IsAccepted(), "files are INI files");
    }
    // The tree's own image can be decompiled without loss.
    const decompile::Decompiled again =
        decompile::Decompile(result.image, {.all = !all, .like = std::nullopt});
    Require(again.lost.empty(), "what a tree makes comes back");
}

}  // namespace
}  // namespace paramgen::testing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    paramgen::testing::SilenceOutput();
    const paramgen::image::Image image =
        paramgen::testing::Patched(paramgen::testing::Input(data, size));
    paramgen::testing::CheckTold(image);
    paramgen::testing::CheckDecompiled(image, size % 2 == 0);
    return 0;
}
