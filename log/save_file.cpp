#include "log/save_file.h"

#include <pthread.h>
#include <sys/stat.h>

#include <atomic>
#include <cstdio>

#include "safestr/safestr.h"

namespace paramgen {
namespace {

constexpr std::size_t kPathSize = 4096;

/// One of the two save files.
struct SaveFile {
    std::FILE* handle;
    std::uint32_t bytes;  ///< written so far, counted from the file's beginning
    char path[kPathSize];
};

/// State of the save path; `lock` guards all of it.
struct SavePath {
    pthread_mutex_t lock;
    std::atomic<bool> enabled;  ///< changed under the lock, asked for without
    std::uint32_t sizeLimit;    ///< set when the save path is opened
    SaveFile* current;          ///< the file written last
    SaveFile first;
    SaveFile second;
    std::uint32_t secondOpenCount;
};

SavePath g_save = {.lock = PTHREAD_MUTEX_INITIALIZER,
                   .enabled = false,
                   .sizeLimit = 0,
                   .current = nullptr,
                   .first = {},
                   .second = {},
                   .secondOpenCount = 0};

/// One record on its way into a file.
struct Record {
    const char* text;
    std::size_t length;
};

void PrintOwn(const char* function, int line, const char* text) {
    std::printf("[%s]%d: %s\n", function, line, text);
}

void Lock() {
    if (pthread_mutex_lock(&g_save.lock) != 0) {
        std::puts("volog lock fail");
    }
}

void Unlock() {
    if (pthread_mutex_unlock(&g_save.lock) != 0) {
        std::puts("volog unlock fail");
    }
}

/// Closes a file's stream, if it has one. The stream is gone even when closing reports a failure.
/// Returns whether a stream was there and was closed without one.
bool CloseStream(SaveFile* file) {
    std::FILE* handle = file->handle;
    file->handle = nullptr;
    return handle != nullptr && std::fclose(handle) == 0;
}

bool WriteWhole(const SaveFile& file, const Record& record) {
    return file.handle != nullptr &&
           std::fwrite(record.text, 1, record.length, file.handle) == record.length;
}

/// Measures an open file by seeking to its end.
std::int32_t LOG_CheckFileSize(std::FILE* handle, std::uint32_t* size) {
    if (handle == nullptr) {
        PrintOwn(__func__, 67, "fp is null");
        return kSaveNoSize;
    }
    const long position = std::fseek(handle, 0, SEEK_END) == 0 ? std::ftell(handle) : -1;
    if (position < 0) {
        std::puts("ftell failed");
        return kSaveNoSize;
    }
    *size = static_cast<std::uint32_t>(position);
    return 0;
}

/// Starts a file afresh, with the record as all it holds.
std::int32_t LOG_ReOpen(SaveFile* file, const Record& record) {
    if (!CloseStream(file)) {
        PrintOwn(__func__, 262, "close file failed");
        return kSaveNotWritten;
    }
    file->handle = std::fopen(file->path, "w+");
    if (file->handle == nullptr) {
        PrintOwn(__func__, 265, "open file failed");
        return kSaveNotOpened;
    }
    if (!WriteWhole(*file, record)) {
        PrintOwn(__func__, 268, "fwrite filed");
        return kSaveNotWritten;
    }
    if (std::fflush(file->handle) != 0) {
        PrintOwn(__func__, 271, "fflush filed");
        return kSaveNotWritten;
    }
    g_save.current = file;
    file->bytes = static_cast<std::uint32_t>(record.length);
    return 0;
}

std::int32_t LOG_WriteLog(SaveFile* file, const Record& record) {
    struct stat status = {};
    if (stat(file->path, &status) != 0) {
        std::printf("[%s]%d: (%s) is delete \n", __func__, 292, file->path);
        const std::int32_t result = LOG_ReOpen(file, record);
        if (result != 0) {
            PrintOwn(__func__, 294, "reopen filed");
        }
        return result;
    }
    if (status.st_size == 0) {
        const std::int32_t result = LOG_ReOpen(file, record);
        if (result != 0) {
            PrintOwn(__func__, 306, "reopen filed");
        }
        return result;
    }
    if (record.length + file->bytes > g_save.sizeLimit) {
        return kSaveFull;
    }
    if (!WriteWhole(*file, record)) {
        PrintOwn(__func__, 316, "fwrite filed");
        return kSaveNotWritten;
    }
    file->bytes += static_cast<std::uint32_t>(record.length);
    g_save.current = file;
    return 0;
}

/// Opens the second file to continue it.
std::int32_t OpenSecond() {
    SaveFile* second = &g_save.second;
    second->handle = std::fopen(second->path, "a");
    if (second->handle == nullptr) {
        std::perror("open file failed:\n");
        return kSaveNotOpened;
    }
    const std::int32_t result = LOG_CheckFileSize(second->handle, &second->bytes);
    if (result != 0) {
        CloseStream(second);
        return result;
    }
    ++g_save.secondOpenCount;
    return 0;
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

}  // namespace

bool ZV_LOG_IsSaveOpen() {
    return g_save.enabled.load(std::memory_order_relaxed);
}

void ZV_LOG_CloseSave() {
    Lock();
    CloseStream(&g_save.first);
    g_save.first.bytes = 0;
    g_save.enabled.store(false, std::memory_order_relaxed);
    CloseStream(&g_save.second);
    g_save.second.bytes = 0;
    g_save.secondOpenCount = 0;
    Unlock();
}

std::int32_t ZV_LOG_OpenSave(const char* directory, std::uint32_t sizeLimit) {
    if (directory == nullptr) {
        return -1;
    }
    ZV_LOG_CloseSave();
    Lock();
    SaveFile* first = &g_save.first;
    std::int32_t result = 0;
    if (sprintf_s(first->path, kPathSize, "%s/Q2VkYXJMb2dzVoLog1", directory) == -1 ||
        sprintf_s(g_save.second.path, kPathSize, "%s/Q2VkYXJMb2dzVoLog2", directory) == -1) {
        result = -1;
    } else {
        first->handle = std::fopen(first->path, "a");
        result = first->handle == nullptr ? kSaveNotOpened
                                          : LOG_CheckFileSize(first->handle, &first->bytes);
    }
    if (result == 0) {
        g_save.current = first;
        g_save.sizeLimit = sizeLimit;
        g_save.enabled.store(true, std::memory_order_relaxed);
    } else {
        CloseStream(first);
    }
    Unlock();
    return result;
}

void LOG_SaveLog(const char* record, std::size_t length) {
    if (length == 0) {
        PrintOwn(__func__, 329, "bufSize is zero");
        ZV_LOG_CloseSave();
        return;
    }
    Lock();
    if (g_save.first.handle == nullptr) {
        PrintOwn(__func__, 332, "log1 not open");
    }
    const std::int32_t result = WriteInTurn({.text = record, .length = length});
    Unlock();
    if (result != 0) {
        ZV_LOG_CloseSave();
    }
}

}  // namespace paramgen
