#include "param/media_common/audio_enc.h"

#include "param/common/propagate.h"

namespace paramgen {

constexpr char kAencNode[] = "aenc.%d";
constexpr char kAacNode[] = "aenc.%d.aac";
constexpr char kMp3Node[] = "aenc.%d.mp3";

constexpr Field kAencAacFields[] = {
    FIELD(AencAacAttr, aacType, "aac_type", 0),
    FIELD(AencAacAttr, bitRate, "bit_rate", 0),
    FIELD(AencAacAttr, sampleRate, "sample_rate", 0),
    FIELD(AencAacAttr, bitWidth, "bit_width", 0),
    FIELD(AencAacAttr, soundMode, "sound_mode", 0),
    FIELD(AencAacAttr, transportType, "trans_type", 0),
    FIELD(AencAacAttr, bandWidth, "band_width", 0),
    RESERVED(AencAacAttr, reserved),
};

constexpr Field kAencMp3Fields[] = {
    FIELD(AencMp3Attr, bitRate, "bit_rate", 0),   FIELD(AencMp3Attr, sampleRate, "sample_rate", 0),
    FIELD(AencMp3Attr, bitWidth, "bit_width", 0), FIELD(AencMp3Attr, soundMode, "sound_mode", 0),
    FIELD(AencMp3Attr, quality, "quality", 0),
};

constexpr TableOf<AencAacAttr> kAencAacTable{kAacNode, kAencAacFields};
constexpr TableOf<AencMp3Attr> kAencMp3Table{kMp3Node, kAencMp3Fields};

constexpr Field kAencFields[] = {
    FIELD(AencCfg, enable, "enable", 0),
    FIELD(AencCfg, handle, "aenchdl", 0),
    FIELD(AencCfg, acapHandle, "acaphdl", 0),
    FIELD(AencCfg, acapChnHandle, "acapchdl", 0),
    CONSTANT(AencCfg, format, kAencFormatAac),
    FIELD(AencCfg, pointsPerFrame, "ptnum_per_frm", 0).Under(kAacNode),
    RECORD(AencCfg, aac, kAencAacTable),
};

constexpr TableOf<AencCfg> kAencTable{kAencNode, kAencFields};

Status PDT_INIPARAM_LoadMediaCommAencAacCfg(const char* module, std::int32_t index,
                                            AencAacAttr* attr) {
    Key node;
    FORMAT_OR_RETURN(node, "sprintf_s", kAacNode, index);
    LOAD_OR_RETURN(module, node.c_str(), kAencAacTable, attr);
    LOG_DEBUG("    AAC Type[%d:0-AACLC],bitrate[%d],samplerate[%d]\n", attr->aacType, attr->bitRate,
              attr->sampleRate);
    LOG_DEBUG("    bitWidth[%d:0-8,1-16,2-24],soundMode[%d:0-mono,1-stereo] bandwidth[%d]\n",
              attr->bitWidth, attr->soundMode, attr->bandWidth);
    LOG_DEBUG("    transType[%d:0-ADTS,1-LOAS,2-LATM_MCP1]\n", attr->transportType);
    return kOk;
}

Status PDT_INIPARAM_LoadMediaCommAencMp3Cfg(const char* module, std::int32_t index,
                                            AencMp3Attr* attr) {
    Key node;
    FORMAT_OR_RETURN(node, "sprintf_s", kMp3Node, index);
    LOAD_OR_RETURN(module, node.c_str(), kAencMp3Table, attr);
    LOG_DEBUG("    bitrate[%d],samplerate[%d]\n", attr->bitRate, attr->sampleRate);
    LOG_DEBUG("    bitWidth[%d:0-8,1-16,2-24], soundMode[%d:0-mono,1-stereo] quality[%d]\n",
              attr->bitWidth, attr->soundMode, attr->quality);
    return kOk;
}

Status PDT_INIPARAM_LoadMediaCommAencCfg(const char* module, std::int32_t index, AencCfg* cfg) {
    Key node;
    FORMAT_OR_RETURN(node, "sprintf_s", kAencNode, index);
    LOAD_OR_RETURN(module, node.c_str(), ROWS(kAencTable, enable, format), cfg);
    FORMAT_OR_RETURN(node, "sprintf_s", kAacNode, index);
    LOAD_OR_RETURN(module, node.c_str(), ROW(kAencTable, pointsPerFrame), cfg);
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
