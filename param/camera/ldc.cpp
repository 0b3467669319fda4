#include "param/camera/ldc.h"

#include "confaccess/confaccess.h"
#include "param/camera/module_mode.h"
#include "param/common/key.h"
#include "param/common/propagate.h"
#include "param/common/readers.h"

namespace paramgen {

constexpr char kV1Node[] = "LDCV1Attr";
constexpr char kV3Node[] = "LDCV3Attr";

constexpr Field kLdcV1Fields[] = {
    FIELD(LdcV1Attr, aspect, "aspect", 0)
        .About("The correction keeps the aspect ratio of the picture"),
    FIELD(LdcV1Attr, xRatio, "xratio", 0).About("Horizontal field of view that is kept").Unit("%"),
    FIELD(LdcV1Attr, yRatio, "yratio", 0).About("Vertical field of view that is kept").Unit("%"),
    FIELD(LdcV1Attr, xyRatio, "xyratio", 0)
        .About("Field of view that is kept when the aspect ratio is")
        .Unit("%"),
    FIELD(LdcV1Attr, centerXOffset, "centerxoffset", 0)
        .About("Horizontal offset of the distortion centre")
        .Unit("px"),
    FIELD(LdcV1Attr, centerYOffset, "centeryoffset", 0)
        .About("Vertical offset of the distortion centre")
        .Unit("px"),
    FIELD(LdcV1Attr, distortionRatio, "distortionratio", 0)
        .About("Strength of the distortion; negative for barrel distortion"),
};

constexpr Field kLdcV3Fields[] = {
    FIELD(LdcV3Attr, aspect, "aspect", 0)
        .About("The correction keeps the aspect ratio of the picture"),
    FIELD(LdcV3Attr, xRatio, "xratio", 0)
        .Label("x_ratio")
        .About("Horizontal field of view that is kept")
        .Unit("%"),
    FIELD(LdcV3Attr, yRatio, "yratio", 0)
        .Label("y_ratio")
        .About("Vertical field of view that is kept")
        .Unit("%"),
    FIELD(LdcV3Attr, xyRatio, "xyratio", 0)
        .Label("xy_ratio")
        .About("Field of view that is kept when the aspect ratio is")
        .Unit("%"),
    FIELD(LdcV3Attr, focalLenX, "focal_len_x", 0).About("Horizontal focal length").Unit("1/100 px"),
    FIELD(LdcV3Attr, focalLenY, "focal_len_y", 0).About("Vertical focal length").Unit("1/100 px"),
    FIELD(LdcV3Attr, coordShiftX, "coord_shift_x", 0)
        .About("Horizontal shift of the origin of coordinates")
        .Unit("1/100 px"),
    FIELD(LdcV3Attr, coordShiftY, "coord_shift_y", 0)
        .About("Vertical shift of the origin of coordinates")
        .Unit("1/100 px"),
    FIELD(LdcV3Attr, coefIntpRatio, "coef_intp_ratio", 0)
        .About("Part of the next calibration in the blend of the two")
        .Unit("%"),
    // Element by element: of each number the next calibration's comes first.
    QUERY(LdcV3Attr, srcCalibrationRatioNext, "src_calibration_ratio_next%d", 0)
        .About("Coefficient of the next calibration")
        .Unit("1/100000"),
    QUERY(LdcV3Attr, srcCalibrationRatio, "src_calibration_ratio%d", 0)
        .About("Coefficient of the calibration")
        .Unit("1/100000"),
};

constexpr TableOf<LdcV1Attr> kLdcV1Table{kV1Node, kLdcV1Fields};
constexpr TableOf<LdcV3Attr> kLdcV3Table{kV3Node, kLdcV3Fields};

constexpr Field kVcapLDCFields[] = {
    FIELD(VcapLDCAttr, v1Enable, "enable", 0)
        .Under(kV1Node)
        .About("Correction by the first model is on"),
    RECORD(VcapLDCAttr, v1, kLdcV1Table),
    FIELD(VcapLDCAttr, v3Enable, "enable", 0)
        .Under(kV3Node)
        .About("Correction by the third model is on"),
    RECORD(VcapLDCAttr, v3, kLdcV3Table),
};

constexpr TableOf<VcapLDCAttr> kVcapLDCTable{nullptr, kVcapLDCFields};

namespace {

constexpr std::uint32_t kLdcCamera = kLdcSearch.camera;
constexpr std::uint32_t kLdcModuleCount = kLdcSearch.count;

/// A search for the module that serves a media mode.
struct LdcSearch {
    MediaMode wanted;
    MediaMode served = kMediaModeNone;  ///< a module that names no mode takes over the last one's
    Key module = {};                    ///< the module looked at
    const char* step = nullptr;         ///< the last step, as a failure is labelled
    bool matches = false;               ///< the module serves the wanted mode
};

/// Looks at `search->module`. The caller labels a failure with `search->step`.
Status LookAtLdcModule(LdcSearch* search) {
    const char* module = search->module.c_str();
    std::int32_t exists = 0;
    search->step = module;
    Status status = ZV_CONFACCESS_IsMoudleExist(kProductConfig, module, &exists);
    if (status == kOk && exists != 0) {
        search->step = kLdcSearch.key;
        status = ReadModuleMode(module, kLdcSearch.key, &search->served);
    }
    search->matches = exists != 0 && search->served == search->wanted;
    return status;
}

}  // namespace

Status PDT_INIPARAM_LoadLDCV1Attr(const char* module, LdcV1Attr* attr) {
    LOAD_OR_RETURN(module, kV1Node, kLdcV1Table, attr);
    LOG_DEBUG("ldc attr,aspect[%d],xratio[%d],yratio[%d],xyratio[%d]\n", attr->aspect, attr->xRatio,
              attr->yRatio, attr->xyRatio);
    LOG_DEBUG("centeroffset x[%d] y[%d], distortionratio[%d] \n", attr->centerXOffset,
              attr->centerYOffset, attr->distortionRatio);
    return kOk;
}

Status PDT_INIPARAM_LoadCamLDCV3MatrixCfg(const char* module, LdcV3Attr* attr) {
    for (std::uint32_t i = 0; i < kLdcCalibrationCount; ++i) {
        LOAD_ELEMENT_OR_RETURN(module, kV3Node, ROW(kLdcV3Table, srcCalibrationRatioNext), i, attr);
        LOG_DEBUG("src_calibration_ratio_next%d = %d\n", i, attr->srcCalibrationRatioNext[i]);
        LOAD_ELEMENT_OR_RETURN(module, kV3Node, ROW(kLdcV3Table, srcCalibrationRatio), i, attr);
        LOG_DEBUG("src_calibration_ratio%d = %d\n", i, attr->srcCalibrationRatio[i]);
    }
    return kOk;
}

Status PDT_INIPARAM_LoadLDCV3Attr(const char* module, LdcV3Attr* attr) {
    LOAD_OR_RETURN(module, kV3Node, ROWS(kLdcV3Table, aspect, coefIntpRatio), attr);
    LOG_DEBUG("ldcV3 attr,aspect[%d],xratio[%d],yratio[%d],xyratio[%d]\n", attr->aspect,
              attr->xRatio, attr->yRatio, attr->xyRatio);
    LOG_DEBUG(
        "ldcV3 attr,focalLenX[%d],focalLenY[%d],coordShiftX[%d],coordShiftY[%d] "
        "coefIntpRatio[%d]\n",
        attr->focalLenX, attr->focalLenY, attr->coordShiftX, attr->coordShiftY,
        attr->coefIntpRatio);
    CALL_OR_RETURN(PDT_INIPARAM_LoadCamLDCV3MatrixCfg(module, attr),
                   "Src_calibration_ratio and Src_calibration_ratio_next");
    return kOk;
}

Status PDT_INITPARAM_LoadVcapLDCAttr(const char* module, VcapLDCAttr* attr) {
    LOAD_OR_RETURN(module, kV1Node, ROW(kVcapLDCTable, v1Enable), attr);
    CALL_OR_RETURN(PDT_INIPARAM_LoadLDCV1Attr(module, &attr->v1), module);
    LOAD_OR_RETURN(module, kV3Node, ROW(kVcapLDCTable, v3Enable), attr);
    CALL_OR_RETURN(PDT_INIPARAM_LoadLDCV3Attr(module, &attr->v3), module);
    LOG_DEBUG(" v1 enable[%d] v3 enable[%d]\n", attr->v1Enable, attr->v3Enable);
    return kOk;
}

Status PDT_INITPARAM_LoadCorrespondingVcapLDCAttr(MediaMode mode, VcapLDCAttr* attr) {
    REQUIRE_RECORD_OR_RETURN(attr);
    LdcSearch search = {.wanted = mode};
    for (std::uint32_t i = 0; i < kLdcModuleCount && !search.matches; ++i) {
        LOG_DEBUG("Cam[%u]  MediaMode[%u] LDCDISConfigure:\n", kLdcCamera, i);
        FORMAT_OR_RETURN(search.module, "sprintf_s", kLdcModule, kLdcCamera, i);
        CALL_OR_RETURN(LookAtLdcModule(&search), search.step);
    }
    if (search.matches) {
        // The label is an earlier name of the loader; whoever reads the log knows it by that name.
        CALL_OR_RETURN(PDT_INITPARAM_LoadVcapLDCAttr(search.module.c_str(), attr),
                       "PDT_INITPARAM_LoadVcapPipeChnLDCAttr");
    }
    return kOk;
}

Status PDT_INIPARAM_LoadCamVportSpecLDCCfg(MediaMode mode, VcapLDCAttr* attr) {
    REQUIRE_RECORD_OR_RETURN(attr);
    LdcSearch search = {.wanted = mode};
    for (std::uint32_t i = 0; i < kLdcModuleCount && !search.matches; ++i) {
        LOG_DEBUG("Cam[%u]  MediaMode[%u] LDCv1 v3Configure:\n", kLdcCamera, i);
        FORMAT_OR_RETURN(search.module, "sprintf_s", kLdcModule, kLdcCamera, i);
        CALL_OR_RETURN(LookAtLdcModule(&search), search.step);
    }
    if (search.matches) {
        const char* module = search.module.c_str();
        LOAD_OR_RETURN(module, kV1Node, ROW(kVcapLDCTable, v1Enable), attr);
        CALL_OR_RETURN(PDT_INIPARAM_LoadLDCV1Attr(module, &attr->v1), module);
        LOAD_OR_RETURN(module, kV3Node, ROW(kVcapLDCTable, v3Enable), attr);
        CALL_OR_RETURN(PDT_INIPARAM_LoadLDCV3Attr(module, &attr->v3), module);
    }
    return kOk;
}

}  // namespace paramgen
