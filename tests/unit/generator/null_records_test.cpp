/// Every loader refuses a null record, and logs this once under its own name.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <type_traits>

#include "param/camera/cam_media_mode.h"
#include "param/camera/camera.h"
#include "param/camera/ldc.h"
#include "param/camera/media_mode_comm.h"
#include "param/camera/media_mode_spec.h"
#include "param/camera/vb_spec.h"
#include "param/camera/vcap_comm.h"
#include "param/camera/vcap_pipe_spec.h"
#include "param/camera/vcap_spec.h"
#include "param/camera/venc_comm.h"
#include "param/camera/venc_spec.h"
#include "param/camera/vproc_comm.h"
#include "param/camera/vproc_spec.h"
#include "param/devmng/devmng.h"
#include "param/filemng/filemng.h"
#include "param/media_common/audio_capture.h"
#include "param/media_common/audio_enc.h"
#include "param/media_common/audio_out.h"
#include "param/media_common/display.h"
#include "param/media_common/hierarchical_qp.h"
#include "param/media_common/media_common.h"
#include "param/media_common/snap_enc.h"
#include "param/media_common/video_enc.h"
#include "param/media_common/video_mod.h"
#include "param/valueset/value_items.h"
#include "param/valueset/valueset.h"
#include "param/workmode/osd.h"
#include "param/workmode/photo.h"
#include "param/workmode/record.h"
#include "param/workmode/workmode.h"
#include "support/captured_output.h"
#include "support/product_tree.h"
#include "support/records.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;

/// A valid argument for a loader, except for the record: that is a null pointer.
template <typename Argument>
Argument Good() {
    if constexpr (std::is_same_v<Argument, const char*>) {
        return "m";
    } else if constexpr (std::is_same_v<Argument, std::int32_t*>) {
        static std::int32_t result = 0;
        return &result;
    } else {
        return Argument{};
    }
}

/// A loader by its name, to be called with a null record.
struct Loader {
    const char* name;
    std::function<Status()> call;
};

template <typename... Arguments>
Loader WithNullRecord(const char* name, Status (*loader)(Arguments...)) {
    return {name, [loader] { return loader(Good<Arguments>()...); }};
}

#define LOADER(name) WithNullRecord(#name, name)

