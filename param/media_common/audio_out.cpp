#include "param/media_common/audio_out.h"

#include "param/common/propagate.h"

namespace paramgen {

constexpr Field kAoAttrFields[] = {
    FIELD(AoAttr, sampleRate, "sample_rate", 0).About("Sample rate").Unit("Hz"),
    COPY(AoAttr, inSampleRate, sampleRate).About("Sample rate of the input; the same").Unit("Hz"),
    FIELD(AoAttr, bitWidth, "bit_width", 0)
        .About("Bits of a sample")
        .Numbers("0 8 bits, 1 16 bits, 2 24 bits"),
    FIELD(AoAttr, soundMode, "sound_mode", 0)
        .About("Sound mode")
        .Numbers("0 left, 1 right, 2 stereo"),
    FIELD(AoAttr, trackMode, "track_mode", 0).About("Track mode"),
    FIELD(AoAttr, workMode, "work_mode", 6).About("Work mode"),
    FIELD(AoAttr, i2cType, "ao_i2c_type", 0).About("I2C type"),
    FIELD(AoAttr, pointsPerFrame, "ptnum_per_frm", 0)
        .Under("ao.%d.aac")
        .About("Samples of a frame")
        .Unit("samples"),
};

constexpr Field kAoChnFields[] = {
    QUERY(AoChnAttr, handle, "handle", 0).About("Handle of the channel"),
    QUERY(AoChnAttr, enable, "enable", 0).About("The channel is in use"),
};

constexpr TableOf<AoAttr> kAoAttrTable{nullptr, kAoAttrFields};
constexpr TableOf<AoChnAttr> kAoChnTable{nullptr, kAoChnFields};

constexpr Field kAoFields[] = {
    FIELD(AoCfg, enable, "enable", 0).About("The output is in use"),
    FIELD(AoCfg, handle, "handle", 0).About("Handle of the output"),
    FIELD(AoCfg, volume, "volume", 0).About("Volume of the loudspeaker"),
    RECORD(AoCfg, attr, kAoAttrTable),
    RECORD(AoCfg, chn, kAoChnTable).Under("ao.%d.chnl.%d"),
};

constexpr TableOf<AoCfg> kAoTable{"ao.%d", kAoFields};

Status PDT_INIPARAM_LoadMediaCommAoAttr(const char* module, const char* prefix, AoAttr* attr) {
    LOAD_OR_RETURN(module, prefix, ROWS(kAoAttrTable, sampleRate, soundMode), attr);
    LOG_DEBUG(
        "    samplerate[%d] insamplerate[%d] bitWidth[%d:0-8,1-16,2-24] "
        "soundMode[%d:0-left,1-right,2-stereo]\n",
        attr->sampleRate, attr->inSampleRate, attr->bitWidth, attr->soundMode);
    LOAD_OR_RETURN(module, prefix, ROWS(kAoAttrTable, trackMode, i2cType), attr);
    return kOk;
}

Status PDT_INIPARAM_LoadMediaCommAoCfg(const char* module, std::int32_t index, AoCfg* cfg) {
    Key node;
    FILL_OR_RETURN(node, "sprintf_s", kAoTable, index);
    LOAD_OR_RETURN(module, node, kAoTable, cfg);
    LOG_DEBUG("Ao[%d] enable[%d] hdl[%d]\n", index, cfg->enable, cfg->handle);
    CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommAoAttr(module, node.c_str(), &cfg->attr), "ao attr");
    LOAD_AT_OR_RETURN(module, ROW(kAoAttrTable, pointsPerFrame), &cfg->attr, index);
    for (std::int32_t i = 0; i < kAoChnCount; ++i) {
        AoChnAttr& chn = cfg->chn[i];
        FILL_OR_RETURN(node, "sprintf_s", ROW(kAoTable, chn), index, i);
        LOAD_OR_RETURN(module, node, kAoChnTable, &chn);
        LOG_DEBUG("chn[%d],aoChnHdl[%d],enable[%d]\n", i, chn.handle, chn.enable);
    }
    return kOk;
}

}  // namespace paramgen
