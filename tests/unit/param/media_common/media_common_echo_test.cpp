#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/table_walk.h"
#include "unit/param/media_common/section_load.h"

namespace paramgen::testing {
namespace {

constexpr const char* kEcho[] = {
    "PDT_INIPARAM_LoadMediaCommVideoEncAttr: NodePrefix[venc.video.main]\n",
    "PDT_INIPARAM_LoadMediaCommVideoEncAttr: [venc.video.main] scene[-1:0-normal,1-dv,2-car]\n",
    "PDT_INIPARAM_LoadMediaCommVencH264Attr:     profile[4294967295:0-baseline,1-main,2-high]\n",
    "PDT_INIPARAM_LoadMediaCommH26xCbrAttr:     [venc.video.main.h264.cbr]: MaxQP[4294967295] "
    "MinQP[4294967295] MaxIQP[4294967295] MinIQP[4294967295]\n",
    "PDT_INIPARAM_LoadMediaCommH26xVbrAttr:     [venc.video.main.h264.vbr]: MaxQP[4294967295] "
    "MinQP[4294967295] MaxIQP[4294967295] MinIQP[4294967295]\n",
    "PDT_INIPARAM_LoadMediaCommH26xQvbrAttr:     [venc.video.main.h264.qvbr]: MaxQP[4294967295] "
    "MinQP[4294967295] MaxIQP[4294967295] MinIQP[4294967295]\n",
    "PDT_INIPARAM_LoadMediaCommH26xQvbrAttr:        BitPercentUL[-1] BitPercentLL[-1] "
    "PsnrFluctuateUL[-1] PsnrFluctuateLL[-1]\n",
    "PDT_INIPARAM_LoadMediaCommVencH265Attr:     profile[4294967295:0-main]\n",
    "PDT_INIPARAM_LoadMediaCommH26xCbrAttr:     [venc.video.main.h265.cbr]: MaxQP[4294967295] "
    "MinQP[4294967295] MaxIQP[4294967295] MinIQP[4294967295]\n",
    "PDT_INIPARAM_LoadMediaCommH26xVbrAttr:     [venc.video.main.h265.vbr]: MaxQP[4294967295] "
    "MinQP[4294967295] MaxIQP[4294967295] MinIQP[4294967295]\n",
    "PDT_INIPARAM_LoadMediaCommH26xQvbrAttr:     [venc.video.main.h265.qvbr]: MaxQP[4294967295] "
    "MinQP[4294967295] MaxIQP[4294967295] MinIQP[4294967295]\n",
    "PDT_INIPARAM_LoadMediaCommH26xQvbrAttr:        BitPercentUL[-1] BitPercentLL[-1] "
    "PsnrFluctuateUL[-1] PsnrFluctuateLL[-1]\n",
    "PDT_INIPARAM_LoadMediaCommVideoEncAttr: NodePrefix[venc.video.sub]\n",
    "PDT_INIPARAM_LoadMediaCommVideoEncAttr: [venc.video.sub] scene[-1:0-normal,1-dv,2-car]\n",
    "PDT_INIPARAM_LoadMediaCommVencH264Attr:     profile[4294967295:0-baseline,1-main,2-high]\n",
    "PDT_INIPARAM_LoadMediaCommH26xCbrAttr:     [venc.video.sub.h264.cbr]: MaxQP[4294967295] "
    "MinQP[4294967295] MaxIQP[4294967295] MinIQP[4294967295]\n",
    "PDT_INIPARAM_LoadMediaCommH26xVbrAttr:     [venc.video.sub.h264.vbr]: MaxQP[4294967295] "
    "MinQP[4294967295] MaxIQP[4294967295] MinIQP[4294967295]\n",
    "PDT_INIPARAM_LoadMediaCommH26xQvbrAttr:     [venc.video.sub.h264.qvbr]: MaxQP[4294967295] "
    "MinQP[4294967295] MaxIQP[4294967295] MinIQP[4294967295]\n",
    "PDT_INIPARAM_LoadMediaCommH26xQvbrAttr:        BitPercentUL[-1] BitPercentLL[-1] "
    "PsnrFluctuateUL[-1] PsnrFluctuateLL[-1]\n",
    "PDT_INIPARAM_LoadMediaCommVencH265Attr:     profile[4294967295:0-main]\n",
    "PDT_INIPARAM_LoadMediaCommH26xCbrAttr:     [venc.video.sub.h265.cbr]: MaxQP[4294967295] "
    "MinQP[4294967295] MaxIQP[4294967295] MinIQP[4294967295]\n",
    "PDT_INIPARAM_LoadMediaCommH26xVbrAttr:     [venc.video.sub.h265.vbr]: MaxQP[4294967295] "
    "MinQP[4294967295] MaxIQP[4294967295] MinIQP[4294967295]\n",
    "PDT_INIPARAM_LoadMediaCommH26xQvbrAttr:     [venc.video.sub.h265.qvbr]: MaxQP[4294967295] "
    "MinQP[4294967295] MaxIQP[4294967295] MinIQP[4294967295]\n",
    "PDT_INIPARAM_LoadMediaCommH26xQvbrAttr:        BitPercentUL[-1] BitPercentLL[-1] "
    "PsnrFluctuateUL[-1] PsnrFluctuateLL[-1]\n",
    "PDT_INIPARAM_LoadMediaCommSnapEncAttr: NodePrefix[venc.snap.single]\n",
    "PDT_INIPARAM_LoadMediaCommSnapEncAttr: [venc.snap.single] DCF[0], QualityFactor[4294967295], "
    "Receivemode[4294967295], Encode_mode[4294967295], LargeThumbNailNum[255]\n",
    "PDT_INIPARAM_LoadMediaCommSnapEncAttr: [venc.snap.single] "
    "largethumbnail0_width[-1],largethumbnail0_height[4294967295] \n",
    "PDT_INIPARAM_LoadMediaCommSnapEncAttr: [venc.snap.single] "
    "largethumbnail1_width[-1],largethumbnail1_height[4294967295] \n",
    "PDT_INIPARAM_LoadMediaCommSnapEncAttr: NodePrefix[venc.snap.sub]\n",
    "PDT_INIPARAM_LoadMediaCommSnapEncAttr: [venc.snap.sub] DCF[0], QualityFactor[4294967295], "
    "Receivemode[4294967295], Encode_mode[4294967295], LargeThumbNailNum[255]\n",
    "PDT_INIPARAM_LoadMediaCommSnapEncAttr: [venc.snap.sub] "
    "largethumbnail0_width[-1],largethumbnail0_height[4294967295] \n",
    "PDT_INIPARAM_LoadMediaCommSnapEncAttr: [venc.snap.sub] "
    "largethumbnail1_width[-1],largethumbnail1_height[4294967295] \n",
    "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp: NodePrefix[venc.hierarchical.qp]\n",
    "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp:   hierarchical.qp.enable[0]\n",
    "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp:   QpDelta0[-1]\n",
    "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp:   QpDelta1[-1]\n",
    "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp:   QpDelta2[-1]\n",
    "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp:   QpDelta3[-1]\n",
    "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp:   FrameNum0[-1]\n",
    "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp:   FrameNum1[-1]\n",
    "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp:   FrameNum2[-1]\n",
    "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp:   FrameNum3[-1]\n",
    "PDT_INIPARAM_LoadVideoModCfg:  venc.live.src.0 bindedMod[-1] modHdl[-1],  chnHdl[-1] \n",
    "PDT_INIPARAM_LoadMediaCommDispCfg: Display[0]: enable[0] disphdl[-1]\n",
    "PDT_INIPARAM_LoadMediaCommDispCfg:  bg color[ffffffff]\n",
    "PDT_INIPARAM_LoadMediaCommDispCfg: Display[0]: windowcnt[-1]\n",
    "PDT_INIPARAM_LoadMediaCommDispCfg:     CSCEnable[0]\n",
    "PDT_INIPARAM_LoadMediaCommDispCSCAttr:       luma[4294967295], contrast[4294967295], "
    "hue[4294967295], saturation[4294967295]\n",
    "PDT_INIPARAM_LoadVideoModCfg:  disp.0.SRC.0 bindedMod[-1] modHdl[-1],  chnHdl[-1] \n",
    "PDT_INIPARAM_LoadMediaCommDispWndCfg:     Prefix[disp.0.playbackwindow.0] enable[0] "
    "wndhdl[-1] preview_cam_id[-1] \n",
    "PDT_INIPARAM_LoadMediaCommDispWndCfg:     Rotate[-1, 0:0, 1:90, 2:180, 3:270]\n",
    "PDT_INIPARAM_LoadMediaCommDispAspectAttr:     aspect mode[-1] bgcolor[-1] "
    "start[4294967295,4294967295], size[4294967295,4294967295]\n",
    "PDT_INIPARAM_LoadMediaCommDispWndAttr:     WndAttr pos[4294967295,4294967295], "
    "size[4294967295,4294967295], priority[4294967295]\n",
    "PDT_INIPARAM_LoadMediaCommAcapCfg: Acap[0] enable[0] hdl[-1] audio gain[-1]\n",
    "PDT_INIPARAM_LoadMediaCommAcapCfg:     samplerate[-1],bitWidth[-1:0-8,1-16,2-24] "
    "soundMode[-1:0-left,1-right,2-stereo]\n",
    "PDT_INIPARAM_LoadMediaCommAcapCfg:     resamplerate[-1] acodec_mixer[-1:0-IN0,1-IN1,2-IN_D] "
    "pointNumPerFrame[4294967295]\n",
    "PDT_INIPARAM_LoadMediaCommAcapCfg: AcapChn0 :hadle[-1], enable[0], enableVqe[0]\n",
    "PDT_INIPARAM_LoadMediaCommAcapCfg: AcapChn1 :hadle[-1], enable[0], enableVqe[0]\n",
    "PDT_INIPARAM_LoadMediaCommAencCfg: Aenc[0] enable[0] aenchdl[-1] acaphdl[-1] acapchdl[-1]  "
    "format[0:0-aac,1-opus] pointNumPerFrame[4294967295]\n",
    "PDT_INIPARAM_LoadMediaCommAencAacCfg:     AAC Type[-1:0-AACLC],bitrate[-1],samplerate[-1]\n",
    "PDT_INIPARAM_LoadMediaCommAencAacCfg:     "
    "bitWidth[-1:0-8,1-16,2-24],soundMode[-1:0-mono,1-stereo] bandwidth[-1]\n",
    "PDT_INIPARAM_LoadMediaCommAencAacCfg:     transType[-1:0-ADTS,1-LOAS,2-LATM_MCP1]\n",
    "PDT_INIPARAM_LoadMediaCommAoCfg: Ao[0] enable[0] hdl[-1]\n",
    "PDT_INIPARAM_LoadMediaCommAoAttr:     samplerate[-1] insamplerate[-1] "
    "bitWidth[-1:0-8,1-16,2-24] soundMode[-1:0-left,1-right,2-stereo]\n",
    "PDT_INIPARAM_LoadMediaCommAoCfg: chn[0],aoChnHdl[-1],enable[0]\n",
    "PDT_INIPARAM_LoadMediaCommAoCfg: chn[1],aoChnHdl[-1],enable[0]\n",
};

// The formats of the records decide which numbers are printed as signed, not the members' types.
TEST(MediaCommonEcho, EveryNumberNegative) {
    ProductTree tree = MediaTree();
    for (const WalkedField& walked : WalkTable(kMediaCommTable, "media_common")) {
        const FieldKind kind = walked.field->kind;
        if (!walked.key.empty() && kind != FieldKind::kBool && kind != FieldKind::kName) {
            tree.Set("media_common", walked.key, "-1");
        }
    }
    const LoadResult result = LoadSection(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(EchoOf(result.output), ::testing::ElementsAreArray(kEcho));
}

}  // namespace
}  // namespace paramgen::testing