const Loader kLoaders[] = {
    LOADER(PDT_INIPARAM_LoadCamMediaModeCfg),
    LOADER(PDT_INIPARAM_LoadCamFuncAttr),
    LOADER(PDT_INIPARAM_LoadCamMediaCfg),
    LOADER(PDT_INIPARAM_LoadLDCV1Attr),
    LOADER(PDT_INIPARAM_LoadLDCV3Attr),
    LOADER(PDT_INIPARAM_LoadCamLDCV3MatrixCfg),
    LOADER(PDT_INITPARAM_LoadVcapLDCAttr),
    LOADER(PDT_INITPARAM_LoadCorrespondingVcapLDCAttr),
    LOADER(PDT_INIPARAM_LoadCamVportSpecLDCCfg),
    LOADER(PDT_INIPARAM_LoadCamDispCropCfg),
    LOADER(PDT_INIPARAM_LoadMediaModeCommCfg),
    LOADER(PDT_INIPARAM_LoadMediaModeSpecCfg),
    LOADER(PDT_INIPARAM_LoadCamVBSpecCfg),
    LOADER(PDT_INIPARAM_LoadVcapPipeChnCommCfgPartOne),
    LOADER(PDT_INIPARAM_LoadVcapPipeChnCommCfgPartTwo),
    LOADER(PDT_INIPARAM_LoadCamVcapPipeChnCommCfg),
    LOADER(PDT_INIPARAM_LoadCamVcapPipeCommCfg),
    LOADER(PDT_INIPARAM_LoadCamVcapAibnrAttr),
    LOADER(PDT_INIPARAM_LoadCamVcapAibnrModelAttr),
    LOADER(PDT_INIPARAM_LoadCamVcapCommCfg),
    LOADER(PDT_INIPARAM_LoadCamVcapPipeFrameRateCfg),
    LOADER(PDT_INIPARAM_LoadCamVcapIspPubAttr),
    LOADER(PDT_INIPARAM_LoadCamVcapSingleValue),
    LOADER(PDT_INIPARAM_LoadCamVcapPipeChnSpecCfg),
    LOADER(PDT_INIPARAM_LoadCamVcapPipeSpecCfg),
    LOADER(PDT_INIPARAM_LoadCamVcapSnsCfg),
    LOADER(PDT_INIPARAM_LoadCamVcapSpecCfg),
    LOADER(PDT_PARAM_LoadCamVencBindSrcAttr),
    LOADER(PDT_INIPARAM_LoadVencChnIntraFreshCfg),
    LOADER(PDT_INIPARAM_LoadCamVencCommAttr),
    LOADER(PDT_INIPARAM_LoadCamVencCommCfg),
    LOADER(PDT_INIPARAM_LoadCamVencSpecAttr),
    LOADER(PDT_INIPARAM_LoadCamVencSpecCfg),
    LOADER(PDT_INIPARAM_LoadCamVprocNrAttr),
    LOADER(PDT_INIPARAM_LoadCamVportLowDelayInfo),
    LOADER(PDT_INIPARAM_LoadCamVportCommCfg),
    LOADER(PDT_INIPARAM_LoadExtVportCommCfg),
    LOADER(PDT_INIPARAM_LoadCamVprocCommArg),
    LOADER(PDT_INIPARAM_LoadCamVprocCommCfg),
    LOADER(PDT_INIPARAM_LoadCamVportSpecCfg),
    LOADER(PDT_INIPARAM_LoadCamVpssSpecAttr),
    LOADER(PDT_INIPARAM_LoadDevInfo),
    LOADER(PDT_INIPARAM_LoadStorageCfg),
    LOADER(PDT_INIPARAM_LoadGsensorCfg),
    LOADER(PDT_INIPARAM_LoadSysCfg),
    LOADER(PDT_INIPARAM_LoadDevMngConf),
    LOADER(PDT_INIPARAM_FILEMNG_LoadCommCfg),
    LOADER(PDT_INIPARAM_FILEMNG_LoadDTCFCfg),
    LOADER(PDT_INIPARAM_FILEMNG_LoadDTCFDirNameCfg),
    LOADER(PDT_INIPARAM_FILEMNG_GetDirNames),
    LOADER(PDT_INIPARAM_LoadFileMngConf),
    LOADER(PDT_INIPARAM_LoadMediaCommAcapAttr),
    LOADER(PDT_INIPARAM_LoadMediaCommAcapChnAttr),
    LOADER(PDT_INIPARAM_LoadMediaCommAcapCfg),
    LOADER(PDT_INIPARAM_LoadMediaCommAencAacCfg),
    LOADER(PDT_INIPARAM_LoadMediaCommAencMp3Cfg),
    LOADER(PDT_INIPARAM_LoadMediaCommAencCfg),
    LOADER(PDT_INIPARAM_LoadMediaCommAoAttr),
    LOADER(PDT_INIPARAM_LoadMediaCommAoCfg),
    LOADER(PDT_INIPARAM_LoadMediaCommDispCSCAttr),
    LOADER(PDT_INIPARAM_LoadMediaCommDispAspectAttr),
    LOADER(PDT_INIPARAM_LoadMediaCommDispWndAttr),
    LOADER(PDT_INIPARAM_LoadMediaCommDispWndCfg),
    LOADER(PDT_INIPARAM_LoadMediaCommDispCfg),
    LOADER(PDT_INIPARAM_LoadMediaCommVencHierarchicalQp),
    LOADER(PDT_INIPARAM_LoadMediaCommVencCommConf),
    LOADER(PDT_INIPARAM_LoadMediaCommConf),
    LOADER(PDT_INIPARAM_LoadMediaCommSnapEncAttr),
    LOADER(PDT_INIPARAM_LoadMediaCommH26xCbrAttr),
    LOADER(PDT_INIPARAM_LoadMediaCommH26xVbrAttr),
    LOADER(PDT_INIPARAM_LoadMediaCommH26xQvbrAttr),
    LOADER(PDT_INIPARAM_LoadMediaCommVencH264Attr),
    LOADER(PDT_INIPARAM_LoadMediaCommVencH265Attr),
    LOADER(PDT_INIPARAM_LoadMediaCommVideoEncAttr),
    LOADER(PDT_INIPARAM_LoadVideoModCfg),
    LOADER(PDT_INIPARAM_LoadCamValueSetCfg),
    LOADER(PDT_INIPARAM_LoadPhotoCfgValueSet),
    LOADER(PDT_INIPARAM_LoadValueSetCfg),
    LOADER(PDT_INIPARAM_LoadOsdCfg),
    LOADER(PDT_INIPARAM_LoadOsdContent),
    LOADER(PDT_INIPARAM_LoadOsdDispAttr),
    LOADER(PDT_INIPARAM_LoadPhotoAttr),
    LOADER(PDT_INIPARAM_LoadPhotoBurstAttr),
    LOADER(PDT_INIPARAM_LoadPhotoCfg),
    LOADER(PDT_INIPARAM_LoadPhotoWorkModeCfg),
    LOADER(PDT_INIPARAM_LoadRecMediaCfg),
    LOADER(PDT_INIPARAM_LoadRecCommCfg),
    LOADER(PDT_INIPARAM_LoadRecFileAttr),
    LOADER(PDT_INIPARAM_LoadRecFilesAttr),
    LOADER(PDT_INIPARAM_LoadRecAttr),
    LOADER(PDT_INIPARAM_LoadRecWorkModeConf),
    LOADER(PDT_INIPARAM_LoadCommWorkModeCfg),
    LOADER(PDT_INIPARAM_LoadWorkModeConf),
};

TEST(NullRecords, EveryLoaderSaysSoUnderItsOwnName) {
    const RegisteredProduct product(ProductTree().AddModule("m"));
    for (const Loader& loader : kLoaders) {
        Status status = 0;
        const std::string output = CaptureStdout([&] { status = loader.call(); });
        EXPECT_EQ(status, -1) << loader.name;
        EXPECT_THAT(ErrorsOf(output),
                    ElementsAre(std::string(loader.name) + ": pointer[param] is null\n"));
    }
}

TEST(NullRecords, ValueSetsWithoutBytesAreNullRecords) {
    const RegisteredProduct product(ProductTree().AddModule("m"));
    const ValueSetView none{std::span<std::byte>()};
    Status status = 0;
    std::string output =
        CaptureStdout([&] { status = PDT_INIPARAM_LoadCommItemValues("m", "set", none); });
    EXPECT_EQ(status, -1);
    EXPECT_THAT(ErrorsOf(output),
                ElementsAre("PDT_INIPARAM_LoadCommItemValues: pointer[param] is null\n"));
    output =
        CaptureStdout([&] { status = PDT_INIPARAM_LoadMediaModeItemValues("m", "set", none); });
    EXPECT_EQ(status, -1);
    EXPECT_THAT(ErrorsOf(output),
                ElementsAre("PDT_INIPARAM_LoadMediaModeItemValues: pointer[param] is null\n"));
}

}  // namespace
}  // namespace paramgen::testing
