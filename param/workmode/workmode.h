/// Work mode section: the mode that the camera starts in, and the settings of both modes.
///
/// Every loader returns 0, or the code of the first step that failed, having logged it. What was
/// loaded before a failure stays. A null record fails with -1.
#pragma once

#include <cstddef>
#include <cstdint>

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/workmode/photo.h"
#include "param/workmode/record.h"

namespace paramgen {

/// What the camera does at power-on. 8 bytes.
struct CommWorkModeCfg {
    std::int32_t powerOnMode;
    std::byte reserved[4];
};
static_assert(sizeof(CommWorkModeCfg) == 8);

/// The section. 8912 bytes.
struct WorkModeCfg {
    CommWorkModeCfg comm;
    RecWorkModeCfg record;
    PhotoWorkModeCfg photo;
};
static_assert(sizeof(WorkModeCfg) == 8912);
static_assert(offsetof(WorkModeCfg, record) == 8);
static_assert(offsetof(WorkModeCfg, photo) == 4536);

extern const TableOf<CommWorkModeCfg> kCommWorkModeTable;
extern const TableOf<WorkModeCfg> kWorkModeTable;

/// Loads the power-on mode from `module`. It is not checked for its range.
[[nodiscard]] Status PDT_INIPARAM_LoadCommWorkModeCfg(const char* module, CommWorkModeCfg* cfg);

/// Loads the whole section. Returns -1 when `section` is null.
[[nodiscard]] Status PDT_INIPARAM_LoadWorkModeConf(WorkModeCfg* section);

}  // namespace paramgen
