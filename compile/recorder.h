/// Observes a run and records it.
#pragma once

#include <exception>
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
///
/// The loaders cannot pass exceptions on, and hold locks. So the first exception is kept until the
/// run is over; from then on, nothing is recorded, and the loaders get what the files say.
class Recorder : public Watcher {
public:
    /// All arguments have to live as long. `result` gets answers, modules, files and the stop.
    /// Files among `texts` are not read.
    Recorder(const Pretence& pretence, Keep keep, Compilation* result,
             const FileTexts* texts = nullptr);
    ~Recorder() override;
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    bool KeepsConfigs() const noexcept override { return true; }
    std::optional<ReadResult> KnownText(const char* path, Text* text) noexcept override;
    void FileRead(const ModuleEntry& module) noexcept override;
    ModuleEntry* Module(std::string_view name, ModuleEntry* found) noexcept override;
    void Destination(const void* dest, std::size_t size) noexcept override;
    const char* Answer(const LockedModule& module, std::string_view key, const char* text,
                       const char* absent) noexcept override;

    /// The first exception of the run; null when there was none.
    std::exception_ptr Failure() const { return failure_; }

    /// The last query: the place where a failed run has stopped.
    Stop Last() const;

protected:
    /// Records that a module is looked up, and returns the one that the loader gets.
    virtual ModuleEntry* FindModule(std::string_view name, ModuleEntry* found);

    /// Records that a key of that module is queried, and returns the text that the loader gets.
    virtual const char* FindText(std::string_view key, const char* text, const char* absent);

    /// A module without keys; null when there is no memory for it.
    ModuleEntry* EmptyModule() noexcept;

    /// The module that was asked for last, and where the value that is asked for next goes.
    const std::string& AskedModule() const { return module_; }
    const std::optional<Place>& AskedPlace() const { return place_; }

private:
    template <typename Work>
    void Guarded(const Work& work) noexcept;

    const Pretence& pretence_;
    Keep keep_;
    Compilation* result_;
    const FileTexts* texts_;
    std::exception_ptr failure_;
    Arena memory_;       ///< of the module that is empty
    ModuleEntry empty_;  ///< stands for modules that are not there
    std::optional<Place> place_;
    Stop::At at_ = Stop::At::kEntry;
    std::string module_;
    std::string key_;
};

}  // namespace paramgen::compile
