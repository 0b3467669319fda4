#include "param/media_common/audio_capture.h"

#include "param/common/propagate.h"

namespace paramgen {

constexpr Field kAcapAttrFields[] = {
    FIELD(AcapAttr, sampleRate, "sample_rate", 0).About("Sample rate").Unit("Hz"),
    FIELD(AcapAttr, bitWidth, "bit_width", 0)
        .About("Bits of a sample")
        .Numbers("0 8 bits, 1 16 bits, 2 24 bits"),
    FIELD(AcapAttr, soundMode, "sound_mode", 0)
        .About("Sound mode")
        .Numbers("0 left, 1 right, 2 stereo"),
    FIELD(AcapAttr, trackMode, "track_mode", 0).Label("trackMode").About("Track mode"),
    FIELD(AcapAttr, workMode, "work_mode", 0).About("Work mode"),
    FIELD(AcapAttr, mixerMicMode, "mixer_mic_mode", 0)
        .About("Microphone input of the codec")
        .Numbers("0 IN0, 1 IN1, 2 IN_D"),
    FIELD(AcapAttr, resampleRate, "resample_rate", 0)
        .About("Sample rate that is handed on to the encoder")
        .Unit("Hz"),
    FIELD(AcapAttr, pointsPerFrame, "ptnum_per_frm", 0)
        .Under("acapture.%d.aac")
        .About("Samples of a frame")
        .Unit("samples"),
    CONSTANT(AcapAttr, fixed0, 0).About("Always 0"),
};

constexpr Field kAcapChnFields[] = {
    FIELD(AcapChnAttr, handle, "handle", 0).About("Handle of the channel"),
    FIELD(AcapChnAttr, enable, "enable", 0).About("The channel is in use"),
    FIELD(AcapChnAttr, enableVqe, "enable_vqe", 0).About("Voice quality enhancement is on"),
};

constexpr TableOf<AcapAttr> kAcapAttrTable{nullptr, kAcapAttrFields};
constexpr TableOf<AcapChnAttr> kAcapChnTable{nullptr, kAcapChnFields};

constexpr Field kAcapFields[] = {
    FIELD(AcapCfg, enable, "enable", 0).About("The capture device is in use"),
    FIELD(AcapCfg, handle, "handle", 0).About("Handle of the capture device"),
    FIELD(AcapCfg, audioGain, "audiogain", 0).About("Gain of the microphone amplifier"),
    RECORD(AcapCfg, attr, kAcapAttrTable),
    RECORD(AcapCfg, chn, kAcapChnTable).Under("acapture.%d.chnl.%d"),
};

constexpr TableOf<AcapCfg> kAcapTable{"acapture.%d", kAcapFields};

Status PDT_INIPARAM_LoadMediaCommAcapAttr(const char* module, const char* prefix, AcapAttr* attr) {
    LOAD_OR_RETURN(module, prefix, ROWS(kAcapAttrTable, sampleRate, resampleRate), attr);
    return kOk;
}

Status PDT_INIPARAM_LoadMediaCommAcapChnAttr(const char* module, const char* prefix,
                                             AcapChnAttr* attr) {
    LOAD_OR_RETURN(module, prefix, kAcapChnTable, attr);
    return kOk;
}

Status PDT_INIPARAM_LoadMediaCommAcapCfg(const char* module, std::int32_t index, AcapCfg* cfg) {
    Key node;
    FILL_OR_RETURN(node, "sprintf_s", kAcapTable, index);
    LOAD_OR_RETURN(module, node, kAcapTable, cfg);
    LOG_DEBUG("Acap[%d] enable[%d] hdl[%d] audio gain[%d]\n", index, cfg->enable, cfg->handle,
              cfg->audioGain);
    AcapAttr& attr = cfg->attr;
    CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommAcapAttr(module, node.c_str(), &attr), "acap attr");
    LOAD_AT_OR_RETURN(module, ROW(kAcapAttrTable, pointsPerFrame), &attr, index);
    for (std::int32_t i = 0; i < kAcapChnCount; ++i) {
        FILL_OR_RETURN(node, "sprintf_s", ROW(kAcapTable, chn), index, i);
        CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommAcapChnAttr(module, node.c_str(), &cfg->chn[i]),
                       "acap chn");
    }
    LOAD_OR_RETURN(module, nullptr, ROW(kAcapAttrTable, fixed0), &attr);
    LOG_DEBUG(
        "    samplerate[%d],bitWidth[%d:0-8,1-16,2-24] soundMode[%d:0-left,1-right,2-stereo]\n",
        attr.sampleRate, attr.bitWidth, attr.soundMode);
    LOG_DEBUG("    resamplerate[%d] acodec_mixer[%d:0-IN0,1-IN1,2-IN_D] pointNumPerFrame[%u]\n",
              attr.resampleRate, attr.mixerMicMode, attr.pointsPerFrame);
    for (std::int32_t i = 0; i < kAcapChnCount; ++i) {
        LOG_DEBUG("AcapChn%d :hadle[%d], enable[%d], enableVqe[%d]\n", i, cfg->chn[i].handle,
                  cfg->chn[i].enable, cfg->chn[i].enableVqe);
    }
    return kOk;
}

}  // namespace paramgen
