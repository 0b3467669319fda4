#include "compile/run.h"

#include <cerrno>
#include <cstring>

#include "generator/load.h"
#include "log/library_log.h"
#include "param/common/param_log.h"

namespace paramgen::compile {

void SetUpLog(bool isKept) {
    ConsoleLogSetup(isKept ? 1 : 0, 0, kConsoleDebug);
    ZV_LOG_SetThreshold(isKept ? kLibraryErr : kLibraryFatal + 1);
}

void RunAndKeep(const Recorder& recorder, Keep keep, Compilation* result) {
    SetUpLog(keep.log);
    BuildFrame(&g_image);
    errno = 0;
    result->status = PDT_INIPARAM_LoadCfg();
    if (result->status != kOk) {
        LogError("main", 0, "[%s] failed[0x%08X]\n", "load config",
                 static_cast<std::uint32_t>(result->status));
        result->stop = recorder.Last();
    }
    std::memcpy(result->image.data(), &g_image, sizeof g_image);
}

}  // namespace paramgen::compile
