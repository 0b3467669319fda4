/// What a report shows of an image or a tree.
#pragma once

#include <optional>

#include "check/check.h"
#include "image/input.h"
#include "report/page.h"

namespace paramgen::paramtool {

/// What a report is made from.
struct ReportInput {
    image::Input input;
    std::optional<image::Input> against;    ///< what it is compared with
    std::optional<check::Verdict> verdict;  ///< of a tree
};

report::Page MakePage(const ReportInput& given);

}  // namespace paramgen::paramtool
