/// Loads the modules of a configuration, as its entry file lists them.
#pragma once

#include "confaccess/registry.h"

namespace paramgen {

/// Reads the number of modules from the entry dictionary of `config` and loads each into its module
/// list; called under the configuration's lock. A module that cannot be read is left out.
/// Returns `kNoModuleCount`, or the code of the module that makes the configuration invalid:
/// `kOutOfMemory`, `kModuleIncomplete` or `kModuleRepeated`; the modules before it stay in the
/// list.
[[nodiscard]] Status CONFACCESS_ModuleInfo(ConfigEntry* config);

/// Empties the module list of `config`. The modules' memory belongs to the arena of `config` and is
/// freed with it.
void CONFACCESS_DelModuleList(ConfigEntry* config);

}  // namespace paramgen
