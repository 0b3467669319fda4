#include "confaccess/registry.h"

#include "safestr/short_text.h"

namespace paramgen {

std::int32_t g_confAccessCount = 0;
ListLink g_configs = {.next = &g_configs, .prev = &g_configs};

ConfigEntry* FindConfig(const char* cfgName) {
    for (ListLink* link = g_configs.next; link != &g_configs; link = link->next) {
        ConfigEntry* config = static_cast<ConfigEntry*>(link);
        if (SameText(config->cfgName, cfgName, QX_CONFACCESS_NAME_MAX_LEN)) {
            return config;
        }
    }
    return nullptr;
}

ModuleEntry* FindModule(ConfigEntry* config, const char* module) {
    if (config->lastFound != nullptr &&
        SameText(config->lastFound->name, module, QX_CONFACCESS_NAME_MAX_LEN)) {
        return config->lastFound;
    }
    for (ListLink* link = config->modules.next; link != &config->modules; link = link->next) {
        ModuleEntry* entry = static_cast<ModuleEntry*>(link);
        if (SameText(entry->name, module, QX_CONFACCESS_NAME_MAX_LEN)) {
            config->lastFound = entry;
            return entry;
        }
    }
    return nullptr;
}

}  // namespace paramgen
