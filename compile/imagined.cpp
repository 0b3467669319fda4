#include "compile/imagined.h"

#include <cstring>
#include <deque>
#include <exception>
#include <new>

#include "compile/recorder.h"
#include "compile/run.h"
#include "compile/standard_output.h"
#include "confaccess/entry_ptr.h"
#include "param/common/readers.h"

namespace paramgen::compile {
namespace {

/// Passes questions on.
class Questions : public Recorder {
public:
    Questions(Imagined* product, const Pretence& pretence, Keep keep, Compilation* result)
        : Recorder(pretence, keep, result), product_(product) {}

private:
    ModuleEntry* FindModule(std::string_view name, ModuleEntry*) override {
        if (name != AskedModule()) {  // mostly it is the same one again
            hasModule_ = product_->HasModule(name);
        }
        return Recorder::FindModule(name, hasModule_ ? EmptyModule() : nullptr);
    }

    const char* FindText(std::string_view key, const char*, const char* absent) override {
        const std::optional<std::string> text = product_->Text(AskedModule(), key, AskedPlace());
        if (!text) {
            return Recorder::FindText(key, absent, absent);
        }
        texts_.push_back(*text);
        return Recorder::FindText(key, texts_.back().c_str(), absent);
    }

    Imagined* product_;
    bool hasModule_ = false;
    std::deque<std::string> texts_;  ///< loaders may look at them until the run is over
};

/// A configuration with nothing in it, registered as long as it lives.
class EmptyConfig {
public:
    EmptyConfig() : config_(NewEntry<ConfigEntry>()) {
        if (config_ == nullptr) {
            throw std::bad_alloc();
        }
        std::memcpy(config_->cfgName, kProductConfig, sizeof kProductConfig);
        ListReset(&config_->modules);
        pthread_mutex_init(&config_->lock, nullptr);
        ListInsert(&g_configs, config_.get());
        ++g_confAccessCount;
    }
    ~EmptyConfig() {
        ListRemove(config_.get());
        --g_confAccessCount;
        pthread_mutex_destroy(&config_->lock);
    }
    EmptyConfig(const EmptyConfig&) = delete;
    EmptyConfig& operator=(const EmptyConfig&) = delete;

private:
    EntryPtr<ConfigEntry> config_;
};

}  // namespace

Compilation CompileImagined(Imagined* product, bool keepAnswers) {
    Compilation result = {};
    const Pretence pretence;
    const Keep keep = {.answers = keepAnswers, .log = false};
    const EmptyConfig config;
    const StandardOutput output(false);
    Questions questions(product, pretence, keep, &result);
    RunAndKeep(questions, keep, &result);
    if (questions.Failure() != nullptr) {
        std::rethrow_exception(questions.Failure());
    }
    return result;
}

}  // namespace paramgen::compile
