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
const image::Image& Base(bool isProduct) {
    static const image::Image product = decompile::Solve(image::Image{}, {}).image;
    static const image::Image zeros = {};
    return isProduct ? product : zeros;
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

/// The values whose bytes are not those of `base`. Only these are dumped: a dump of all of them
/// takes ten times as long as everything else, and is nearly the same for every input.
std::vector<image::Entry> ChangedEntries(const image::Image& base, const image::Image& image) {
    std::vector<image::Entry> entries;
    for (const layout::Value& value : layout::Values()) {
        const auto before = image::BytesOf(base, value);
        if (std::memcmp(before.data(), image::BytesOf(image, value).data(), value.size) != 0) {
            entries.push_back(image::EntryOf(image, value));
        }
    }
    return entries;
}

/// Expects that changed values are dumped, and that differences from the base are listed.
void CheckTold(const image::Image& image) {
    const image::Input before = {.argument = "",
                                 .isTree = false,
                                 .image = Base(true),
                                 .compilation = std::nullopt,
                                 .remarks = {}};
    image::Input after = before;
    after.image = image;
    const std::vector<image::Entry> entries = ChangedEntries(before.image, image);
    for (const image::Entry& entry : entries) {
        Require(entry.raw.size() == entry.value->size * 2, "all bytes are told");
        static_cast<void>(image::IsRead(image, *entry.value));
    }
    Require(output::Json::accept(output::Dumped(image::JsonDump(image, entries))),
            "a dump is valid JSON");
    static_cast<void>(image::TextDump(entries));
    static_cast<void>(image::CsvDump(entries));
    const auto differences = image::Differences(before, after);
    Require(differences.empty() == (before.image == image), "what differs is told");
    static_cast<void>(image::TextDiff(differences, {}));
    static_cast<void>(image::MarkdownDiff(differences, {}));
}

/// Expects that the decompiled tree gives the image again, except for the bytes that are listed as
/// lost. Returns what the tree makes.
image::Image CheckDecompiled(const image::Image& image, bool all) {
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
    return result.image;
}

/// Expects that a tree's own image can be decompiled without loss.
void CheckComesBack(const image::Image& made, bool all) {
    const decompile::Decompiled again =
        decompile::Decompile(made, {.all = all, .like = std::nullopt});
    Require(again.lost.empty() && again.image == made, "what a tree makes comes back");
}

}  // namespace
}  // namespace paramgen::testing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    paramgen::testing::SilenceOutput();
    const paramgen::image::Image image =
        paramgen::testing::Patched(paramgen::testing::Input(data, size));
    const bool all = size % 2 == 0;
    paramgen::testing::CheckTold(image);
    const paramgen::image::Image made = paramgen::testing::CheckDecompiled(image, all);
    if (size % 8 < 2) {  // it takes half of the time, and seldom sees something new
        paramgen::testing::CheckComesBack(made, !all);
    }
    return 0;
}
