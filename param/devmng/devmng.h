/// Device management section: device identity, storage, g-sensor and system switches.
///
/// Every loader takes the module to read, and the record to fill; it returns 0, or the code of the
/// first step that failed, having logged it. What was loaded before a failure stays. A null record
/// fails with -1. No value of this section is checked for its range.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/common/values.h"

namespace paramgen {

/// Who the device is. 128 bytes.
struct DevInfo {
    char softwareVersion[64];
    char model[64];
};
static_assert(sizeof(DevInfo) == 128);

/// Where recordings are stored. 264 bytes.
struct StorageCfg {
    char mountPath[128];
    char devicePath[128];
    std::int32_t mediumType;
    std::uint32_t devicePortNo;
};
static_assert(sizeof(StorageCfg) == 264);

/// How strong a shock must be to count. 12 bytes.
struct GsensorCfg {
    std::int32_t sensitivity;
    std::int32_t parkingSensitivity;
    std::int32_t reserved;
};
static_assert(sizeof(GsensorCfg) == 12);

/// System switches. 16 bytes.
struct SysCfg {
    Bool32 keyTone;
    Bool32 bootSound;
    std::int32_t language;
    Bool32 buzzer;
};
static_assert(sizeof(SysCfg) == 16);

/// The section. 420 bytes.
struct DevMngCfg {
    DevInfo devInfo;
    StorageCfg storage;
    GsensorCfg gsensor;
    SysCfg sys;
};
static_assert(sizeof(DevMngCfg) == 420);
static_assert(offsetof(DevMngCfg, storage) == 128);
static_assert(offsetof(DevMngCfg, gsensor) == 392);
static_assert(offsetof(DevMngCfg, sys) == 404);

extern const TableOf<DevInfo> kDevInfoTable;
extern const TableOf<StorageCfg> kStorageTable;
extern const TableOf<GsensorCfg> kGsensorTable;
extern const TableOf<SysCfg> kSysTable;
extern const ModuleTableOf<DevMngCfg> kDevMngTable;

/// These load one record each.
[[nodiscard]] Status PDT_INIPARAM_LoadDevInfo(const char* module, DevInfo* info);
[[nodiscard]] Status PDT_INIPARAM_LoadStorageCfg(const char* module, StorageCfg* cfg);
[[nodiscard]] Status PDT_INIPARAM_LoadGsensorCfg(const char* module, GsensorCfg* cfg);
[[nodiscard]] Status PDT_INIPARAM_LoadSysCfg(const char* module, SysCfg* cfg);

/// Loads the whole section. Returns -1 when `section` is null.
[[nodiscard]] Status PDT_INIPARAM_LoadDevMngConf(DevMngCfg* section);

}  // namespace paramgen
