/// What happens in a run, for whoever watches it. The places that can be watched are macros: in the
/// program nobody watches, and they are gone before it is compiled. In the companion's compilation
/// they tell a `Watcher`.
#pragma once

#if defined(PARAMGEN_DESCRIBED)

#include <cstddef>
#include <string_view>

namespace paramgen {

class LockedModule;
struct ModuleEntry;

/// Watches a run. Its functions are called while the run is under way, and throw nothing.
class Watcher {
public:
    virtual ~Watcher() = default;

    /// Whether configurations stay registered: to register one again then leaves it as it is, and
    /// none is released.
    virtual bool KeepsConfigs() const noexcept = 0;

    /// The file of a module was read or, when it has no dictionary, could not be.
    virtual void FileRead(const ModuleEntry& module) noexcept = 0;

    /// A loader asks for the module `name`. `found` is null when there is none. Returns the module
    /// that it gets.
    virtual ModuleEntry* Module(std::string_view name, ModuleEntry* found) noexcept = 0;

    /// The value of the key that is asked for next goes to `dest`, where it may take `size` bytes.
    virtual void Destination(const void* dest, std::size_t size) noexcept = 0;

    /// A loader asks `module`, which there is, for `key`. `text` is its value; null for a section,
    /// and `absent` when there is no such key. Returns the value that the loader gets.
    virtual const char* Answer(const LockedModule& module, std::string_view key, const char* text,
                               const char* absent) noexcept = 0;
};

/// Who watches this process; null: nobody.
inline Watcher* g_watcher = nullptr;

}  // namespace paramgen

/// Tells the watcher by calling its function; `otherwise` is the result when there is none.
#define WATCH_(call, otherwise) \
    (::paramgen::g_watcher == nullptr ? (otherwise) : ::paramgen::g_watcher->call)

#define WATCH_FILE_READ(module) WATCH_(FileRead(module), static_cast<void>(0))
#define WATCH_MODULE(name, found) WATCH_(Module(name, found), found)
#define WATCH_DESTINATION(dest, size) WATCH_(Destination(dest, size), static_cast<void>(0))
#define WATCH_ANSWER(module, key, text, absent) WATCH_(Answer(module, key, text, absent), text)

/// Returns `status` from the function that it stands in, when `cfgName` is registered and stays so.
#define RETURN_WHERE_CONFIG_STAYS(cfgName, status)                             \
    do {                                                                       \
        if (WATCH_(KeepsConfigs(), false) && FindConfig(cfgName) != nullptr) { \
            return status;                                                     \
        }                                                                      \
    } while (false)

#else

#define RETURN_WHERE_CONFIG_STAYS(cfgName, status) static_cast<void>(0)
#define WATCH_FILE_READ(module) static_cast<void>(0)
#define WATCH_MODULE(name, found) (found)
#define WATCH_DESTINATION(dest, size) static_cast<void>(0)
#define WATCH_ANSWER(module, key, text, absent) (text)

#endif
