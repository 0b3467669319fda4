#include <unistd.h>

#include <cstdio>

#include "generator/image.h"
#include "generator/load.h"
#include "log/console_log.h"
#include "log/output.h"
#include "param/common/param_log.h"

namespace {

using paramgen::g_image;

/// A file that the image is written to.
struct OutputFile {
    const char* path;
    bool isFlushed;  ///< flushed by itself before it is closed
};

constexpr OutputFile kOutputFiles[] = {
    {.path = "./param.bin", .isFlushed = false},    // the parameters
    {.path = "./paramdef.bin", .isFlushed = true},  // the default parameters
};

/// Result of writing a file.
struct Outcome {
    bool opened;
    bool flushed;
    bool closed;
    unsigned long written;  ///< bytes
};

Outcome WriteImage(const OutputFile& output) {
    std::FILE* file = std::fopen(output.path, "w+b");
    if (file == nullptr) {
        return {.opened = false, .flushed = false, .closed = false, .written = 0};
    }
    const std::size_t written = std::fwrite(&g_image, 1, sizeof g_image, file);
    const bool flushed = !output.isFlushed || std::fflush(file) == 0;
    const bool closed = std::fclose(file) == 0;
    return {.opened = true, .flushed = flushed, .closed = closed, .written = written};
}

}  // namespace

int main() {
    // There is a record for every value. A terminal shows each line as soon as it is written.
    const paramgen::HeldOutput held(isatty(STDOUT_FILENO) != 1);
    paramgen::BuildFrame(&g_image);
    paramgen::ConsoleLogSetup(1, 0, paramgen::kConsoleDebug);
    const paramgen::Status status = paramgen::PDT_INIPARAM_LoadCfg();
    if (status != paramgen::kOk) {
        LOG_ERROR("[%s] failed[0x%08X]\n", "load config", static_cast<std::uint32_t>(status));
        return status;
    }
    paramgen::PDT_INIPARAM_DebugParamCfg();
    for (const OutputFile& output : kOutputFiles) {
        const Outcome outcome = WriteImage(output);
        if (!outcome.opened) {
            LOG_ERROR("open [%s] failed\n", output.path);
            return -1;
        }
        if (outcome.written < sizeof g_image) {
            LOG_ERROR("fwrite : total %lu, write %lu\n", static_cast<unsigned long>(sizeof g_image),
                      outcome.written);
        }
        if (!outcome.flushed) {
            LOG_ERROR("[%s] failed\n", "fflush failed");
        }
        if (!outcome.closed) {
            LOG_ERROR("[%s] failed\n", "fclose failed");
        }
    }
    LOG_DEBUG("parambin update end\n");
    return 0;
}
