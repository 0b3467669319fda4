#include "generator/load.h"

#include "confaccess/confaccess.h"
#include "generator/image.h"
#include "param/common/propagate.h"
#include "param/common/readers.h"

namespace paramgen {
namespace {

template <typename Record>
constexpr unsigned long kSizeOf = sizeof(Record);

}  // namespace

Status PDT_INIPARAM_LoadCfg() {
    CALL_OR_RETURN(ZV_CONFACCESS_Init(kProductConfig, kEntryFile), kEntryFile);
    CALL_OR_RETURN(PDT_INIPARAM_LoadDevMngConf(&g_image.devMng), "DevMng Conf");
    CALL_OR_RETURN(PDT_INIPARAM_LoadFileMngConf(&g_image.fileMng), "FileMng Conf");
    CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommConf(&g_image.mediaComm), "Media Common Conf");
    CALL_OR_RETURN(PDT_INIPARAM_LoadWorkModeConf(&g_image.workMode), "WorkMode Conf");
    CALL_OR_RETURN(PDT_INIPARAM_LoadValueSetCfg(&g_image.valueSet), "ValueSet Conf");
    CALL_OR_RETURN(PDT_INIPARAM_LoadCamMediaCfg(g_image.cam, kCamCount), "VideoMode Conf");
    CALL_OR_RETURN(ZV_CONFACCESS_Deinit(kProductConfig), "ConfAccess Deinit");
    return kOk;
}

void PDT_INIPARAM_DebugParamCfg() {
    LOG_DEBUG("Param Size[%lu]\n", kSizeOf<ParamImage>);
    LOG_DEBUG("MediaComm Size[%lu]\n", kSizeOf<MediaCommCfg>);
    LOG_DEBUG("WorkModeCfg Size[%lu]\n", kSizeOf<WorkModeCfg>);
    LOG_DEBUG("FileMngCfg Size[%lu]\n", kSizeOf<FileMngCfg>);
    LOG_DEBUG("DevMngCfg Size[%lu]\n", kSizeOf<DevMngCfg>);
    LOG_DEBUG("ValueSetCfg Size[%lu]\n", kSizeOf<ValueSetCfg>);
    LOG_DEBUG("CAM  UnitSize[%lu], Cnt[%d]\n", kSizeOf<CamMediaCfg>, kCamCount);
    LOG_DEBUG("CAM MediaMode Comm Size[%lu]\n", kSizeOf<CamMediaModeCommCfg>);
    LOG_DEBUG("CAM MediaMode Spec UnitSize[%lu], Cnt[%d]\n", kSizeOf<CamMediaModeSpecCfg>,
              kCamMediaModeSpecCount);
}

}  // namespace paramgen
