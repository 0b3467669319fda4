/// Colour-space conversion matrices of a display. INI files hold their names, the image their
/// numbers.
#pragma once

#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field_traits.h"
#include "param/common/names.h"

namespace paramgen {

/// The number of a matrix. The numbers are those of the display library and part of the image's
/// format.
enum CscMatrix : std::int32_t {
    kCscMatrixBt601LimitToBt601Limit = 0,
    kCscMatrixBt709LimitToBt601Limit = 2,
    kCscMatrixBt601LimitToBt709Limit = 4,
    kCscMatrixBt601FullToRgbFull = 17,
    kCscMatrixBt709FullToRgbFull = 19,
    kCscMatrixBt601LimitToRgbLimit = 20,
    kCscMatrixBt709LimitToRgbLimit = 22,
    kCscMatrixRgbFullToBt601Limit = 24,
    kCscMatrixRgbFullToBt709Limit = 26,
};

/// The names of all matrices.
extern const NameTable kCscMatrixNames;

/// Stores the number of the matrix called `name`, and echoes both. The comparison is
/// case-sensitive. For an unknown name, and for null, logs an error, stores nothing and returns -1.
[[nodiscard]] Status PDT_INIPARAM_GetMediaCommCSCMatrixEnum(const char* name, CscMatrix* matrix);

/// A matrix member is read by name.
template <>
struct FieldTraits<CscMatrix> {
    static constexpr FieldKind kKind = FieldKind::kName;
    static constexpr NameLookup Lookup =
        LookUpNumber<CscMatrix, PDT_INIPARAM_GetMediaCommCSCMatrixEnum>;
    static constexpr const NameTable* kNames = &kCscMatrixNames;
};

}  // namespace paramgen
