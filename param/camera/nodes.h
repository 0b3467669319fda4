/// Node templates of the camera's modules. What is common to all media modes and what belongs to
/// one stand under the same nodes, in different modules.
#pragma once

namespace paramgen {

inline constexpr char kVcapDevNode[] = "vcap.dev";
inline constexpr char kVcapPipeNode[] = "vcap.pipe.%d";
inline constexpr char kVpssNode[] = "vpss.%d";
inline constexpr char kVportNode[] = "vpss.%d.vport.%d";
inline constexpr char kExtVportNode[] = "vpss.%d.extvport.%d";
inline constexpr char kVencNode[] = "venc.%d";

}  // namespace paramgen
