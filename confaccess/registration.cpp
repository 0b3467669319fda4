#include <climits>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "confaccess/argument_checks.h"
#include "confaccess/confaccess.h"
#include "confaccess/entry_ptr.h"
#include "confaccess/module_loader.h"
#include "confaccess/registry.h"
#include "confaccess/watch.h"
#include "log/library_log.h"
#include "log/output.h"

namespace paramgen {
namespace {

constexpr std::size_t kNameSize = QX_CONFACCESS_NAME_MAX_LEN;
constexpr std::size_t kPathSize = QX_CONFACCESS_PATH_MAX_LEN;
constexpr std::size_t kCanonicalSize = 4096;
static_assert(kCanonicalSize >= PATH_MAX, "realpath may write PATH_MAX bytes");

using ConfigPtr = EntryPtr<ConfigEntry>;

/// Parses the entry file.
Status CONFACCESS_GetModuleInfo(ConfigEntry* config) {
    config->entryDictionary = LoadIniFile(config->configPath, &config->memory);
    if (config->entryDictionary == nullptr) {
        ZV_LOG_PrintfInfo(kConfAccessTag, kLibraryErr, __func__, 211, "load %s failed\n",
                          config->configPath);
        return kFailed;
    }
    const bool copied =
        FormatOrTell(config->entryFile, kPathSize, __func__, 217, "%s", config->configPath);
    return copied ? kOk : kFailed;
}

/// Loads the entry file and its modules; called under the configuration's lock. Sets `abandoned`
/// when the entry file is good but its modules fail.
Status LoadModules(ConfigEntry* config, bool* abandoned) {
    Status status = CONFACCESS_GetModuleInfo(config);
    if (status == kOk) {
        status = CONFACCESS_ModuleInfo(config);
        *abandoned = status != kOk;
    }
    if (*abandoned) {
        CONFACCESS_DelModuleList(config);
    }
    return status;
}

/// Adds a configuration to the registry.
Status CONFACCESS_Init(const char* cfgName, const char* cfgPath) {
    if (std::strlen(cfgPath) > kPathSize) {
        ZV_LOG_PrintfInfo(kConfAccessTag, kLibraryErr, __func__, 260, "the cfgPath is too long\n");
        return kBadArgument;
    }
    ConfigPtr config = NewEntry<ConfigEntry>();
    if (IsNullArgument(config.get(), __func__, 264, "cfgPos")) {
        return kOutOfMemory;
    }
    if (!FormatOrTell(config->cfgName, kNameSize, __func__, 266, "%s", cfgName) ||
        !FormatOrTell(config->configPath, kPathSize, __func__, 269, "%s", cfgPath)) {
        return kFailed;
    }
    ListReset(&config->modules);
    pthread_mutex_init(&config->lock, nullptr);
    pthread_mutex_lock(&config->lock);
    bool abandoned = false;
    const Status status = LoadModules(config.get(), &abandoned);
    pthread_mutex_unlock(&config->lock);
    if (status != kOk) {
        pthread_mutex_destroy(&config->lock);
        config.reset();
        if (abandoned) {
            ZV_LOG_PrintfInfo(kConfAccessTag, kLibraryErr, __func__, 286,
                              "Confaccess ModuleInfo failed\n");
        }
        return status;
    }
    ListInsert(&g_configs, config.release());
    ++g_confAccessCount;
    ZV_LOG_PrintfInfo(kConfAccessTag, kLibraryDebug, __func__, 293,
                      "New CfgName[%s] CfgList Count[%d]\n", cfgName, g_confAccessCount);
    return kOk;
}

}  // namespace

Status ZV_CONFACCESS_Init(const char* cfgName, const char* cfgPath) {
    if (IsNullArgument(cfgName, __func__, 299, "cfgName") ||
        IsNullArgument(cfgPath, __func__, 300, "cfgPath") ||
        IsLongConfigName(Measured(cfgName, kNameSize), __func__, 301) ||
        IsLongPath(Measured(cfgPath, kPathSize), __func__, 303)) {
        return kBadArgument;
    }
    RETURN_WHERE_CONFIG_STAYS(cfgName, kOk);
    char canonical[kCanonicalSize] = "";
    if (realpath(cfgPath, canonical) == nullptr) {
        ZV_LOG_Printf(kConfAccessTag, kLibraryErr, "RealPath failed\n");
        return kFailed;
    }
    if (std::string_view(cfgPath).find(".ini") == std::string_view::npos) {
        ZV_LOG_Printf(kConfAccessTag, kLibraryErr, "Cfgpath is not correct\n");
        return kNoConfiguration;
    }
    if (FindConfig(cfgName) != nullptr) {
        ZV_LOG_PrintfInfo(kConfAccessTag, kLibraryWarn, __func__, 325, "%s already be inited\n",
                          cfgName);
        return kAlreadyRegistered;
    }
    if (g_confAccessCount == 0) {
        ListReset(&g_configs);
    }
    const Status status = CONFACCESS_Init(cfgName, canonical);
    if (status != kOk) {
        PrintOutput("func:%s,line:%d[%s] failed[0x%08X]\n", __func__, 337, "AddCfg",
                    static_cast<std::uint32_t>(status));
    }
    return status;
}

Status ZV_CONFACCESS_Deinit(const char* cfgName) {
    if (IsNullArgument(cfgName, __func__, 344, "cfgName") ||
        IsLongConfigName(Measured(cfgName, kNameSize), __func__, 345)) {
        return kBadArgument;
    }
    if (IsFalseExpression(g_confAccessCount > 0, __func__, 347, "g_confAccessCount > 0")) {
        return kNothingRegistered;
    }
    RETURN_WHERE_CONFIG_STAYS(cfgName, kOk);
    const ConfigPtr config(FindConfig(cfgName));
    if (config == nullptr) {
        return kNoConfiguration;
    }
    pthread_mutex_lock(&config->lock);
    ListRemove(config.get());
    CONFACCESS_DelModuleList(config.get());
    config->entryDictionary = nullptr;
    pthread_mutex_unlock(&config->lock);
    pthread_mutex_destroy(&config->lock);
    --g_confAccessCount;
    ZV_LOG_PrintfInfo(kConfAccessTag, kLibraryDebug, __func__, 366, "Now CfgList count[%d]\n",
                      g_confAccessCount);
    return kOk;
}

}  // namespace paramgen
