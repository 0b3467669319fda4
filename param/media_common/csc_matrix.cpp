#include "param/media_common/csc_matrix.h"

#include "param/common/param_log.h"

namespace paramgen {

constexpr char kPrefix[] = "QX_MAPI_DISP_CSC_MATRIX_";

constexpr NamedNumber<kPrefix, 24> kCscMatrices[] = {
    {"QX_MAPI_DISP_CSC_MATRIX_BT601LIMIT_TO_BT601LIMIT", kCscMatrixBt601LimitToBt601Limit},
    {"QX_MAPI_DISP_CSC_MATRIX_BT601LIMIT_TO_BT709LIMIT", kCscMatrixBt601LimitToBt709Limit},
    {"QX_MAPI_DISP_CSC_MATRIX_BT709LIMIT_TO_BT601LIMIT", kCscMatrixBt709LimitToBt601Limit},
    {"QX_MAPI_DISP_CSC_MATRIX_BT601LIMIT_TO_RGBLIMIT", kCscMatrixBt601LimitToRgbLimit},
    {"QX_MAPI_DISP_CSC_MATRIX_BT709LIMIT_TO_RGBLIMIT", kCscMatrixBt709LimitToRgbLimit},
    {"QX_MAPI_DISP_CSC_MATRIX_RGBFULL_TO_BT601LIMIT", kCscMatrixRgbFullToBt601Limit},
    {"QX_MAPI_DISP_CSC_MATRIX_RGBFULL_TO_BT709LIMIT", kCscMatrixRgbFullToBt709Limit},
    {"QX_MAPI_DISP_CSC_MATRIX_BT601FULL_TO_RGBFULL", kCscMatrixBt601FullToRgbFull},
    {"QX_MAPI_DISP_CSC_MATRIX_BT709FULL_TO_RGBFULL", kCscMatrixBt709FullToRgbFull},
};

constexpr NameTable kCscMatrixNames(kCscMatrices);

Status PDT_INIPARAM_GetMediaCommCSCMatrixEnum(const char* name, CscMatrix* matrix) {
    std::int32_t number = 0;
    if (!FindNumber(kCscMatrices, name, &number)) {
        LOG_ERROR("Invalid CSCMatrix[%s]\n", name);
        return kFailed;
    }
    *matrix = static_cast<CscMatrix>(number);
    LOG_DEBUG("    CSCMatrix[%s] Enum[%d]\n", name, *matrix);
    return kOk;
}

}  // namespace paramgen
