#include "confaccess/registry.h"

#include "safestr/short_text.h"

namespace paramgen {

std::int32_t g_confAccessCount = 0;
ListLink g_configs = {.next = &g_configs, .prev = &g_configs};

namespace {

/// Whether an entry's name, which zeros fill up, is `name`.
bool IsName(const char (&entryName)[QX_CONFACCESS_NAME_MAX_LEN], std::string_view name) {
    return name.size() < sizeof entryName && entryName[name.size()] == '\0' &&
           SameCharacters(entryName, name.data(), name.size());
}

}  // namespace

ConfigEntry* FindConfig(std::string_view cfgName) {
    for (ListLink* link = g_configs.next; link != &g_configs; link = link->next) {
        ConfigEntry* config = static_cast<ConfigEntry*>(link);
        if (IsName(config->cfgName, cfgName)) {
            return config;
        }
    }
    return nullptr;
}

ModuleEntry* FindModule(ConfigEntry* config, std::string_view module) {
    if (config->lastFound != nullptr && IsName(config->lastFound->name, module)) {
        return config->lastFound;
    }
    for (ListLink* link = config->modules.next; link != &config->modules; link = link->next) {
        ModuleEntry* entry = static_cast<ModuleEntry*>(link);
        if (IsName(entry->name, module)) {
            config->lastFound = entry;
            return entry;
        }
    }
    return nullptr;
}

}  // namespace paramgen
