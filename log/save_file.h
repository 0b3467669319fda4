/// Save path of the library log: two files in one directory that take turns. When the file in use
/// would grow past the size limit, the other one is truncated and used next. One mutex guards
/// all of it.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdio>

namespace paramgen {

/// The size, in bytes, beyond which no save file grows unless the caller asks for another limit.
constexpr std::uint32_t kSaveFileSizeLimit = 5U * 1024U * 1024U;

/// Status codes of the save path.
constexpr std::int32_t kSaveNoSize = static_cast<std::int32_t>(0xA11F8001U);  ///< size unreadable
constexpr std::int32_t kSaveFull = static_cast<std::int32_t>(0xA11F8003U);    ///< limit reached
constexpr std::int32_t kSaveNotOpened = static_cast<std::int32_t>(0xA11F8042U);
constexpr std::int32_t kSaveNotWritten = static_cast<std::int32_t>(0xA11F8043U);

/// Opens the save path on two files in `directory`, which must exist, and turns it on. The first
/// file is continued; no file grows past `sizeLimit` bytes.
/// Returns 0; -1 when `directory` is null or too long; `kSaveNotOpened` or `kSaveNoSize` when the
/// first file cannot be opened or measured. An open save path is closed first, in every case.
std::int32_t ZV_LOG_OpenSave(const char* directory, std::uint32_t sizeLimit = kSaveFileSizeLimit);

/// Closes the save path, if it is open: both files, and the switch.
void ZV_LOG_CloseSave();

/// Whether the save path is open.
bool ZV_LOG_IsSaveOpen();

/// Appends one record of `length` bytes to the file whose turn it is. A failure closes the save
/// path.
void LOG_SaveLog(const char* record, std::size_t length);

/// `LOG_SaveLog` while the save path is open, else null. The library log calls the save path only
/// through this pointer, so that a program that never opens it does not link it.
extern std::atomic<void (*)(const char* record, std::size_t length)> g_saveRecord;

/// Measures an open file by seeking to its end, where it stays. Returns 0, or `kSaveNoSize` when
/// there is no file, its position cannot be read or it does not fit 31 bits.
std::int32_t LOG_CheckFileSize(std::FILE* handle, std::uint32_t* size);

}  // namespace paramgen
