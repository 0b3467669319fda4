/// Makes the tables of docs/format.md.
#pragma once

#include <string>
#include <string_view>

namespace paramgen::layout {

/// A Markdown table of the part of the image whose member path is `part` ("devMng",
/// "workMode.record"). It has one line for each pattern of keys and for each member without a key;
/// all elements of an array share a line, and so do equal rows of several modules. Offsets are in
/// bytes from the image's start.
std::string FormatTable(std::string_view part);

}  // namespace paramgen::layout
