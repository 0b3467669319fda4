/// Observing a run. The places that can be observed are marked with macros. In the program they
/// expand to nothing; in the companion's compilation they call a `Watcher`.
#pragma once

#if defined(PARAMGEN_DESCRIBED)

#include <cstddef>
#include <optional>
#include <string_view>

#include "confaccess/text_file.h"

namespace paramgen {

class LockedModule;
struct ModuleEntry;

/// Observer of a run. Its functions are called during the run and must not throw.
class Watcher {
public:
    virtual ~Watcher() = default;

    /// Whether configurations stay registered: registering one again then does nothing, and none is
    /// released.
    virtual bool KeepsConfigs() const noexcept = 0;

    /// The file at `path` is to be read. Returns none, or the result of reading it before. Its
    /// content, which `text` then gets, has to stay until the run is over.
    virtual std::optional<ReadResult> KnownText(const char* path, Text* text) noexcept = 0;

    /// The file of a module was read. When `module` has no dictionary, reading it has failed.
    virtual void FileRead(const ModuleEntry& module) noexcept = 0;

    /// A loader looks up the module `name`. `found` is null when there is none. Returns the module
    /// that the loader gets.
    virtual ModuleEntry* Module(std::string_view name, ModuleEntry* found) noexcept = 0;

    /// The value of the key that is queried next will be stored in the `size` bytes at `dest`.
    virtual void Destination(const void* dest, std::size_t size) noexcept = 0;

    /// A loader queries `key` of `module`, which exists. `text` is the value: null for a section,
    /// and `absent` when there is no such key. Returns the value that the loader gets.
    virtual const char* Answer(const LockedModule& module, std::string_view key, const char* text,
                               const char* absent) noexcept = 0;
};

/// The watcher of this process; null when there is none.
inline Watcher* g_watcher = nullptr;

/// Reads a file with `ReadTextFile`, unless the watcher has read it.
[[nodiscard]] inline ReadResult ReadUnlessKnown(const char* path, Arena* arena, Text* text) {
    const std::optional<ReadResult> known =
        g_watcher == nullptr ? std::nullopt : g_watcher->KnownText(path, text);
    return known.has_value() ? *known : ReadTextFile(path, arena, text);
}

}  // namespace paramgen

/// Calls a function of the watcher. `otherwise` is the result without a watcher.
#define WATCH_(call, otherwise) \
    (::paramgen::g_watcher == nullptr ? (otherwise) : ::paramgen::g_watcher->call)

#define READ_TEXT_FILE(path, arena, text) ::paramgen::ReadUnlessKnown(path, arena, text)
#define WATCH_FILE_READ(module) WATCH_(FileRead(module), static_cast<void>(0))
#define WATCH_MODULE(name, found) WATCH_(Module(name, found), found)
#define WATCH_DESTINATION(dest, size) WATCH_(Destination(dest, size), static_cast<void>(0))
#define WATCH_ANSWER(module, key, text, absent) WATCH_(Answer(module, key, text, absent), text)

/// Returns `status` from the calling function when `cfgName` is registered and stays registered.
#define RETURN_WHERE_CONFIG_STAYS(cfgName, status)                             \
    do {                                                                       \
        if (WATCH_(KeepsConfigs(), false) && FindConfig(cfgName) != nullptr) { \
            return status;                                                     \
        }                                                                      \
    } while (false)

#else

#define RETURN_WHERE_CONFIG_STAYS(cfgName, status) static_cast<void>(0)
#define READ_TEXT_FILE(path, arena, text) ReadTextFile(path, arena, text)
#define WATCH_FILE_READ(module) static_cast<void>(0)
#define WATCH_MODULE(name, found) (found)
#define WATCH_DESTINATION(dest, size) static_cast<void>(0)
#define WATCH_ANSWER(module, key, text, absent) (text)

#endif
