/// The INI modules of a product that more than one section reads.
#pragma once

namespace paramgen {

/// Device management: identity, storage, g-sensor and system settings.
inline constexpr char kDevMngModule[] = "devmng";

/// The storage node of the device management module, and the key of its mount path. The file
/// management section reads it too.
inline constexpr char kStorageNode[] = "storagemng";
inline constexpr char kMountPathKey[] = "mount_path";

}  // namespace paramgen
