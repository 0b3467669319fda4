#include "confaccess/dir_name.h"

#include <cstring>

#include "confaccess/confaccess.h"
#include "confaccess/registry.h"
#include "log/library_log.h"
#include "safestr/safestr.h"

namespace paramgen {

Status CONFACCESS_GetDirName(const char* path, char* directory, std::size_t size) {
    std::size_t length = std::strlen(path);
    while (length > 1 && path[length - 1] == '/') {
        --length;
    }
    while (length != 0 && path[length - 1] != '/') {
        --length;
    }
    while (length > 1 && path[length - 1] == '/') {
        --length;
    }
    const char* from = path;
    if (length == 0) {
        from = ".";
        length = 1;
    }
    if (length + 1 > QX_CONFACCESS_PATH_MAX_LEN - 1) {
        ZV_LOG_PrintfInfo(kConfAccessTag, kLibraryErr, __func__, 85, "the dstPath is too long\n");
        return kBadArgument;
    }
    if (memcpy_s(directory, size - 1, from, length) != 0) {
        ZV_LOG_PrintfInfo(kConfAccessTag, kLibraryErr, __func__, 90, "memcpy_s failed\n");
        return kFailed;
    }
    directory[length] = '\0';
    return kOk;
}

}  // namespace paramgen
