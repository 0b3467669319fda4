#include "compile/recorder.h"

#include <algorithm>
#include <cerrno>

#include "confaccess/ini_reader.h"
#include "confaccess/locked_module.h"

namespace paramgen::compile {
namespace {

/// Leaves `errno` to the run that is watched.
class SavedErrno {
public:
    SavedErrno() : value_(errno) {}
    ~SavedErrno() { errno = value_; }
    SavedErrno(const SavedErrno&) = delete;
    SavedErrno& operator=(const SavedErrno&) = delete;

private:
    int value_;
};

/// Where `size` bytes at `dest` lie in the image of a run; none when they do not.
std::optional<Place> PlaceOf(const void* dest, std::size_t size) {
    const auto begin = reinterpret_cast<std::uintptr_t>(&g_image);
    const auto at = reinterpret_cast<std::uintptr_t>(dest);
    if (at < begin || at >= begin + sizeof g_image) {
        return std::nullopt;
    }
    return Place{.offset = static_cast<std::uint32_t>(at - begin),
                 .size = static_cast<std::uint32_t>(size)};
}

}  // namespace

Recorder::Recorder(const Pretence& pretence, Keep keep, Compilation* result, const FileTexts* texts)
    : pretence_(pretence), keep_(keep), result_(result), texts_(texts), empty_{} {
    g_watcher = this;
    constexpr std::size_t kUsualAnswers = 4096;  // of a product with a few media modes
    result->answers.reserve(keep.answers ? kUsualAnswers : 0);
}

Recorder::~Recorder() {
    g_watcher = nullptr;
}

/// Does `work` unless something has failed before.
template <typename Work>
void Recorder::Guarded(const Work& work) noexcept {
    if (failure_ != nullptr) {
        return;
    }
    const SavedErrno saved;
    try {
        work();
    } catch (...) {
        failure_ = std::current_exception();
    }
}

std::optional<ReadResult> Recorder::KnownText(const char* path, Text* text) noexcept {
    if (texts_ == nullptr) {
        return std::nullopt;
    }
    const auto known = texts_->find(std::string_view(path));
    if (known == texts_->end()) {
        return std::nullopt;
    }
    if (!known->second.has_value()) {
        return ReadResult::kUnreadable;
    }
    *text = {.bytes = known->second->data(), .size = known->second->size()};
    return ReadResult::kRead;
}

void Recorder::FileRead(const ModuleEntry& module) noexcept {
    Guarded([&] {
        result_->files.push_back(
            {.name = module.name, .path = module.file, .isRead = module.dictionary != nullptr});
    });
}

ModuleEntry* Recorder::Module(std::string_view name, ModuleEntry* found) noexcept {
    ModuleEntry* module = found;
    Guarded([&] { module = FindModule(name, found); });
    return module;
}

ModuleEntry* Recorder::FindModule(std::string_view name, ModuleEntry* found) {
    at_ = Stop::At::kModule;
    if (module_ != name) {
        module_ = name;
        if (std::find(result_->modules.begin(), result_->modules.end(), name) ==
            result_->modules.end()) {
            result_->modules.emplace_back(name);
        }
    }
    const bool isPretended = found == nullptr && pretence_.emptyModules.contains(module_);
    return isPretended ? EmptyModule() : found;
}

ModuleEntry* Recorder::EmptyModule() noexcept {
    if (empty_.dictionary == nullptr) {
        empty_.dictionary = LoadIniFile("/dev/null", &memory_);
    }
    return empty_.dictionary == nullptr ? nullptr : &empty_;
}

void Recorder::Destination(const void* dest, std::size_t size) noexcept {
    place_ = PlaceOf(dest, size);
}

const char* Recorder::Answer(const LockedModule&, std::string_view key, const char* text,
                             const char* absent) noexcept {
    const char* answer = text;
    Guarded([&] { answer = FindText(key, text, absent); });
    return answer;
}

const char* Recorder::FindText(std::string_view key, const char* text, const char* absent) {
    const bool isAfterRangeError = errno == ERANGE;
    at_ = Stop::At::kKey;
    key_ = key;
    if (!pretence_.texts.empty()) {
        const auto other = pretence_.texts.find({module_, key_});
        text = other == pretence_.texts.end() ? text : other->second.c_str();
    }
    if (!pretence_.absentKeys.empty() && pretence_.absentKeys.contains({module_, key_})) {
        text = absent;
    }
    if (keep_.answers) {
        result_->answers.push_back(
            {.module = module_,
             .key = key_,
             .text = text == nullptr ? std::nullopt : std::optional<std::string>(text),
             .place = place_,
             .afterRangeError = isAfterRangeError});
    }
    place_ = std::nullopt;
    return text;
}

Stop Recorder::Last() const {
    return {.at = at_,
            .module = at_ == Stop::At::kEntry ? "" : module_,
            .key = at_ == Stop::At::kKey ? key_ : ""};
}

}  // namespace paramgen::compile
