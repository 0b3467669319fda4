/// File management section: where recordings are stored and how the storage is organised.
///
/// Every loader takes the module to read, and the record to fill; it returns 0, or the code of the
/// first step that failed, having logged it. What was loaded before a failure stays. A null record
/// fails with -1.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/common/values.h"

namespace paramgen {

inline constexpr std::size_t kPreAllocCount = 2;
inline constexpr std::size_t kDirNameCount = 14;

/// Mount path and file repair. 392 bytes.
struct FileMngCommCfg {
    char mountPath[128];
    Bool32 repair;
    Bool32 parseExtraMdat;
    char repairRootDir[128];
    char repairTopDirName[128];
};
static_assert(sizeof(FileMngCommCfg) == 392);

/// Organisation of the storage: pre-allocated files, shared space and directories. 1052 bytes.
struct DtcfCfg {
    std::uint32_t preAllocCount[kPreAllocCount];
    std::uint32_t preAllocUnit[kPreAllocCount];
    std::int32_t sharePercent;
    std::uint32_t warningStage;
    std::uint32_t guaranteedStage;
    char rootDir[128];
    char dirNames[kDirNameCount][64];
};
static_assert(sizeof(DtcfCfg) == 1052);
static_assert(offsetof(DtcfCfg, rootDir) == 28);
static_assert(offsetof(DtcfCfg, dirNames) == 156);

/// The section. 1444 bytes.
struct FileMngCfg {
    FileMngCommCfg comm;
    DtcfCfg dtcf;
};
static_assert(sizeof(FileMngCfg) == 1444);
static_assert(offsetof(FileMngCfg, dtcf) == 392);

extern const TableOf<FileMngCommCfg> kFileMngCommTable;
extern const TableOf<DtcfCfg> kDtcfTable;
extern const ModuleTableOf<FileMngCfg> kFileMngTable;

/// Loads the mount path and the file repair settings. The mount path comes from the module of
/// device management.
[[nodiscard]] Status PDT_INIPARAM_FILEMNG_LoadCommCfg(const char* module, FileMngCommCfg* cfg);

/// Loads the organisation of the storage, with its directory names.
[[nodiscard]] Status PDT_INIPARAM_FILEMNG_LoadDTCFCfg(const char* module, DtcfCfg* cfg);

/// Loads the directory names.
[[nodiscard]] Status PDT_INIPARAM_FILEMNG_LoadDTCFDirNameCfg(const char* module, DtcfCfg* cfg);

/// Stores `value` as directory name `index` (0 to 13). Null leaves the name unchanged, and two
/// double quotes make it empty. A value of more than 63 characters fails with -1.
[[nodiscard]] Status PDT_INIPARAM_FILEMNG_GetDirNames(const char* value, std::uint32_t index,
                                                      DtcfCfg* cfg);

/// Loads the whole section. Returns -1 when `section` is null.
[[nodiscard]] Status PDT_INIPARAM_LoadFileMngConf(FileMngCfg* section);

}  // namespace paramgen
