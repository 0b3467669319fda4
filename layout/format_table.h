/// The tables of the page that describes the image.
#pragma once

#include <string>
#include <string_view>

namespace paramgen::layout {

/// A Markdown table of everything in the part of the image that the member `part` names ("devMng",
/// "workMode.record"): one line for each row of keys and for each member without a key. Elements of
/// arrays are one line; so are rows that several modules have. Offsets are the image's.
std::string FormatTable(std::string_view part);

}  // namespace paramgen::layout
