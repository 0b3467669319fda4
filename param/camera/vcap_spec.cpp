#include "param/camera/vcap_spec.h"

#include "confaccess/number.h"
#include "confaccess/watch.h"
#include "param/common/key.h"
#include "param/common/propagate.h"
#include "param/common/readers.h"

namespace paramgen {

constexpr char kVcapDevNode[] = "vcap.dev";

constexpr Field kVcapSnsFields[] = {
    FIELD(VcapSnsAttr, sensorType, "sensor_type", 0).At(kVcapDevNode).About("Type of the sensor"),
    FIELD(VcapSnsAttr, sensorMode, "sensor_mode", 0).At(kVcapDevNode).About("Mode of the sensor"),
    FIELD(VcapSnsAttr, sensorWidth, "sensor_width", 0)
        .At(kVcapDevNode)
        .About("Width of the sensor")
        .Unit("px"),
    FIELD(VcapSnsAttr, sensorHeight, "sensor_height", 0)
        .At(kVcapDevNode)
        .About("Height of the sensor")
        .Unit("px"),
    RESERVED(VcapSnsAttr, reserved).About("Reserved"),
    FIELD(VcapSnsAttr, dataType, "data_type", 0)
        .At(kVcapDevNode)
        .About("Type of the data from the sensor"),
    FIELD(VcapSnsAttr, wdrMode, "wdr_mode", 0)
        .At(kVcapDevNode)
        .About("Wide dynamic range mode of the sensor"),
};

constexpr TableOf<VcapSnsAttr> kVcapSnsTable{nullptr, kVcapSnsFields};

constexpr Field kVcapSpecFields[] = {
    RECORD(VcapSpecCfg, sns, kVcapSnsTable),
    COPY(VcapSpecCfg, wdrMode, sns.wdrMode)
        .About("Wide dynamic range mode of the capture device: that of the sensor"),
    FIELD(VcapSpecCfg, cacheLine, "cacheLine", 0)
        .At(kVcapDevNode)
        .About("Lines that are cached")
        .Unit("lines"),
    FIELD(VcapSpecCfg, basWidth, "bas_width", 0)
        .At(kVcapDevNode)
        .About("Base width of the capture device")
        .Unit("px"),
    FIELD(VcapSpecCfg, basHeight, "bas_height", 0)
        .At(kVcapDevNode)
        .About("Base height of the capture device")
        .Unit("px"),
    LOADED(VcapSpecCfg, componentMask, "componentmask%u", 0)
        .At(kVcapDevNode)
        .About("Mask of the data bits of the sensor bus; not negative"),
    RECORD(VcapSpecCfg, pipes, kVcapPipeSpecTable),
    RESERVED(VcapSpecCfg, reserved1).About("Reserved"),
    RESERVED(VcapSpecCfg, reserved2).About("Reserved"),
    RESERVED(VcapSpecCfg, reserved3).About("Reserved"),
};

constexpr TableOf<VcapSpecCfg> kVcapSpecTable{nullptr, kVcapSpecFields};

Status PDT_INIPARAM_LoadCamVcapSnsCfg(const char* module, VcapSnsAttr* attr) {
    LOAD_OR_RETURN(module, nullptr, kVcapSnsTable, attr);
    LOG_DEBUG(
        "vcapdev  sensor attr, sensor_mode[%d],sensor_width[%d],sensor_height[%d],data_type[%d] "
        "wdr_mode[%d] \n",
        attr->sensorMode, attr->sensorWidth, attr->sensorHeight, attr->dataType, attr->wdrMode);
    return kOk;
}

Status PDT_INIPARAM_LoadCamVcapSpecCfg(const char* module, MediaMode mode, VcapSpecCfg* cfg) {
    REQUIRE_RECORD_OR_RETURN(cfg);
    CALL_OR_RETURN(PDT_INIPARAM_LoadCamVcapSnsCfg(module, &cfg->sns), "VcapSnsAttr");
    LOAD_OR_RETURN(module, nullptr, ROWS(kVcapSpecTable, wdrMode, basHeight), cfg);
    LOG_DEBUG("vcap dev attr,bas_width[%u],bas_height[%u] wdr_mode[%d]\n", cfg->basWidth,
              cfg->basHeight, cfg->wdrMode);
    for (std::uint32_t i = 0; i < kVcapComponentMaskCount; ++i) {
        Key item;
        constexpr const Field& row = ROW(kVcapSpecTable, componentMask);
        FORMAT_KEY_OR_RETURN(item, {}, row, i);
        const char* text = nullptr;
        WATCH_DESTINATION(&cfg->componentMask[i], sizeof cfg->componentMask[i]);
        const Status status = FindText(module, item.c_str(), &text);
        const std::int32_t mask = text == nullptr ? row.Number() : ParseInteger(text, 10);
        if (mask < 0) {
            LOG_ERROR("componentmask error, out of range");
            return kFailed;
        }
        cfg->componentMask[i] = static_cast<std::uint32_t>(mask);  // 0 when the query failed
        CALL_OR_RETURN(status, item.c_str());
        LOG_DEBUG("vcap dev attr,componentmask%u[%u] \n", i, cfg->componentMask[i]);
    }
    for (std::uint32_t i = 0; i < kVcapPipeSpecCount; ++i) {
        CALL_OR_RETURN(PDT_INIPARAM_LoadCamVcapPipeSpecCfg(module, i, mode, &cfg->pipes[i]),
                       "VcapPipeSpec");
    }
    return kOk;
}

}  // namespace paramgen
