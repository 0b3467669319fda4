#include "param/camera/ldc.h"

#include "confaccess/confaccess.h"
#include "param/camera/module_mode.h"
#include "param/common/key.h"
#include "param/common/propagate.h"
#include "param/common/readers.h"

namespace paramgen {

constexpr Field kLdcV1Fields[] = {
    FIELD(LdcV1Attr, aspect, "aspect", 0).About("The aspect ratio is kept"),
    FIELD(LdcV1Attr, xRatio, "xratio", 0).About("Horizontal ratio").Unit("%"),
    FIELD(LdcV1Attr, yRatio, "yratio", 0).About("Vertical ratio").Unit("%"),
    FIELD(LdcV1Attr, xyRatio, "xyratio", 0).About("Combined ratio").Unit("%"),
    FIELD(LdcV1Attr, centerXOffset, "centerxoffset", 0)
        .About("Horizontal offset of the distortion centre")
        .Unit("px"),
    FIELD(LdcV1Attr, centerYOffset, "centeryoffset", 0)
        .About("Vertical offset of the distortion centre")
        .Unit("px"),
    FIELD(LdcV1Attr, distortionRatio, "distortionratio", 0)
        .About("Distortion ratio; negative for barrel distortion"),
};

constexpr Field kLdcV3Fields[] = {
    FIELD(LdcV3Attr, aspect, "aspect", 0).About("The aspect ratio is kept"),
    FIELD(LdcV3Attr, xRatio, "xratio", 0).Label("x_ratio").About("Horizontal ratio"),
    FIELD(LdcV3Attr, yRatio, "yratio", 0).Label("y_ratio").About("Vertical ratio"),
    FIELD(LdcV3Attr, xyRatio, "xyratio", 0).Label("xy_ratio").About("Combined ratio"),
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
    // Read element by element. Of each index, the next calibration's coefficient comes first.
    QUERY(LdcV3Attr, srcCalibrationRatioNext, "src_calibration_ratio_next%d", 0)
        .About("Coefficient of the next calibration")
        .Unit("1/100000"),
    QUERY(LdcV3Attr, srcCalibrationRatio, "src_calibration_ratio%d", 0)
        .About("Coefficient of the calibration")
        .Unit("1/100000"),
};

constexpr TableOf<LdcV1Attr> kLdcV1Table{"LDCV1Attr", kLdcV1Fields};
constexpr TableOf<LdcV3Attr> kLdcV3Table{"LDCV3Attr", kLdcV3Fields};

constexpr Field kVcapLDCFields[] = {
    FIELD(VcapLDCAttr, v1Enable, "enable", 0)
        .Under("LDCV1Attr")
        .About("Correction by the first model is on"),
    RECORD(VcapLDCAttr, v1, kLdcV1Table),
    FIELD(VcapLDCAttr, v3Enable, "enable", 0)
        .Under("LDCV3Attr")
        .About("Correction by the third model is on"),
    RECORD(VcapLDCAttr, v3, kLdcV3Table),
};

constexpr TableOf<VcapLDCAttr> kVcapLDCTable{nullptr, kVcapLDCFields};

namespace {

/// Which kind of loader searches for a module. It only decides the text of a log record.
enum class LdcUser : std::uint8_t { kChannel, kGroup };

/// Searches for the module that serves `wanted`, and stores its name in `module`; an empty name
/// when there is none. A module without a media mode serves that of the module before it. Logs
/// under the loader's name and line, `site`.
Status FindLdcModule(CallSite site, LdcUser user, MediaMode wanted, Key* module) {
    MediaMode served = kMediaModeNone;
    for (std::uint32_t i = 0; i < kLdcSearch.count; ++i) {
        LogDebug(site.function, site.line,
                 user == LdcUser::kChannel ? "Cam[%u]  MediaMode[%u] LDCDISConfigure:\n"
                                           : "Cam[%u]  MediaMode[%u] LDCv1 v3Configure:\n",
                 kLdcSearch.camera, i);
        FILL_FOR_OR_RETURN(site, *module, kLdcSearch.modules, kLdcSearch.camera, i);
        std::int32_t exists = 0;
        CALL_FOR_OR_RETURN(site,
                           ZV_CONFACCESS_IsMoudleExist(kProductConfig, module->c_str(), &exists),
                           module->c_str());
        if (exists == 0) {
            continue;
        }
        Key modeKey;
        FILL_FOR_OR_RETURN(site, modeKey, kLdcSearch.key);
        CALL_FOR_OR_RETURN(site, ReadModuleMode(module->c_str(), modeKey.c_str(), &served),
                           modeKey.c_str());
        if (served == wanted) {
            return kOk;
        }
    }
    *module = Key();
    return kOk;
}

/// Loads both models, with their switches, from `module`. Logs under the loader's name and line,
/// `site`.
Status LoadBothModels(CallSite site, const char* module, VcapLDCAttr* attr) {
    constexpr const Field& kV1Enable = ROW(kVcapLDCTable, v1Enable);
    constexpr const Field& kV3Enable = ROW(kVcapLDCTable, v3Enable);
    LOAD_FOR_OR_RETURN(site, module, kV1Enable.node, kV1Enable, 0, attr);
    CALL_FOR_OR_RETURN(site, PDT_INIPARAM_LoadLDCV1Attr(module, &attr->v1), module);
    LOAD_FOR_OR_RETURN(site, module, kV3Enable.node, kV3Enable, 0, attr);
    CALL_FOR_OR_RETURN(site, PDT_INIPARAM_LoadLDCV3Attr(module, &attr->v3), module);
    return kOk;
}

}  // namespace

Status PDT_INIPARAM_LoadLDCV1Attr(const char* module, LdcV1Attr* attr) {
    LOAD_AT_OR_RETURN(module, kLdcV1Table, attr);
    LOG_DEBUG("ldc attr,aspect[%d],xratio[%d],yratio[%d],xyratio[%d]\n", attr->aspect, attr->xRatio,
              attr->yRatio, attr->xyRatio);
    LOG_DEBUG("centeroffset x[%d] y[%d], distortionratio[%d] \n", attr->centerXOffset,
              attr->centerYOffset, attr->distortionRatio);
    return kOk;
}

Status PDT_INIPARAM_LoadCamLDCV3MatrixCfg(const char* module, LdcV3Attr* attr) {
    for (std::uint32_t i = 0; i < kLdcCalibrationCount; ++i) {
        LOAD_ELEMENT_OR_RETURN(module, kLdcV3Table.node, ROW(kLdcV3Table, srcCalibrationRatioNext),
                               i, attr);
        LOG_DEBUG("src_calibration_ratio_next%d = %d\n", i, attr->srcCalibrationRatioNext[i]);
        LOAD_ELEMENT_OR_RETURN(module, kLdcV3Table.node, ROW(kLdcV3Table, srcCalibrationRatio), i,
                               attr);
        LOG_DEBUG("src_calibration_ratio%d = %d\n", i, attr->srcCalibrationRatio[i]);
    }
    return kOk;
}

Status PDT_INIPARAM_LoadLDCV3Attr(const char* module, LdcV3Attr* attr) {
    LOAD_AT_OR_RETURN(module, ROWS(kLdcV3Table, aspect, coefIntpRatio), attr);
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
    const Status status = LoadBothModels({__func__, __LINE__}, module, attr);
    if (status == kOk) {
        LOG_DEBUG(" v1 enable[%d] v3 enable[%d]\n", attr->v1Enable, attr->v3Enable);
    }
    return status;
}

Status PDT_INITPARAM_LoadCorrespondingVcapLDCAttr(MediaMode mode, VcapLDCAttr* attr) {
    REQUIRE_RECORD_OR_RETURN(attr);
    Key module;
    const Status status = FindLdcModule({__func__, __LINE__}, LdcUser::kChannel, mode, &module);
    if (status != kOk || module.View().empty()) {
        return status;
    }
    // The label is an earlier name of the loader. It stays as it is: other programs read the log.
    CALL_OR_RETURN(PDT_INITPARAM_LoadVcapLDCAttr(module.c_str(), attr),
                   "PDT_INITPARAM_LoadVcapPipeChnLDCAttr");
    return kOk;
}

Status PDT_INIPARAM_LoadCamVportSpecLDCCfg(MediaMode mode, VcapLDCAttr* attr) {
    REQUIRE_RECORD_OR_RETURN(attr);
    const CallSite site = {__func__, __LINE__};
    Key module;
    const Status status = FindLdcModule(site, LdcUser::kGroup, mode, &module);
    if (status != kOk || module.View().empty()) {
        return status;
    }
    return LoadBothModels(site, module.c_str(), attr);
}

}  // namespace paramgen
