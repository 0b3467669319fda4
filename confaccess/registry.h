/// The registry: configurations and their modules.
#pragma once

#include <pthread.h>

#include <cstdint>
#include <string_view>

#include "confaccess/confaccess.h"
#include "confaccess/ini_reader.h"
#include "confaccess/list.h"

namespace paramgen {

/// The module tag of configuration access in the library log.
inline constexpr char kConfAccessTag[] = "QXCONFACCE";

/// One module of a configuration: an INI file and what it holds.
struct ModuleEntry : ListLink {
    char name[QX_CONFACCESS_NAME_MAX_LEN];
    char path[QX_CONFACCESS_PATH_MAX_LEN];  ///< its directory, without '/' at the end unless "/"
    char file[QX_CONFACCESS_PATH_MAX_LEN];  ///< its INI file: path, '/' and file name
    const Dictionary* dictionary;
    ModuleEntry* below[4];  ///< see `ConfigEntry::moduleTree`
};

/// One registered configuration.
struct ConfigEntry : ListLink {
    char cfgName[QX_CONFACCESS_NAME_MAX_LEN];
    char configPath[QX_CONFACCESS_PATH_MAX_LEN];  ///< canonical absolute path of the entry file
    ListLink modules;                             ///< `ModuleEntry`s, newest first
    ModuleEntry* moduleTree;  ///< the same by name: two bits of the name's hash choose each branch
    char entryFile[QX_CONFACCESS_PATH_MAX_LEN];  ///< the path that was parsed
    const Dictionary* entryDictionary;
    pthread_mutex_t lock;  ///< guards the modules and the dictionaries
    Arena memory;          ///< holds the modules and the dictionaries
};

/// Returns the registered configuration of that name, or null. The registry keeps owning it.
ConfigEntry* FindConfig(std::string_view cfgName);

/// Returns the module of that name in `config`, or null; called under the configuration's lock.
ModuleEntry* FindModule(ConfigEntry* config, std::string_view module);

/// Puts `module`, whose name no other has, at the front of the modules of `config`.
void AddModule(ConfigEntry* config, ModuleEntry* module);

/// The number of registered configurations.
extern std::int32_t g_confAccessCount;

/// The list of the registered `ConfigEntry`s, newest first.
extern ListLink g_configs;

}  // namespace paramgen
