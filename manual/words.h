/// Names of the image in the spelling of other languages.
#pragma once

#include <string>
#include <string_view>

namespace paramgen::manual {

/// "GsensorCfg" as "gsensor_cfg"; "BT.601-full" as "bt_601_full".
std::string SnakeCase(std::string_view name);

/// The same in capitals.
std::string UpperCase(std::string_view name);

}  // namespace paramgen::manual
