#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "param/media_common/media_common.h"
#include "support/records.h"
#include "support/row_checks.h"
#include "support/same_record.h"

namespace paramgen::testing {
namespace {

/// The next bytes of the section, and the key that sets them.
struct Part {
    const char* bytes;  ///< hexadecimal, in the order of the file
    const char* key;    ///< null: none
    const char* text;
};

constexpr Part kParts[] = {
    {"04000100", "venc.video.main:scene_mode", "65540"},
    {"02000000", "venc.video.main.h264:profile", "2"},
    {"4c001300", "venc.video.main.h265:profile", "1245260"},
    {"0c000300", "venc.video.main.h264.cbr:max_qp", "196620"},
    {"04000000", "venc.video.main.h264.cbr:min_qp", "4"},
    {"ecfffaff", "venc.video.main.h264.cbr:max_iqp", "-327700"},
    {"06000000", "venc.video.main.h264.cbr:min_iqp", "6"},
    {"1c000700", "venc.video.main.h264.vbr:max_qp", "458780"},
    {"08000000", "venc.video.main.h264.vbr:min_qp", "8"},
    {"24000900", "venc.video.main.h264.vbr:max_iqp", "589860"},
    {"f6ffffff", "venc.video.main.h264.vbr:min_iqp", "-10"},
    {"2c000b00", "venc.video.main.h264.qvbr:max_qp", "720940"},
    {"0c000000", "venc.video.main.h264.qvbr:min_qp", "12"},
    {"34000d00", "venc.video.main.h264.qvbr:max_iqp", "852020"},
    {"0e000000", "venc.video.main.h264.qvbr:min_iqp", "14"},
    {"c4fff0ff", "venc.video.main.h264.qvbr:bit_percent_ul", "-983100"},
    {"10000000", "venc.video.main.h264.qvbr:bit_percent_ll", "16"},
    {"44001100", "venc.video.main.h264.qvbr:psnr_fluctuate_ul", "1114180"},
    {"12000000", "venc.video.main.h264.qvbr:psnr_fluctuate_ll", "18"},
    {"ecffffff", "venc.video.main.h265.cbr:max_qp", "-20"},
    {"54001500", "venc.video.main.h265.cbr:min_qp", "1376340"},
    {"16000000", "venc.video.main.h265.cbr:max_iqp", "22"},
    {"5c001700", "venc.video.main.h265.cbr:min_iqp", "1507420"},
    {"18000000", "venc.video.main.h265.vbr:max_qp", "24"},
    {"9cffe6ff", "venc.video.main.h265.vbr:min_qp", "-1638500"},
    {"1a000000", "venc.video.main.h265.vbr:max_iqp", "26"},
    {"6c001b00", "venc.video.main.h265.vbr:min_iqp", "1769580"},
    {"1c000000", "venc.video.main.h265.qvbr:max_qp", "28"},
    {"74001d00", "venc.video.main.h265.qvbr:min_qp", "1900660"},
    {"e2ffffff", "venc.video.main.h265.qvbr:max_iqp", "-30"},
    {"7c001f00", "venc.video.main.h265.qvbr:min_iqp", "2031740"},
    {"20000000", "venc.video.main.h265.qvbr:bit_percent_ul", "32"},
    {"84002100", "venc.video.main.h265.qvbr:bit_percent_ll", "2162820"},
    {"22000000", "venc.video.main.h265.qvbr:psnr_fluctuate_ul", "34"},
    {"74ffdcff", "venc.video.main.h265.qvbr:psnr_fluctuate_ll", "-2293900"},
    {"55000000", nullptr, nullptr},
    {"4b000000", nullptr, nullptr},
    {"24000000", "venc.video.sub:scene_mode", "36"},
    {"94002500", "venc.video.sub.h264:profile", "2424980"},
    {"36000000", "venc.video.sub.h265:profile", "54"},
    {"26000000", "venc.video.sub.h264.cbr:max_qp", "38"},
    {"9c002700", "venc.video.sub.h264.cbr:min_qp", "2556060"},
    {"d8ffffff", "venc.video.sub.h264.cbr:max_iqp", "-40"},
    {"a4002900", "venc.video.sub.h264.cbr:min_iqp", "2687140"},
    {"2a000000", "venc.video.sub.h264.vbr:max_qp", "42"},
    {"ac002b00", "venc.video.sub.h264.vbr:min_qp", "2818220"},
    {"2c000000", "venc.video.sub.h264.vbr:max_iqp", "44"},
    {"4cffd2ff", "venc.video.sub.h264.vbr:min_iqp", "-2949300"},
    {"2e000000", "venc.video.sub.h264.qvbr:max_qp", "46"},
    {"bc002f00", "venc.video.sub.h264.qvbr:min_qp", "3080380"},
    {"30000000", "venc.video.sub.h264.qvbr:max_iqp", "48"},
    {"c4003100", "venc.video.sub.h264.qvbr:min_iqp", "3211460"},
    {"ceffffff", "venc.video.sub.h264.qvbr:bit_percent_ul", "-50"},
    {"cc003300", "venc.video.sub.h264.qvbr:bit_percent_ll", "3342540"},
    {"34000000", "venc.video.sub.h264.qvbr:psnr_fluctuate_ul", "52"},
    {"d4003500", "venc.video.sub.h264.qvbr:psnr_fluctuate_ll", "3473620"},
    {"24ffc8ff", "venc.video.sub.h265.cbr:max_qp", "-3604700"},
    {"38000000", "venc.video.sub.h265.cbr:min_qp", "56"},
    {"e4003900", "venc.video.sub.h265.cbr:max_iqp", "3735780"},
    {"3a000000", "venc.video.sub.h265.cbr:min_iqp", "58"},
    {"ec003b00", "venc.video.sub.h265.vbr:max_qp", "3866860"},
    {"c4ffffff", "venc.video.sub.h265.vbr:min_qp", "-60"},
    {"f4003d00", "venc.video.sub.h265.vbr:max_iqp", "3997940"},
    {"3e000000", "venc.video.sub.h265.vbr:min_iqp", "62"},
    {"fc003f00", "venc.video.sub.h265.qvbr:max_qp", "4129020"},
    {"40000000", "venc.video.sub.h265.qvbr:min_qp", "64"},
    {"fcfebeff", "venc.video.sub.h265.qvbr:max_iqp", "-4260100"},
    {"42000000", "venc.video.sub.h265.qvbr:min_iqp", "66"},
    {"0c014300", "venc.video.sub.h265.qvbr:bit_percent_ul", "4391180"},
    {"44000000", "venc.video.sub.h265.qvbr:bit_percent_ll", "68"},
    {"14014500", "venc.video.sub.h265.qvbr:psnr_fluctuate_ul", "4522260"},
    {"baffffff", "venc.video.sub.h265.qvbr:psnr_fluctuate_ll", "-70"},
    {"55000000", nullptr, nullptr},
    {"4b000000", nullptr, nullptr},
    {"01000000", "venc.snap.single:enable_dcf", "yes"},
    {"77", "venc.snap.single:largethumbnail_num", "375"},
    {"000000", nullptr, nullptr},
    {"4c000000", "venc.snap.single:largethumbnail0_width", "76"},
    {"34014d00", "venc.snap.single:largethumbnail0_height", "5046580"},
    {"4e000000", "venc.snap.single:largethumbnail1_width", "78"},
    {"3c014f00", "venc.snap.single:largethumbnail1_height", "5177660"},
    {"48000000", "venc.snap.single:quality_factor", "72"},
    {"24014900", "venc.snap.single:receivemode", "4784420"},
    {"4a000000", "venc.snap.single:encode_mode", "74"},
    {"00000000", "venc.snap.sub:enable_dcf", "no"},
    {"80", "venc.snap.sub:largethumbnail_num", "384"},
    {"000000", nullptr, nullptr},
    {"acfeaaff", "venc.snap.sub:largethumbnail0_width", "-5570900"},
    {"56000000", "venc.snap.sub:largethumbnail0_height", "86"},
    {"5c015700", "venc.snap.sub:largethumbnail1_width", "5701980"},
    {"58000000", "venc.snap.sub:largethumbnail1_height", "88"},
    {"44015100", "venc.snap.sub:quality_factor", "5308740"},
    {"52000000", "venc.snap.sub:receivemode", "82"},
    {"4c015300", "venc.snap.sub:encode_mode", "5439820"},
    {"01000000", "venc.hierarchical.qp:enable", "TRUE"},
    {"a6ffffff", "venc.hierarchical.qp:qp_delta0", "-90"},
    {"6c015b00", "venc.hierarchical.qp:qp_delta1", "5964140"},
    {"5c000000", "venc.hierarchical.qp:qp_delta2", "92"},
    {"74015d00", "venc.hierarchical.qp:qp_delta3", "6095220"},
    {"5e000000", "venc.hierarchical.qp:frame_num0", "94"},
    {"84fea0ff", "venc.hierarchical.qp:frame_num1", "-6226300"},
    {"60000000", "venc.hierarchical.qp:frame_num2", "96"},
    {"84016100", "venc.hierarchical.qp:frame_num3", "6357380"},
    {"62000000", "venc.live.src.0:bindedmod", "98"},
    {"8c016300", "venc.live.src.0:modhdl", "6488460"},
    {"9cffffff", "venc.live.src.0:chnhdl", "-100"},
    {"00000000", "disp.0:enable", "0"},
    {"66000000", "disp.0:disphdl", "102"},
    {"9c016700", "disp.0:bg_color", "6750620"},
    {"01000000", "disp.0.csc:enable", "1"},
    {"1a000000", "disp.0.csc:cscmatrix", "QX_MAPI_DISP_CSC_MATRIX_RGBFULL_TO_BT709LIMIT"},
    {"ac016b00", "disp.0.csc:luma", "7012780"},
    {"6c000000", "disp.0.csc:contrast", "108"},
    {"b4016d00", "disp.0.csc:hue", "7143860"},
    {"92ffffff", "disp.0.csc:saturation", "-110"},
    {"00000000", nullptr, nullptr},
    {"bc016f00", "disp.0.SRC.0:bindedmod", "7274940"},
    {"70000000", "disp.0.SRC.0:modhdl", "112"},
    {"c4017100", "disp.0.SRC.0:chnhdl", "7406020"},
    {"68000000", "disp.0:windowcnt", "104"},
    {"01000000", "disp.0.playbackwindow.0:enable", "true"},
    {"34fe8cff", "disp.0.playbackwindow.0:wndhdl", "-7537100"},
    {"74000000", "disp.0.playbackwindow.0:preview_cam_id", "116"},
    {"d4017500", "disp.0.playbackwindow.0:rotate", "7668180"},
    {"76000000", "disp.0.playbackwindow.0.aspectratio:mode", "118"},
    {"dc017700", "disp.0.playbackwindow.0.aspectratio:bg_color", "7799260"},
    {"88ffffff", "disp.0.playbackwindow.0.aspectratio:rect_x", "-120"},
    {"e4017900", "disp.0.playbackwindow.0.aspectratio:rect_y", "7930340"},
    {"7a000000", "disp.0.playbackwindow.0.aspectratio:rect_width", "122"},
    {"ec017b00", "disp.0.playbackwindow.0.aspectratio:rect_height", "8061420"},
    {"7c000000", "disp.0.playbackwindow.0.wndattr:rect_x", "124"},
    {"0cfe82ff", "disp.0.playbackwindow.0.wndattr:rect_y", "-8192500"},
    {"7e000000", "disp.0.playbackwindow.0.wndattr:rect_width", "126"},
    {"fc017f00", "disp.0.playbackwindow.0.wndattr:rect_height", "8323580"},
    {"80000000", "disp.0.playbackwindow.0.wndattr:priority", "128"},
    {"00000000", "acapture.0:enable", "No"},
    {"7effffff", "acapture.0:handle", "-130"},
    {"84000000", "acapture.0:sample_rate", "132"},
    {"14028500", "acapture.0:bit_width", "8716820"},
    {"86000000", "acapture.0:sound_mode", "134"},
    {"e4fd78ff", "acapture.0:track_mode", "-8847900"},
    {"88000000", "acapture.0:work_mode", "136"},
    {"2c028b00", "acapture.0.aac:ptnum_per_frm", "9110060"},
    {"24028900", "acapture.0:mixer_mic_mode", "8978980"},
    {"8a000000", "acapture.0:resample_rate", "138"},
    {"00000000", nullptr, nullptr},
    {"0c028300", "acapture.0:audiogain", "8585740"},
    {"01000000", "acapture.0.chnl.0:enable", "t"},
    {"74ffffff", "acapture.0.chnl.0:handle", "-140"},
    {"01000000", "acapture.0.chnl.0:enable_vqe", "yes"},
    {"00000000", "acapture.0.chnl.1:enable", "no"},
    {"3c028f00", "acapture.0.chnl.1:handle", "9372220"},
    {"01000000", "acapture.0.chnl.1:enable_vqe", "TRUE"},
    {"00000000", "aenc.0:enable", "0"},
    {"4c029300", "aenc.0:aenchdl", "9634380"},
    {"94000000", "aenc.0:acaphdl", "148"},
    {"54029500", "aenc.0:acapchdl", "9765460"},
    {"00000000", nullptr, nullptr},
    {"6affffff", "aenc.0.aac:ptnum_per_frm", "-150"},
    {"5c029700", "aenc.0.aac:aac_type", "9896540"},
    {"98000000", "aenc.0.aac:bit_rate", "152"},
    {"64029900", "aenc.0.aac:sample_rate", "10027620"},
    {"9a000000", "aenc.0.aac:bit_width", "154"},
    {"94fd64ff", "aenc.0.aac:sound_mode", "-10158700"},
    {"9c000000", "aenc.0.aac:trans_type", "156"},
    {"e0b1", "aenc.0.aac:band_width", "-20000"},
    {"0000", nullptr, nullptr},
    {"01000000", "ao.0:enable", "1"},
    {"7c029f00", "ao.0:handle", "10420860"},
    {"8402a100", "ao.0:sample_rate", "10551940"},
    {"a2000000", "ao.0:bit_width", "162"},
    {"8c02a300", "ao.0:sound_mode", "10683020"},
    {"a4000000", "ao.0:track_mode", "164"},
    {"6cfd5aff", "ao.0:work_mode", "-10814100"},
    {"9c02a700", "ao.0.aac:ptnum_per_frm", "10945180"},
    {"8402a100", nullptr, nullptr},
    {"a6000000", "ao.0:ao_i2c_type", "166"},
    {"60ffffff", "ao.0:volume", "-160"},
    {"01000000", "ao.0.chnl.0:enable", "true"},
    {"a8000000", "ao.0.chnl.0:handle", "168"},
    {"00000000", "ao.0.chnl.1:enable", "No"},
    {"56ffffff", "ao.0.chnl.1:handle", "-170"},
};

constexpr const char* kEcho[] = {
    "PDT_INIPARAM_LoadMediaCommVideoEncAttr: NodePrefix[venc.video.main]\n",
    "PDT_INIPARAM_LoadMediaCommVideoEncAttr: [venc.video.main] scene[65540:0-normal,1-dv,2-car]\n",
    "PDT_INIPARAM_LoadMediaCommVencH264Attr:     profile[2:0-baseline,1-main,2-high]\n",
    "PDT_INIPARAM_LoadMediaCommH26xCbrAttr:     [venc.video.main.h264.cbr]: MaxQP[196620] MinQP[4] "
    "MaxIQP[4294639596] MinIQP[6]\n",
    "PDT_INIPARAM_LoadMediaCommH26xVbrAttr:     [venc.video.main.h264.vbr]: MaxQP[458780] MinQP[8] "
    "MaxIQP[589860] MinIQP[4294967286]\n",
    "PDT_INIPARAM_LoadMediaCommH26xQvbrAttr:     [venc.video.main.h264.qvbr]: MaxQP[720940] "
    "MinQP[12] MaxIQP[852020] MinIQP[14]\n",
    "PDT_INIPARAM_LoadMediaCommH26xQvbrAttr:        BitPercentUL[-983100] BitPercentLL[16] "
    "PsnrFluctuateUL[1114180] PsnrFluctuateLL[18]\n",
    "PDT_INIPARAM_LoadMediaCommVencH265Attr:     profile[1245260:0-main]\n",
    "PDT_INIPARAM_LoadMediaCommH26xCbrAttr:     [venc.video.main.h265.cbr]: MaxQP[4294967276] "
    "MinQP[1376340] MaxIQP[22] MinIQP[1507420]\n",
    "PDT_INIPARAM_LoadMediaCommH26xVbrAttr:     [venc.video.main.h265.vbr]: MaxQP[24] "
    "MinQP[4293328796] MaxIQP[26] MinIQP[1769580]\n",
    "PDT_INIPARAM_LoadMediaCommH26xQvbrAttr:     [venc.video.main.h265.qvbr]: MaxQP[28] "
    "MinQP[1900660] MaxIQP[4294967266] MinIQP[2031740]\n",
    "PDT_INIPARAM_LoadMediaCommH26xQvbrAttr:        BitPercentUL[32] BitPercentLL[2162820] "
    "PsnrFluctuateUL[34] PsnrFluctuateLL[-2293900]\n",
    "PDT_INIPARAM_LoadMediaCommVideoEncAttr: NodePrefix[venc.video.sub]\n",
    "PDT_INIPARAM_LoadMediaCommVideoEncAttr: [venc.video.sub] scene[36:0-normal,1-dv,2-car]\n",
    "PDT_INIPARAM_LoadMediaCommVencH264Attr:     profile[2424980:0-baseline,1-main,2-high]\n",
    "PDT_INIPARAM_LoadMediaCommH26xCbrAttr:     [venc.video.sub.h264.cbr]: MaxQP[38] "
    "MinQP[2556060] MaxIQP[4294967256] MinIQP[2687140]\n",
    "PDT_INIPARAM_LoadMediaCommH26xVbrAttr:     [venc.video.sub.h264.vbr]: MaxQP[42] "
    "MinQP[2818220] MaxIQP[44] MinIQP[4292017996]\n",
    "PDT_INIPARAM_LoadMediaCommH26xQvbrAttr:     [venc.video.sub.h264.qvbr]: MaxQP[46] "
    "MinQP[3080380] MaxIQP[48] MinIQP[3211460]\n",
    "PDT_INIPARAM_LoadMediaCommH26xQvbrAttr:        BitPercentUL[-50] BitPercentLL[3342540] "
    "PsnrFluctuateUL[52] PsnrFluctuateLL[3473620]\n",
    "PDT_INIPARAM_LoadMediaCommVencH265Attr:     profile[54:0-main]\n",
    "PDT_INIPARAM_LoadMediaCommH26xCbrAttr:     [venc.video.sub.h265.cbr]: MaxQP[4291362596] "
    "MinQP[56] MaxIQP[3735780] MinIQP[58]\n",
    "PDT_INIPARAM_LoadMediaCommH26xVbrAttr:     [venc.video.sub.h265.vbr]: MaxQP[3866860] "
    "MinQP[4294967236] MaxIQP[3997940] MinIQP[62]\n",
    "PDT_INIPARAM_LoadMediaCommH26xQvbrAttr:     [venc.video.sub.h265.qvbr]: MaxQP[4129020] "
    "MinQP[64] MaxIQP[4290707196] MinIQP[66]\n",
    "PDT_INIPARAM_LoadMediaCommH26xQvbrAttr:        BitPercentUL[4391180] BitPercentLL[68] "
    "PsnrFluctuateUL[4522260] PsnrFluctuateLL[-70]\n",
    "PDT_INIPARAM_LoadMediaCommSnapEncAttr: NodePrefix[venc.snap.single]\n",
    "PDT_INIPARAM_LoadMediaCommSnapEncAttr: [venc.snap.single] DCF[1], QualityFactor[72], "
    "Receivemode[4784420], Encode_mode[74], LargeThumbNailNum[119]\n",
    "PDT_INIPARAM_LoadMediaCommSnapEncAttr: [venc.snap.single] "
    "largethumbnail0_width[76],largethumbnail0_height[5046580] \n",
    "PDT_INIPARAM_LoadMediaCommSnapEncAttr: [venc.snap.single] "
    "largethumbnail1_width[78],largethumbnail1_height[5177660] \n",
    "PDT_INIPARAM_LoadMediaCommSnapEncAttr: NodePrefix[venc.snap.sub]\n",
    "PDT_INIPARAM_LoadMediaCommSnapEncAttr: [venc.snap.sub] DCF[0], QualityFactor[5308740], "
    "Receivemode[82], Encode_mode[5439820], LargeThumbNailNum[128]\n",
    "PDT_INIPARAM_LoadMediaCommSnapEncAttr: [venc.snap.sub] "
    "largethumbnail0_width[-5570900],largethumbnail0_height[86] \n",
    "PDT_INIPARAM_LoadMediaCommSnapEncAttr: [venc.snap.sub] "
    "largethumbnail1_width[5701980],largethumbnail1_height[88] \n",
    "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp: NodePrefix[venc.hierarchical.qp]\n",
    "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp:   hierarchical.qp.enable[1]\n",
    "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp:   QpDelta0[-90]\n",
    "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp:   QpDelta1[5964140]\n",
    "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp:   QpDelta2[92]\n",
    "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp:   QpDelta3[6095220]\n",
    "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp:   FrameNum0[94]\n",
    "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp:   FrameNum1[-6226300]\n",
    "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp:   FrameNum2[96]\n",
    "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp:   FrameNum3[6357380]\n",
    "PDT_INIPARAM_LoadVideoModCfg:  venc.live.src.0 bindedMod[98] modHdl[6488460],  chnHdl[-100] "
    "\n",
    "PDT_INIPARAM_LoadMediaCommDispCfg: Display[0]: enable[0] disphdl[102]\n",
    "PDT_INIPARAM_LoadMediaCommDispCfg:  bg color[0067019c]\n",
    "PDT_INIPARAM_LoadMediaCommDispCfg: Display[0]: windowcnt[104]\n",
    "PDT_INIPARAM_LoadMediaCommDispCfg:     CSCEnable[1]\n",
    "PDT_INIPARAM_GetMediaCommCSCMatrixEnum:     "
    "CSCMatrix[QX_MAPI_DISP_CSC_MATRIX_RGBFULL_TO_BT709LIMIT] Enum[26]\n",
    "PDT_INIPARAM_LoadMediaCommDispCSCAttr:       luma[7012780], contrast[108], hue[7143860], "
    "saturation[4294967186]\n",
    "PDT_INIPARAM_LoadVideoModCfg:  disp.0.SRC.0 bindedMod[7274940] modHdl[112],  chnHdl[7406020] "
    "\n",
    "PDT_INIPARAM_LoadMediaCommDispWndCfg:     Prefix[disp.0.playbackwindow.0] enable[1] "
    "wndhdl[-7537100] preview_cam_id[116] \n",
    "PDT_INIPARAM_LoadMediaCommDispWndCfg:     Rotate[7668180, 0:0, 1:90, 2:180, 3:270]\n",
    "PDT_INIPARAM_LoadMediaCommDispAspectAttr:     aspect mode[118] bgcolor[7799260] "
    "start[4294967176,7930340], size[122,8061420]\n",
    "PDT_INIPARAM_LoadMediaCommDispWndAttr:     WndAttr pos[124,4286774796], size[126,8323580], "
    "priority[128]\n",
    "PDT_INIPARAM_LoadMediaCommAcapCfg: Acap[0] enable[0] hdl[-130] audio gain[8585740]\n",
    "PDT_INIPARAM_LoadMediaCommAcapCfg:     samplerate[132],bitWidth[8716820:0-8,1-16,2-24] "
    "soundMode[134:0-left,1-right,2-stereo]\n",
    "PDT_INIPARAM_LoadMediaCommAcapCfg:     resamplerate[138] "
    "acodec_mixer[8978980:0-IN0,1-IN1,2-IN_D] pointNumPerFrame[9110060]\n",
    "PDT_INIPARAM_LoadMediaCommAcapCfg: AcapChn0 :hadle[-140], enable[1], enableVqe[1]\n",
    "PDT_INIPARAM_LoadMediaCommAcapCfg: AcapChn1 :hadle[9372220], enable[0], enableVqe[1]\n",
    "PDT_INIPARAM_LoadMediaCommAencCfg: Aenc[0] enable[0] aenchdl[9634380] acaphdl[148] "
    "acapchdl[9765460]  format[0:0-aac,1-opus] pointNumPerFrame[4294967146]\n",
    "PDT_INIPARAM_LoadMediaCommAencAacCfg:     AAC "
    "Type[9896540:0-AACLC],bitrate[152],samplerate[10027620]\n",
    "PDT_INIPARAM_LoadMediaCommAencAacCfg:     "
    "bitWidth[154:0-8,1-16,2-24],soundMode[-10158700:0-mono,1-stereo] bandwidth[-20000]\n",
    "PDT_INIPARAM_LoadMediaCommAencAacCfg:     transType[156:0-ADTS,1-LOAS,2-LATM_MCP1]\n",
    "PDT_INIPARAM_LoadMediaCommAoCfg: Ao[0] enable[1] hdl[10420860]\n",
    "PDT_INIPARAM_LoadMediaCommAoAttr:     samplerate[10551940] insamplerate[10551940] "
    "bitWidth[162:0-8,1-16,2-24] soundMode[10683020:0-left,1-right,2-stereo]\n",
    "PDT_INIPARAM_LoadMediaCommAoCfg: chn[0],aoChnHdl[168],enable[1]\n",
    "PDT_INIPARAM_LoadMediaCommAoCfg: chn[1],aoChnHdl[-170],enable[0]\n",
};

std::string FromHex(const std::string& digits) {
    std::string bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
    }
    return bytes;
}

TEST(MediaCommonSection, EveryByteAndEveryEcho) {
    ProductTree tree;
    std::string expected;
    for (const Part& part : kParts) {
        expected += FromHex(part.bytes);
        if (part.key != nullptr) {
            tree.Set("media_common", part.key, part.text);
        }
    }
    const LoadResult result = RunLoad(tree, 716, [](void* record) {
        return PDT_INIPARAM_LoadMediaCommConf(static_cast<MediaCommCfg*>(record));
    });
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(expected.size(), 716U);
    EXPECT_TRUE(SameRecord(kMediaCommTable, expected, result.record));
    EXPECT_THAT(EchoOf(result.output), ::testing::ElementsAreArray(kEcho));
    EXPECT_THAT(ErrorsOf(result.output), ::testing::IsEmpty());
}

}  // namespace
}  // namespace paramgen::testing
