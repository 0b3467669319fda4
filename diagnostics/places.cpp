#include "diagnostics/places.h"

#include <algorithm>

namespace paramgen::diagnostics {
namespace {

/// More of a line than this is not kept: lines may have any length.
constexpr std::size_t kSourceMax = 1023;

std::string WithoutDots(std::string_view path) {
    while (path.starts_with("./")) {
        path.remove_prefix(2);
    }
    return std::string(path);
}

}  // namespace

Place PlaceOf(const tree::FoundFile& file) {
    Place place;
    place.file = file.shown;
    place.path = WithoutDots(file.inTree);
    return place;
}

Place PlaceOf(const tree::FoundFile& file, const tree::Line& line, tree::Span part) {
    Place place = PlaceOf(file);
    place.line = line.number;
    place.column = part.begin - line.text.begin + 1;
    place.endColumn = std::max(part.end, part.begin) - line.text.begin + 1;
    place.source = file.ini->TextOf(line.text).substr(0, kSourceMax);
    return place;
}

std::uint32_t OrderOf(const tree::Product& product, const tree::FoundFile& file) {
    const auto& files = product.files();
    const auto found = std::find_if(files.begin(), files.end(),
                                    [&](const auto& each) { return each.get() == &file; });
    return found == files.end() ? 0 : static_cast<std::uint32_t>(found - files.begin()) + 1;
}

}  // namespace paramgen::diagnostics
