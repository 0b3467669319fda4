#include "param/media_common/audio_enc.h"

#include "param/common/propagate.h"

namespace paramgen {

constexpr Field kAencAacFields[] = {
    FIELD(AencAacAttr, aacType, "aac_type", 0).About("Type of AAC").Numbers("0 AAC-LC"),
    FIELD(AencAacAttr, bitRate, "bit_rate", 0).About("Bit rate").Unit("bit/s"),
    FIELD(AencAacAttr, sampleRate, "sample_rate", 0).About("Sample rate").Unit("Hz"),
    FIELD(AencAacAttr, bitWidth, "bit_width", 0)
        .About("Bits of a sample")
        .Numbers("0 8 bits, 1 16 bits, 2 24 bits"),
    FIELD(AencAacAttr, soundMode, "sound_mode", 0).About("Sound mode").Numbers("0 mono, 1 stereo"),
    FIELD(AencAacAttr, transportType, "trans_type", 0)
        .About("Transport format")
        .Numbers("0 ADTS, 1 LOAS, 2 LATM_MCP1"),
    FIELD(AencAacAttr, bandWidth, "band_width", 0)
        .About("Band width; from -32768 to 32767")
        .Unit("Hz"),
    RESERVED(AencAacAttr, reserved).About("Reserved"),
};

constexpr Field kAencMp3Fields[] = {
    FIELD(AencMp3Attr, bitRate, "bit_rate", 0).About("Bit rate").Unit("bit/s"),
    FIELD(AencMp3Attr, sampleRate, "sample_rate", 0).About("Sample rate").Unit("Hz"),
    FIELD(AencMp3Attr, bitWidth, "bit_width", 0)
        .About("Bits of a sample")
        .Numbers("0 8 bits, 1 16 bits, 2 24 bits"),
    FIELD(AencMp3Attr, soundMode, "sound_mode", 0).About("Sound mode").Numbers("0 mono, 1 stereo"),
    FIELD(AencMp3Attr, quality, "quality", 0).About("Quality of the encoder"),
};

constexpr TableOf<AencAacAttr> kAencAacTable{"aenc.%d.aac", kAencAacFields};
constexpr TableOf<AencMp3Attr> kAencMp3Table{"aenc.%d.mp3", kAencMp3Fields};

constexpr Field kAencFields[] = {
    FIELD(AencCfg, enable, "enable", 0).About("The encoder is in use"),
    FIELD(AencCfg, handle, "aenchdl", 0).About("Handle of the encoder"),
    FIELD(AencCfg, acapHandle, "acaphdl", 0).About("Handle of the capture device that it encodes"),
    FIELD(AencCfg, acapChnHandle, "acapchdl", 0).About("Handle of the channel of that device"),
    CONSTANT(AencCfg, format, kAencFormatAac).About("Format of the sound; always 0 (AAC)"),
    FIELD(AencCfg, pointsPerFrame, "ptnum_per_frm", 0)
        .Under("aenc.%d.aac")
        .About("Samples of a frame")
        .Unit("samples"),
    RECORD(AencCfg, aac, kAencAacTable),
};

constexpr TableOf<AencCfg> kAencTable{"aenc.%d", kAencFields};

Status PDT_INIPARAM_LoadMediaCommAencAacCfg(const char* module, std::int32_t index,
                                            AencAacAttr* attr) {
    LOAD_AT_OR_RETURN(module, kAencAacTable, attr, index);
    LOG_DEBUG("    AAC Type[%d:0-AACLC],bitrate[%d],samplerate[%d]\n", attr->aacType, attr->bitRate,
              attr->sampleRate);
    LOG_DEBUG("    bitWidth[%d:0-8,1-16,2-24],soundMode[%d:0-mono,1-stereo] bandwidth[%d]\n",
              attr->bitWidth, attr->soundMode, attr->bandWidth);
    LOG_DEBUG("    transType[%d:0-ADTS,1-LOAS,2-LATM_MCP1]\n", attr->transportType);
    return kOk;
}

Status PDT_INIPARAM_LoadMediaCommAencMp3Cfg(const char* module, std::int32_t index,
                                            AencMp3Attr* attr) {
    LOAD_AT_OR_RETURN(module, kAencMp3Table, attr, index);
    LOG_DEBUG("    bitrate[%d],samplerate[%d]\n", attr->bitRate, attr->sampleRate);
    LOG_DEBUG("    bitWidth[%d:0-8,1-16,2-24], soundMode[%d:0-mono,1-stereo] quality[%d]\n",
              attr->bitWidth, attr->soundMode, attr->quality);
    return kOk;
}

Status PDT_INIPARAM_LoadMediaCommAencCfg(const char* module, std::int32_t index, AencCfg* cfg) {
    LOAD_AT_OR_RETURN(module, ROWS(kAencTable, enable, format), cfg, index);
    LOAD_AT_OR_RETURN(module, ROW(kAencTable, pointsPerFrame), cfg, index);
    LOG_DEBUG(
        "Aenc[%d] enable[%d] aenchdl[%d] acaphdl[%d] acapchdl[%d]  format[%d:0-aac,1-opus] "
        "pointNumPerFrame[%u]\n",
        index, cfg->enable, cfg->handle, cfg->acapHandle, cfg->acapChnHandle, cfg->format,
        cfg->pointsPerFrame);
    switch (cfg->format) {
        case kAencFormatAac:
            CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommAencAacCfg(module, index, &cfg->aac),
                           "Aenc AAC");
            return kOk;
        case kAencFormatMp3:
            CALL_OR_RETURN(PDT_INIPARAM_LoadMediaCommAencMp3Cfg(module, index, &cfg->mp3),
                           "Aenc MP3");
            return kOk;
        default:
            LOG_ERROR("audio_format[%d] is not support now\n", cfg->format);
            return kFailed;
    }
}

}  // namespace paramgen
