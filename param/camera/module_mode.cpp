#include "param/camera/module_mode.h"

#include "confaccess/watch.h"
#include "param/common/readers.h"

namespace paramgen {

Status ReadModuleMode(const char* module, const char* key, MediaMode* mode) {
    const char* name = nullptr;
    WATCH_DESTINATION(mode, sizeof *mode);
    if (FindText(module, key, &name) != kOk || name == nullptr) {
        return kOk;
    }
    return PARAM_INIPARAM_GetMediaModeEnum(name, mode);
}

}  // namespace paramgen
