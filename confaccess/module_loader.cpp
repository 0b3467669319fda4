#include "confaccess/module_loader.h"

#include <cstring>
#include <new>

#include "confaccess/argument_checks.h"
#include "confaccess/dir_name.h"
#include "confaccess/watch.h"
#include "log/library_log.h"
#include "safestr/safestr.h"

namespace paramgen {
namespace {

constexpr std::size_t kNameSize = QX_CONFACCESS_NAME_MAX_LEN;
constexpr std::size_t kPathSize = QX_CONFACCESS_PATH_MAX_LEN;
constexpr std::size_t kKeySize = QX_CONFACCESS_KEY_MAX_LEN;

/// The directory of a module's file: its "path", if that contains a '/', else the entry file's
/// directory with a '/' behind it.
Status CONFACCESS_GetModulePath(const ConfigEntry& config, ModuleEntry* module) {
    char key[kKeySize];
    if (!FormatOrTell(key, sizeof key, __func__, 104, "%s:path", module->name)) {
        return kFailed;
    }
    const char* path = FindText(*config.entryDictionary, key, nullptr);
    if (path != nullptr && std::strchr(path, '/') != nullptr) {
        const int copied = snprintf_s(module->path, kPathSize, kPathSize - 1, "%s", path);
        return copied == -1 ? kFailed : kOk;
    }
    char directory[kPathSize];
    const Status status = CONFACCESS_GetDirName(config.configPath, directory, sizeof directory);
    if (status != kOk) {
        ZV_LOG_PrintfInfo(kConfAccessTag, kLibraryErr, __func__, 115, "get dirName failed\n");
        return status;
    }
    if (snprintf_s(module->path, kPathSize, kPathSize - 1, "%s/", directory) == -1) {
        return kFailed;
    }
    ZV_LOG_PrintfInfo(kConfAccessTag, kLibraryInfo, __func__, 122,
                      "Don't use certain module path, use default path[%s]\n", module->path);
    return kOk;
}

/// Removes one '/' from the end of a path, unless it is all of it.
void TrimSlash(char* path) {
    const std::size_t length = std::strlen(path);
    if (length >= 2 && path[length - 1] == '/') {
        path[length - 1] = '\0';
    }
}

/// Copies the name of module `number` from the entry file.
Status ReadName(ConfigEntry* config, std::int32_t number, const char* function,
                ModuleEntry* module) {
    char key[kKeySize];
    if (!FormatOrTell(key, sizeof key, function, 157, "module:module%d", number)) {
        return kFailed;
    }
    const char* name = FindText(*config->entryDictionary, key, nullptr);
    if (name == nullptr) {
        ZV_LOG_Printf(kConfAccessTag, kLibraryErr, "Load %s failed\n", key);
        return kModuleIncomplete;
    }
    if (!FormatOrTell(module->name, kNameSize, function, 166, "%s", name)) {
        return kFailed;
    }
    if (FindModule(config, module->name) != nullptr) {
        ZV_LOG_PrintfInfo(kConfAccessTag, kLibraryErr, function, 169, "module name is repeat:%s\n",
                          module->name);
        return kModuleRepeated;
    }
    return kOk;
}

/// Joins the module's directory and the file name that the entry file gives.
Status BuildFileName(const ConfigEntry& config, const char* function, ModuleEntry* module) {
    char key[kKeySize];
    if (!FormatOrTell(key, sizeof key, function, 178, "%s:cfg_filename", module->name)) {
        return kFailed;
    }
    const char* fileName = FindText(*config.entryDictionary, key, nullptr);
    if (fileName == nullptr) {
        ZV_LOG_Printf(kConfAccessTag, kLibraryErr, "Load %s failed\n", key);
        return kModuleIncomplete;
    }
    if (*fileName == '\0') {
        ZV_LOG_Printf(kConfAccessTag, kLibraryErr, "module path is error\n");
        return kModuleIncomplete;
    }
    const bool joined =
        FormatOrTell(module->file, kPathSize, function, 192, "%s/%s", module->path, fileName);
    return joined ? kOk : kFailed;
}

/// Loads module `number` (from 1) and puts it at the front of the configuration's modules.
Status CONFACCESS_InitModule(ConfigEntry* config, std::int32_t number) {
    void* memory = config->memory.Take(sizeof(ModuleEntry));
    if (memory == nullptr) {
        ZV_LOG_Printf(kConfAccessTag, kLibraryErr, "ZV_SafeMalloc failed\n");
        return kOutOfMemory;
    }
    ModuleEntry* module = new (memory) ModuleEntry;  // zeros
    Status status = ReadName(config, number, __func__, module);
    if (status != kOk) {
        return status;
    }
    status = CONFACCESS_GetModulePath(*config, module);
    if (status != kOk) {
        TellErrorCode(__func__, 173, status);
        return status;
    }
    TrimSlash(module->path);
    status = BuildFileName(*config, __func__, module);
    if (status != kOk) {
        return status;
    }
    module->dictionary = LoadIniFile(module->file, &config->memory);
    WATCH_FILE_READ(*module);
    if (module->dictionary == nullptr) {
        ZV_LOG_Printf(kConfAccessTag, kLibraryErr, "Load %s failed\n", module->file);
        return kFailed;
    }
    AddModule(config, module);
    return kOk;
}

/// Whether a failure of a module makes the whole configuration fail; after any other failure only
/// the module is left out.
bool IsFatal(Status status) {
    return status == kOutOfMemory || status == kModuleIncomplete || status == kModuleRepeated;
}

}  // namespace

Status CONFACCESS_ModuleInfo(ConfigEntry* config) {
    const std::int32_t count = FindInteger(*config->entryDictionary, "module:module_num", 0);
    if (count == 0) {
        ZV_LOG_PrintfInfo(kConfAccessTag, kLibraryErr, __func__, 228,
                          "not find module_num or module_num is %d\n", count);
        return kNoModuleCount;
    }
    for (std::int32_t index = 0; index < count; ++index) {
        const Arena::Mark before = config->memory.Now();
        const Status status = CONFACCESS_InitModule(config, index + 1);
        if (IsFatal(status)) {
            return status;
        }
        if (status != kOk) {
            config->memory.BackTo(before);
            ZV_LOG_PrintfInfo(kConfAccessTag, kLibraryWarn, __func__, 245,
                              "load module[%d] failed\n", index);
        }
    }
    return kOk;
}

void CONFACCESS_DelModuleList(ConfigEntry* config) {
    config->moduleTree = nullptr;
    while (!ListIsEmpty(config->modules)) {
        const auto* module = static_cast<ModuleEntry*>(ListTakeFirst(&config->modules));
        // Without a module tag, so the library log drops this record.
        ZV_LOG_PrintfInfo(nullptr, kLibraryDebug, __func__, 40, "Module: inifile[%s]\n",
                          module->file);
    }
    ZV_LOG_PrintfInfo(kConfAccessTag, kLibraryDebug, __func__, 47, "CfgName[%s] delete finished\n",
                      config->cfgName);
}

}  // namespace paramgen
