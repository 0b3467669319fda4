#include "param/filemng/filemng.h"

#include <cstring>

#include "confaccess/watch.h"
#include "param/common/propagate.h"
#include "param/common/readers.h"
#include "safestr/safestr.h"

namespace paramgen {

constexpr char kRepairNode[] = "common.repair";
constexpr char kDtcfNode[] = "dtcf";

constexpr Field kFileMngCommFields[] = {
    FIELD(FileMngCommCfg, mountPath, "mount_path")
        .At("storagemng")
        .From("devmng")
        .About("Mount path of the storage, once more"),
    FIELD(FileMngCommCfg, repair, "enable", 0)
        .At(kRepairNode)
        .About("Broken files are repaired at power-on"),
    FIELD(FileMngCommCfg, parseExtraMdat, "parse_extra_mdat", 0)
        .At(kRepairNode)
        .About("Media data behind the last index is scanned, too"),
    FIELD(FileMngCommCfg, repairRootDir, "repair_rootdir")
        .At(kRepairNode)
        .About("Directory of the repair information, below the mount path"),
    FIELD(FileMngCommCfg, repairTopDirName, "repair_topdirname")
        .At(kRepairNode)
        .About("Top directory of the repair information"),
};

constexpr Field kDtcfFields[] = {
    FIELD(DtcfCfg, preAllocCount, "pre_alloc_cnt", 0)
        .At(kDtcfNode)
        .About("Files that are created in advance; the same number for both classes")
        .Unit("files"),
    FIELD(DtcfCfg, preAllocUnit, "pre_alloc_unit", 0)
        .At(kDtcfNode)
        .About("Size of each such file; the same for both classes")
        .Unit("MB"),
    FIELD(DtcfCfg, sharePercent, "share_percent", 0)
        .At(kDtcfNode)
        .About("Part of the storage that loop recordings may fill")
        .Unit("%"),
    FIELD(DtcfCfg, warningStage, "warning_stage", 0)
        .At(kDtcfNode)
        .About("Free space below which the user is warned")
        .Unit("MB"),
    FIELD(DtcfCfg, guaranteedStage, "guaranteed_stage", 0)
        .At(kDtcfNode)
        .About("Free space below which the oldest loop recordings are deleted")
        .Unit("MB"),
    FIELD(DtcfCfg, rootDir, "rootdir")
        .At(kDtcfNode)
        .About("Root of the directory tree, below the mount path"),
    LOADED(DtcfCfg, dirNames, "dir_name%u")
        .At("dtcf.dir.name")
        .EmptyByQuotes()
        .About("Name of a directory below the root; \"\" for none"),
};

constexpr TableOf<FileMngCommCfg> kFileMngCommTable{nullptr, kFileMngCommFields};
constexpr TableOf<DtcfCfg> kDtcfTable{nullptr, kDtcfFields};

constexpr Field kFileMngFields[] = {
    RECORD(FileMngCfg, comm, kFileMngCommTable),
    RECORD(FileMngCfg, dtcf, kDtcfTable),
};

constexpr ModuleTableOf<FileMngCfg> kFileMngTable{"filemng", kFileMngFields};

Status PDT_INIPARAM_FILEMNG_LoadCommCfg(const char* module, FileMngCommCfg* cfg) {
    constexpr const Field& kMountPath = ROW(kFileMngCommTable, mountPath);
    LOAD_OR_RETURN(kMountPath.module, nullptr, kMountPath, cfg);
    LOG_DEBUG("mount path[%s] \n", cfg->mountPath);
    LOAD_OR_RETURN(module, nullptr, ROWS(kFileMngCommTable, repair, repairTopDirName), cfg);
    LOG_DEBUG("repair enable[%d], parse extra mdat[%d], repair root dir[%s], topdirname[%s]\n",
              cfg->repair, cfg->parseExtraMdat, cfg->repairRootDir, cfg->repairTopDirName);
    return kOk;
}

Status PDT_INIPARAM_FILEMNG_GetDirNames(const char* value, std::uint32_t index, DtcfCfg* cfg) {
    REQUIRE_RECORD_OR_RETURN(cfg);
    char(&name)[sizeof cfg->dirNames[0]] = cfg->dirNames[index];
    if (value == nullptr) {
        return kOk;
    }
    if (std::strcmp(value, "\"\"") == 0) {
        return memset_s(name, sizeof name, 0, sizeof name) == 0 ? kOk : kFailed;
    }
    if (sprintf_s(name, sizeof name, "%s", value) == -1) {
        LOG_ERROR("[%s] failed\n", "sprintf_s");
        return kFailed;
    }
    return kOk;
}

Status PDT_INIPARAM_FILEMNG_LoadDTCFDirNameCfg(const char* module, DtcfCfg* cfg) {
    REQUIRE_RECORD_OR_RETURN(cfg);
    for (std::uint32_t i = 0; i < kDirNameCount; ++i) {
        Key item;
        FORMAT_KEY_OR_RETURN(item, {}, ROW(kDtcfTable, dirNames), i);
        const char* value = nullptr;
        WATCH_DESTINATION(cfg->dirNames[i], sizeof cfg->dirNames[i]);
        CALL_OR_RETURN(FindText(module, item.c_str(), &value), item.c_str());
        const Status status = PDT_INIPARAM_FILEMNG_GetDirNames(value, i, cfg);
        if (status != kOk) {
            LOG_ERROR("get dir name failed!\n");
            return status;
        }
        LOG_DEBUG("dtcf, DirName[%d]:%s \n", i, cfg->dirNames[i]);
    }
    return kOk;
}

Status PDT_INIPARAM_FILEMNG_LoadDTCFCfg(const char* module, DtcfCfg* cfg) {
    for (std::uint32_t i = 0; i < kPreAllocCount; ++i) {
        LOAD_ELEMENT_OR_RETURN(module, nullptr, ROW(kDtcfTable, preAllocCount), i, cfg);
        LOAD_ELEMENT_OR_RETURN(module, nullptr, ROW(kDtcfTable, preAllocUnit), i, cfg);
        LOG_DEBUG("dtcf, pre_alloc_cnt[%d],pre_alloc_unit[%d]\n", cfg->preAllocCount[i],
                  cfg->preAllocUnit[i]);
    }
    LOAD_OR_RETURN(module, nullptr, ROWS(kDtcfTable, sharePercent, rootDir), cfg);
    // A directory name that fails is logged with the root directory's label.
    CALL_OR_RETURN(PDT_INIPARAM_FILEMNG_LoadDTCFDirNameCfg(module, cfg), "dtcf:rootdir");
    LOG_DEBUG("dtcf, share_percent[%d],warning_stage[%d],guaranteed_stage[%d] RootDir[%s]\n",
              cfg->sharePercent, cfg->warningStage, cfg->guaranteedStage, cfg->rootDir);
    return kOk;
}

Status PDT_INIPARAM_LoadFileMngConf(FileMngCfg* section) {
    const char* module = kFileMngTable.module;
    REQUIRE_RECORD_OR_RETURN(section);
    CALL_OR_RETURN(PDT_INIPARAM_FILEMNG_LoadCommCfg(module, &section->comm), "filemng comm");
    CALL_OR_RETURN(PDT_INIPARAM_FILEMNG_LoadDTCFCfg(module, &section->dtcf), "dtcf");
    return kOk;
}

}  // namespace paramgen
