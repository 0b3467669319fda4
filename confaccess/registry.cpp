#include "confaccess/registry.h"

#include "confaccess/any_case.h"
#include "safestr/short_text.h"

namespace paramgen {

std::int32_t g_confAccessCount = 0;
ListLink g_configs = {.next = &g_configs, .prev = &g_configs};

namespace {

/// Returns whether `name` equals the entry's name, which is zero-filled.
bool IsName(const char (&entryName)[QX_CONFACCESS_NAME_MAX_LEN], std::string_view name) {
    return name.size() < sizeof entryName && entryName[name.size()] == '\0' &&
           SameCharacters(entryName, name.data(), name.size());
}

/// Returns the link in the tree that points to the module of that name, or would if there were one.
ModuleEntry** PlaceOf(ConfigEntry* config, std::string_view name) {
    ModuleEntry** place = &config->moduleTree;
    for (std::uint32_t hash = HashOf(name); *place != nullptr && !IsName((*place)->name, name);
         hash <<= 2) {
        place = &(*place)->below[hash >> 30];
    }
    return place;
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
    return *PlaceOf(config, module);
}

void AddModule(ConfigEntry* config, ModuleEntry* module) {
    *PlaceOf(config, module->name) = module;
    ListInsert(&config->modules, module);
}

}  // namespace paramgen
