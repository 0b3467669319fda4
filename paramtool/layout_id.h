/// The id of the image's layout, made when the program is built.
#pragma once

namespace paramgen::paramtool {

/// What `manual::LayoutId` returns.
extern const char kLayoutId[];

}  // namespace paramgen::paramtool
