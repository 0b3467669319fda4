#include "compile/session.h"

#include <exception>
#include <utility>

#include "compile/recorder.h"
#include "compile/run.h"
#include "compile/standard_output.h"
#include "compile/working_directory.h"
#include "confaccess/confaccess.h"
#include "param/common/readers.h"

namespace paramgen::compile {
namespace {

/// Takes a configuration out of the registry, and puts it back: there is room for one tree.
void TakeOut(ConfigEntry* config) {
    ListRemove(config);
    --g_confAccessCount;
}

void PutBack(ConfigEntry* config) {
    ListInsert(&g_configs, config);
    ++g_confAccessCount;
}

}  // namespace

struct Session::State {
    std::filesystem::path tree;
    FileTexts texts;
    ConfigEntry* config = nullptr;  ///< what was read; null before the first run that could
    std::vector<ModuleFile> files;  ///< what was read for it
};

Session::Session(std::filesystem::path tree, FileTexts texts)
    : state_(std::make_unique<State>(State{
          .tree = std::move(tree), .texts = std::move(texts), .config = nullptr, .files = {}})) {}

Session::~Session() {
    if (state_->config != nullptr) {
        PutBack(state_->config);
        SetUpLog(false);
        static_cast<void>(ZV_CONFACCESS_Deinit(kProductConfig));
    }
}

Compilation Session::Run(const Pretence& pretence, Keep keep) {
    Compilation result = {};
    result.files = state_->files;
    const WorkingDirectory directory(state_->tree);
    const StandardOutput output(keep.log);
    if (state_->config != nullptr) {
        PutBack(state_->config);
    }
    std::exception_ptr failure;
    {
        const Recorder recorder(pretence, keep, &result, &state_->texts);
        RunAndKeep(recorder, keep, &result);
        failure = recorder.Failure();
    }
    state_->config = FindConfig(kProductConfig);
    if (state_->config != nullptr) {
        TakeOut(state_->config);
        state_->files = result.files;
    }
    if (failure != nullptr) {
        std::rethrow_exception(failure);
    }
    if (keep.log) {
        result.log = output.Text();
    }
    return result;
}

Compilation Compile(const std::filesystem::path& tree, Keep keep) {
    return Session(tree).Run({}, keep);
}

}  // namespace paramgen::compile
