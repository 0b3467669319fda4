/// Hierarchical QP: the differences of the quantisation parameter between the layers of a group of
/// pictures.
///
/// The loader takes the module to read and the record to fill; it returns 0, or the code of the
/// first step that failed, having logged it. What was loaded before a failure stays. A null record
/// fails with -1. No value is checked for its range.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/common/values.h"

namespace paramgen {

inline constexpr std::uint32_t kQpLayerCount = 4;

/// Hierarchical QP. 36 bytes.
struct HierarchicalQpAttr {
    Bool32 enable;
    std::int32_t qpDelta[kQpLayerCount];
    std::int32_t frameNum[kQpLayerCount];
};
static_assert(sizeof(HierarchicalQpAttr) == 36);
static_assert(offsetof(HierarchicalQpAttr, qpDelta) == 4);
static_assert(offsetof(HierarchicalQpAttr, frameNum) == 20);

extern const TableOf<HierarchicalQpAttr> kHierarchicalQpTable;

/// Loads the hierarchical QP.
[[nodiscard]] Status PDT_INIPARAM_LoadMediaCommVencHierarchicalQp(const char* module,
                                                                  HierarchicalQpAttr* attr);

}  // namespace paramgen
