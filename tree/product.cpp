#include "tree/product.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <filesystem>

#include "confaccess/arena.h"
#include "confaccess/confaccess.h"
#include "confaccess/number.h"
#include "confaccess/text_file.h"

namespace paramgen::tree {
namespace {

/// The most characters of a name, a key and a path.
constexpr std::size_t kNameMax = QX_CONFACCESS_NAME_MAX_LEN - 1;
constexpr std::size_t kKeyMax = QX_CONFACCESS_KEY_MAX_LEN - 1;
constexpr std::size_t kPathMax = QX_CONFACCESS_PATH_MAX_LEN - 1;

/// A path with its links resolved; empty when there is nothing.
std::string Resolve(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> resolved(realpath(path.c_str(), nullptr),
                                                               &std::free);
    return resolved == nullptr ? "" : resolved.get();
}

/// What a value gives to a program whose texts end in a NUL; null when there is no such key.
struct Value {
    bool exists = false;
    std::string text;
};

Value ValueOf(const IniFile& file, const std::string& key) {
    const Line* line = file.Find(key);
    if (line == nullptr || line->kind != LineKind::kValue) {
        return {};
    }
    return {.exists = true, .text = std::string(file.TextOf(line->value))};
}

/// A path without one '/' at its end, unless it is all of it.
void TrimSlash(std::string* path) {
    if (path->size() >= 2 && path->back() == '/') {
        path->pop_back();
    }
}

}  // namespace

bool ReadFile(const std::string& path, std::string* bytes) {
    Arena arena;
    Text text;
    if (ReadTextFile(path.c_str(), &arena, &text) != ReadResult::kRead) {
        return false;
    }
    *bytes = text.View();
    return true;
}

bool EndsRun(ModuleFate fate) {
    return fate == ModuleFate::kNoName || fate == ModuleFate::kNoFileName ||
           fate == ModuleFate::kRepeated;
}

Product::Product(std::string_view directory) : directory_(directory) {
    ReadEntry();
    if (entryFate_ == EntryFate::kRead) {
        ListModules();
    }
}

std::string Product::Shown(std::string_view path) const {
    while (path.starts_with("./")) {
        path.remove_prefix(2);
        path.remove_prefix(std::min(path.find_first_not_of('/'), path.size()));
    }
    if (path.starts_with('/') || directory_ == ".") {
        return std::string(path);
    }
    const bool hasSlash = directory_.ends_with('/');
    return directory_ + (hasSlash ? "" : "/") + std::string(path);
}

void Product::ReadEntry() {
    entry_ = std::make_unique<FoundFile>();
    entry_->path = kEntryName;
    entry_->inTree = kEntryName;
    entry_->shown = Shown(kEntryName);
    const std::string path = directory_ + "/" + kEntryName;
    entryFile_ = Resolve(path);
    std::string bytes;
    entryFate_ = EntryFate::kMissing;
    if (entryFile_.empty()) {
        return;
    }
    if (entryFile_.size() > kPathMax) {
        entryFate_ = EntryFate::kPathTooLong;
        return;
    }
    std::error_code ignored;
    entry_->isDirectory = std::filesystem::is_directory(path, ignored);
    if (!ReadFile(path, &bytes)) {
        return;
    }
    home_ = std::filesystem::path(entryFile_).parent_path().string();
    realDirectory_ = Resolve(directory_);
    entry_->isReadable = true;
    entry_->ini = std::make_unique<IniFile>(std::move(bytes));
    entryFate_ = entry_->ini->IsAccepted() ? EntryFate::kRead : EntryFate::kRefused;
}

void Product::ListModules() {
    const Value count = ValueOf(*entry_->ini, "module:module_num");
    moduleCount_ = count.exists ? ParseInteger(count.text.c_str(), 0) : 0;
    if (moduleCount_ == 0) {
        entryFate_ = EntryFate::kNoCount;
    }
    for (std::int32_t index = 0; index < moduleCount_; ++index) {
        modules_.push_back(ReadModule(index + 1));
        if (EndsRun(modules_.back().fate)) {
            return;
        }
    }
}

Module Product::ReadModule(std::int32_t number) {
    Module module;
    module.number = number;
    const Value name = ValueOf(*entry_->ini, "module:module" + std::to_string(number));
    module.name = name.text;
    if (!name.exists) {
        module.fate = ModuleFate::kNoName;
        return module;
    }
    // "path" is asked for before "cfg_filename", a longer key.
    if (name.text.size() > kNameMax) {
        module.fate = ModuleFate::kNameTooLong;
        return module;
    }
    if (FindModule(name.text) != nullptr) {
        module.fate = ModuleFate::kRepeated;
        return module;
    }
    std::string path;
    module.fate = FindPath(name.text, &path);
    if (module.fate != ModuleFate::kRead) {
        return module;
    }
    module.file = Open(path);
    if (!module.file->isReadable) {
        module.fate = ModuleFate::kUnreadable;
    } else if (!module.file->ini->IsAccepted()) {
        module.fate = ModuleFate::kRefused;
    }
    return module;
}

ModuleFate Product::FindPath(const std::string& name, std::string* path) const {
    const std::string pathKey = name + ":path";
    if (pathKey.size() > kKeyMax) {
        return ModuleFate::kNameTooLong;
    }
    const Value directory = ValueOf(*entry_->ini, pathKey);
    const bool isGiven = directory.exists && directory.text.find('/') != std::string::npos;
    *path = isGiven ? directory.text : home_ + "/";
    if (path->size() > kPathMax) {
        return ModuleFate::kPathTooLong;
    }
    TrimSlash(path);
    const std::string fileKey = name + ":cfg_filename";
    if (fileKey.size() > kKeyMax) {
        return ModuleFate::kNameTooLong;
    }
    const Value file = ValueOf(*entry_->ini, fileKey);
    if (!file.exists || file.text.empty()) {
        return ModuleFate::kNoFileName;
    }
    *path += "/" + file.text;
    return path->size() > kPathMax ? ModuleFate::kPathTooLong : ModuleFate::kRead;
}

/// An absolute path without detours, equal for paths that lead to one file. One with ".." stays as
/// it is: where that leads depends on links.
std::string Product::NormalPath(const std::string& path) const {
    const std::filesystem::path given(path);
    if (std::find(given.begin(), given.end(), "..") != given.end()) {
        return path;
    }
    return (std::filesystem::path(realDirectory_) / given).lexically_normal().string();
}

const FoundFile* Product::Open(const std::string& path) {
    const auto [opened, isNewPath] = opened_.try_emplace(path);
    if (isNewPath) {
        const auto [known, isNewFile] = known_.try_emplace(NormalPath(path));
        if (isNewFile) {
            known->second = Read(path);
        }
        opened->second = known->second;
    }
    return opened->second;
}

const FoundFile* Product::Read(const std::string& path) {
    auto file = std::make_unique<FoundFile>();
    file->path = path;
    const std::string prefix = home_ + "/";
    const bool isAtHome = path.starts_with(prefix);
    file->inTree = isAtHome ? path.substr(prefix.size()) : path;
    const bool isElsewhere = isAtHome && home_ != realDirectory_;  // the entry file is a link
    file->shown =
        Shown(isElsewhere ? std::filesystem::path(path).lexically_relative(realDirectory_).string()
                          : file->inTree);
    const std::string opened = path.starts_with('/') ? path : directory_ + "/" + path;
    std::error_code ignored;
    file->isDirectory = std::filesystem::is_directory(opened, ignored);
    std::string bytes;
    if (ReadFile(opened, &bytes)) {
        file->isReadable = true;
        file->ini = std::make_unique<IniFile>(std::move(bytes));
    }
    files_.push_back(std::move(file));
    return files_.back().get();
}

const Module* Product::FindModule(std::string_view name) const {
    const auto found = std::find_if(modules_.begin(), modules_.end(), [&](const Module& module) {
        return module.fate == ModuleFate::kRead && module.name == name;
    });
    return found == modules_.end() ? nullptr : &*found;
}

}  // namespace paramgen::tree
