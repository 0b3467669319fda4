#include "param/devmng/devmng.h"

#include "param/common/propagate.h"

namespace paramgen {

constexpr char kStorageNode[] = "storagemng";

constexpr Field kDevInfoFields[] = {
    FIELD(DevInfo, softwareVersion, "software_version")
        .At("devinfo")
        .About("Version of the software"),
    FIELD(DevInfo, model, "model").At("devinfo").About("Model of the device"),
};

constexpr Field kStorageFields[] = {
    FIELD(StorageCfg, mountPath, "mount_path").At(kStorageNode).About("Mount path of the storage"),
    FIELD(StorageCfg, devicePath, "dev_path").At(kStorageNode).About("Device path of the storage"),
    CONSTANT(StorageCfg, mediumType, 0).About("Type of the medium; always 0"),
    CONSTANT(StorageCfg, devicePortNo, 0).About("Number of the device port; always 0"),
};

constexpr Field kGsensorFields[] = {
    FIELD(GsensorCfg, sensitivity, "sensitivity", 0)
        .At("gsensor")
        .About("Sensitivity of the g-sensor while driving"),
    FIELD(GsensorCfg, parkingSensitivity, "sensitivity", 0)
        .At("parking")
        .About("Sensitivity of the g-sensor while parked"),
    CONSTANT(GsensorCfg, reserved, 0).About("Always 0"),
};

constexpr Field kSysFields[] = {
    FIELD(SysCfg, keyTone, "enable", 0).At("keytone").About("Keys make a tone"),
    FIELD(SysCfg, bootSound, "enable", 0).At("bootsound").About("A sound is played at power-on"),
    FIELD(SysCfg, language, "system_language", 0).At("language").About("Language of the menus"),
    FIELD(SysCfg, buzzer, "enable", 0).At("buzzer").About("The buzzer is on"),
};

constexpr TableOf<DevInfo> kDevInfoTable{nullptr, kDevInfoFields};
constexpr TableOf<StorageCfg> kStorageTable{nullptr, kStorageFields};
constexpr TableOf<GsensorCfg> kGsensorTable{nullptr, kGsensorFields};
constexpr TableOf<SysCfg> kSysTable{nullptr, kSysFields};

constexpr Field kDevMngFields[] = {
    RECORD(DevMngCfg, devInfo, kDevInfoTable),
    RECORD(DevMngCfg, storage, kStorageTable),
    RECORD(DevMngCfg, gsensor, kGsensorTable),
    RECORD(DevMngCfg, sys, kSysTable),
};

constexpr ModuleTableOf<DevMngCfg> kDevMngTable{"devmng", kDevMngFields};

Status PDT_INIPARAM_LoadDevInfo(const char* module, DevInfo* info) {
    LOAD_OR_RETURN(module, nullptr, kDevInfoTable, info);
    LOG_DEBUG("software version[%s], model[%s]\n", info->softwareVersion, info->model);
    return kOk;
}

Status PDT_INIPARAM_LoadStorageCfg(const char* module, StorageCfg* cfg) {
    LOAD_OR_RETURN(module, nullptr, kStorageTable, cfg);
    LOG_DEBUG("mount path[%s], device path[%s], mediumType[%d] devPortNo[%u]\n", cfg->mountPath,
              cfg->devicePath, cfg->mediumType, cfg->devicePortNo);
    return kOk;
}

Status PDT_INIPARAM_LoadGsensorCfg(const char* module, GsensorCfg* cfg) {
    LOAD_OR_RETURN(module, nullptr, ROW(kGsensorTable, sensitivity), cfg);
    LOG_DEBUG("gsensor sensitivity[%d]\n", cfg->sensitivity);
    LOAD_OR_RETURN(module, nullptr, ROW(kGsensorTable, parkingSensitivity), cfg);
    LOG_DEBUG("gsensor parking sensitivity[%d]\n", cfg->parkingSensitivity);
    LOAD_OR_RETURN(module, nullptr, ROW(kGsensorTable, reserved), cfg);
    return kOk;
}

Status PDT_INIPARAM_LoadSysCfg(const char* module, SysCfg* cfg) {
    LOAD_OR_RETURN(module, nullptr, ROW(kSysTable, keyTone), cfg);
    LOG_DEBUG("keytone enable[%d]\n", cfg->keyTone);
    LOAD_OR_RETURN(module, nullptr, ROW(kSysTable, bootSound), cfg);
    LOG_DEBUG("bootsound enable[%d]\n", cfg->bootSound);
    LOAD_OR_RETURN(module, nullptr, ROW(kSysTable, language), cfg);
    LOG_DEBUG("system language[%d]\n", cfg->language);
    LOAD_OR_RETURN(module, nullptr, ROW(kSysTable, buzzer), cfg);
    LOG_DEBUG("buzzer enable[%d]\n", cfg->buzzer);
    return kOk;
}

Status PDT_INIPARAM_LoadDevMngConf(DevMngCfg* section) {
    const char* module = kDevMngTable.module;
    REQUIRE_RECORD_OR_RETURN(section);
    CALL_OR_RETURN(PDT_INIPARAM_LoadDevInfo(module, &section->devInfo), "devinfo");
    CALL_OR_RETURN(PDT_INIPARAM_LoadStorageCfg(module, &section->storage), "storage");
    CALL_OR_RETURN(PDT_INIPARAM_LoadGsensorCfg(module, &section->gsensor), "gsensor config");
    CALL_OR_RETURN(PDT_INIPARAM_LoadSysCfg(module, &section->sys), "system config");
    return kOk;
}

}  // namespace paramgen
