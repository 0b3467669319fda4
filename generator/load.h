/// The order in which the image is loaded.
#pragma once

#include "confaccess/status.h"

namespace paramgen {

/// The entry file of a product, in the working directory.
inline constexpr char kEntryFile[] = "./config_cfgaccess_entry.ini";

/// Registers the product's configuration, loads every section of the image of this run, and
/// releases the configuration. Returns 0 or the code of the first step that failed, having logged
/// it; the configuration then stays registered.
[[nodiscard]] Status PDT_INIPARAM_LoadCfg();

/// Logs the sizes of the image and of its sections.
void PDT_INIPARAM_DebugParamCfg();

}  // namespace paramgen
