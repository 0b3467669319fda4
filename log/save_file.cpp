#include "log/save_file.h"

#include <pthread.h>
#include <sys/stat.h>

#include <cstdio>

#include "log/output.h"
#include "log/own_message.h"
#include "safestr/safestr.h"

namespace paramgen {
namespace {

constexpr std::size_t kPathSize = 4096;
constexpr std::int64_t kPositionMax = 0x7FFFFFFF;  // the target's positions have 32 bits

/// One of the two save files.
struct SaveFile {
    std::FILE* handle;
    std::uint32_t bytes;  ///< written so far, counted from the file's beginning
    char path[kPathSize];
};

/// State of the save path; `lock` guards all of it.
struct SavePath {
    pthread_mutex_t lock;
    SaveFile* current;  ///< the file whose handle was written last; null when that is closed
    SaveFile first;
    SaveFile second;
};

SavePath g_save = {
    .lock = PTHREAD_MUTEX_INITIALIZER, .current = nullptr, .first = {}, .second = {}};

/// Size limit of both files in bytes; guarded by the lock. A separate variable: the state above is
/// all zeros and takes no room in the executable.
std::uint32_t g_sizeLimit = kSaveFileSizeLimit;

/// A record to write.
struct Record {
    const char* text;
    std::size_t length;
};

void Lock() {
    if (pthread_mutex_lock(&g_save.lock) != 0) {
        PrintOutput("volog lock fail\n");
    }
}

void Unlock() {
    if (pthread_mutex_unlock(&g_save.lock) != 0) {
        PrintOutput("volog unlock fail\n");
    }
}

/// Closes the file's stream, if it is open; the file is then no longer the current one. Returns
/// whether a stream was open and closing it succeeded.
bool CloseStream(SaveFile* file) {
    std::FILE* handle = file->handle;
    file->handle = nullptr;
    if (g_save.current == file) {
        g_save.current = nullptr;
    }
    return handle != nullptr && std::fclose(handle) == 0;
}

bool WriteWhole(const SaveFile& file, const Record& record) {
    return file.handle != nullptr &&
           std::fwrite(record.text, 1, record.length, file.handle) == record.length;
}

/// Truncates a file and writes the record to it.
std::int32_t LOG_ReOpen(SaveFile* file, const Record& record) {
    if (!CloseStream(file)) {
        PrintOwnMessage(__func__, 262, "close file failed");
        return kSaveNotWritten;
    }
    file->handle = std::fopen(file->path, "w+");
    if (file->handle == nullptr) {
        PrintOwnMessage(__func__, 265, "open file failed");
        return kSaveNotOpened;
    }
    if (!WriteWhole(*file, record)) {
        PrintOwnMessage(__func__, 268, "fwrite filed");
        return kSaveNotWritten;
    }
    if (std::fflush(file->handle) != 0) {
        PrintOwnMessage(__func__, 271, "fflush filed");
        return kSaveNotWritten;
    }
    g_save.current = file;
    file->bytes = static_cast<std::uint32_t>(record.length);
    return 0;
}

std::int32_t LOG_WriteLog(SaveFile* file, const Record& record) {
    struct stat status = {};
    if (stat(file->path, &status) != 0) {
        PrintOutput("[%s]%d: (%s) is delete \n", __func__, 292, file->path);
        const std::int32_t result = LOG_ReOpen(file, record);
        if (result != 0) {
            PrintOwnMessage(__func__, 294, "reopen filed");
        }
        return result;
    }
    if (status.st_size == 0) {
        const std::int32_t result = LOG_ReOpen(file, record);
        if (result != 0) {
            PrintOwnMessage(__func__, 306, "reopen filed");
        }
        return result;
    }
    if (record.length + file->bytes > g_sizeLimit) {
        return kSaveFull;
    }
    if (!WriteWhole(*file, record)) {
        PrintOwnMessage(__func__, 316, "fwrite filed");
        return kSaveNotWritten;
    }
    file->bytes += static_cast<std::uint32_t>(record.length);
    g_save.current = file;
    return 0;
}

/// Opens a file for appending. Closes it again when its size cannot be read.
std::int32_t OpenToContinue(SaveFile* file) {
    file->handle = std::fopen(file->path, "a");
    if (file->handle == nullptr) {
        return kSaveNotOpened;
    }
    const std::int32_t result = LOG_CheckFileSize(file->handle, &file->bytes);
    if (result != 0) {
        CloseStream(file);
    }
    return result;
}

std::int32_t OpenSecond() {
    const std::int32_t result = OpenToContinue(&g_save.second);
    if (result == kSaveNotOpened) {
        std::perror("open file failed:\n");
    }
    return result;
}

/// Writes the record to the file whose turn it is; called under the lock.
std::int32_t WriteInTurn(const Record& record) {
    if (g_save.current != &g_save.second) {
        const std::int32_t result = LOG_WriteLog(&g_save.first, record);
        if (result != kSaveFull) {
            return result;
        }
    }
    if (g_save.second.handle == nullptr) {
        const std::int32_t result = OpenSecond();
        if (result != 0) {
            return result;
        }
    }
    const std::int32_t result = LOG_WriteLog(&g_save.second, record);
    if (result != kSaveFull) {
        return result;
    }
    const bool secondWasInUse = g_save.current == &g_save.second;
    return LOG_ReOpen(secondWasInUse ? &g_save.first : &g_save.second, record);
}

/// Closes both files and turns the save path off; called under the lock.
void CloseFiles() {
    CloseStream(&g_save.first);
    g_save.first.bytes = 0;
    g_saveRecord.store(nullptr, std::memory_order_relaxed);
    CloseStream(&g_save.second);
    g_save.second.bytes = 0;
}

/// Sets the paths of both files and opens the first for appending; called under the lock.
std::int32_t OpenFirst(const char* directory) {
    SaveFile* first = &g_save.first;
    if (directory == nullptr ||
        sprintf_s(first->path, kPathSize, "%s/Q2VkYXJMb2dzVoLog1", directory) == -1 ||
        sprintf_s(g_save.second.path, kPathSize, "%s/Q2VkYXJMb2dzVoLog2", directory) == -1) {
        return -1;
    }
    const std::int32_t result = OpenToContinue(first);
    if (result == 0) {
        g_save.current = first;
    }
    return result;
}

}  // namespace

bool ZV_LOG_IsSaveOpen() {
    return g_saveRecord.load(std::memory_order_relaxed) != nullptr;
}

std::int32_t LOG_CheckFileSize(std::FILE* handle, std::uint32_t* size) {
    if (handle == nullptr) {
        PrintOwnMessage(__func__, 67, "fp is null");
        return kSaveNoSize;
    }
    const std::int64_t position = std::fseek(handle, 0, SEEK_END) == 0 ? std::ftell(handle) : -1;
    if (position < 0 || position > kPositionMax) {
        PrintOutput("ftell failed\n");
        return kSaveNoSize;
    }
    *size = static_cast<std::uint32_t>(position);
    return 0;
}

std::int32_t ZV_LOG_OpenSave(const char* directory, std::uint32_t sizeLimit) {
    Lock();
    CloseFiles();
    const std::int32_t result = OpenFirst(directory);
    if (result == 0) {
        g_sizeLimit = sizeLimit;
        g_saveRecord.store(LOG_SaveLog, std::memory_order_relaxed);
    }
    Unlock();
    return result;
}

void ZV_LOG_CloseSave() {
    Lock();
    CloseFiles();
    Unlock();
}

void LOG_SaveLog(const char* record, std::size_t length) {
    if (length == 0) {
        PrintOwnMessage(__func__, 329, "bufSize is zero");
        ZV_LOG_CloseSave();
        return;
    }
    Lock();
    if (g_save.first.handle == nullptr) {
        PrintOwnMessage(__func__, 332, "log1 not open");
    }
    const std::int32_t result = WriteInTurn({.text = record, .length = length});
    Unlock();
    if (result != 0) {
        ZV_LOG_CloseSave();
    }
}

}  // namespace paramgen
