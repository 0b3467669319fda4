#include "confaccess/registry.h"

#include <cstring>

namespace paramgen {

std::int32_t g_confAccessCount = 0;
ListLink g_configs = {.next = &g_configs, .prev = &g_configs};

namespace {

bool SameName(const char* a, const char* b) {
    return std::strncmp(a, b, QX_CONFACCESS_NAME_MAX_LEN) == 0;
}

}  // namespace

ConfigEntry* FindConfig(const char* cfgName) {
    for (ListLink* link = g_configs.next; link != &g_configs; link = link->next) {
        ConfigEntry* config = static_cast<ConfigEntry*>(link);
        if (SameName(config->cfgName, cfgName)) {
            return config;
        }
    }
    return nullptr;
}

ModuleEntry* FindModule(ConfigEntry* config, const char* module) {
    for (ListLink* link = config->modules.next; link != &config->modules; link = link->next) {
        ModuleEntry* entry = static_cast<ModuleEntry*>(link);
        if (SameName(entry->name, module)) {
            return entry;
        }
    }
    return nullptr;
}

}  // namespace paramgen
