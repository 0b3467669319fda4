/// Observes a run and records it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "compile/compilation.h"
#include "compile/session.h"
#include "confaccess/arena.h"
#include "confaccess/registry.h"
#include "confaccess/watch.h"

namespace paramgen::compile {

/// Observes runs from its construction to its destruction.
class Recorder : public Watcher {
public:
    /// Both arguments have to live as long. `result` gets answers, modules, files and the stop.
    Recorder(const Pretence& pretence, Keep keep, Compilation* result);
    ~Recorder() override;
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    bool KeepsConfigs() const noexcept override { return true; }
    void FileRead(const ModuleEntry& module) noexcept override;
    ModuleEntry* Module(std::string_view name, ModuleEntry* found) noexcept override;
    void Destination(const void* dest, std::size_t size) noexcept override;
    const char* Answer(const LockedModule& module, std::string_view key, const char* text,
                       const char* absent) noexcept override;

    /// The last query: the place where a failed run has stopped.
    Stop Last() const;

protected:
    /// A module without keys; null when there is no memory for it.
    ModuleEntry* EmptyModule() noexcept;

    /// The module that was asked for last, and where the value that is asked for next goes.
    const std::string& AskedModule() const { return module_; }
    const std::optional<Place>& AskedPlace() const { return place_; }

private:
    const Pretence& pretence_;
    Keep keep_;
    Compilation* result_;
    Arena memory_;       ///< of the module that is empty
    ModuleEntry empty_;  ///< stands for modules that are not there
    std::optional<Place> place_;
    Stop::At at_ = Stop::At::kEntry;
    std::string module_;
    std::string key_;
};

}  // namespace paramgen::compile
