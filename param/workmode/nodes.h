/// Nodes that the modules of both work modes have.
#pragma once

namespace paramgen {

/// The camera that the mode uses, and its media mode.
inline constexpr char kMediaModeConfigNode[] = "common.mediamode.config.%d";

/// The on-screen overlays of the mode.
inline constexpr char kOsdNode[] = "osd";

}  // namespace paramgen
