/// Places in a tree, for findings.
#pragma once

#include "diagnostics/finding.h"
#include "tree/product.h"

namespace paramgen::diagnostics {

/// The file as a whole.
Place PlaceOf(const tree::FoundFile& file);

/// A part of a line of a file.
Place PlaceOf(const tree::FoundFile& file, const tree::Line& line, tree::Span part);

/// The place in the order of files of `file` in the product: the entry file comes first.
std::uint32_t OrderOf(const tree::Product& product, const tree::FoundFile& file);

}  // namespace paramgen::diagnostics
