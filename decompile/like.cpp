#include "decompile/like.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <set>

#include "compile/session.h"
#include "decompile/image_facts.h"
#include "decompile/lost.h"
#include "decompile/solver.h"
#include "image/input.h"
#include "output/result.h"
#include "output/shown_text.h"
#include "tree/edit.h"
#include "tree/edits.h"
#include "tree/product.h"
#include "tree/spelling.h"

namespace paramgen::decompile {
namespace {

namespace fs = std::filesystem;

/// The path of a tree's file from the tree's directory.
std::string PathWithin(const tree::Product& product, const tree::FoundFile& file) {
    fs::path path = fs::path(file.path).lexically_normal();
    if (path.is_absolute()) {
        path = path.lexically_relative(fs::canonical(product.directory()));
    }
    const std::string text = path.string();
    if (text.empty() || text == ".." || text.starts_with("../")) {
        throw output::UserError(output::Shown(file.shown) + ": lies outside of the tree");
    }
    return text;
}

/// The files of a tree while they are changed.
class EditedTree {
public:
    explicit EditedTree(const tree::Product& product) : product_(product) {
        entry_ = PathWithin(product, product.entry());
        Replace(entry_, product.entry().ini->bytes());
        for (const tree::Module& module : product.modules()) {
            if (module.fate == tree::ModuleFate::kRead) {
                const std::string path = PathWithin(product, *module.file);
                Replace(path, module.file->ini->bytes());
                paths_[module.name] = path;
                StayWithin(module.name, path);
            } else {
                withoutFile_.insert(module.name);
            }
        }
    }

    /// Gives a module a file, and lists it unless it is listed already.
    void AddModule(const std::string& name) {
        if (withoutFile_.count(name) == 0) {
            const std::string number = std::to_string(++moduleCount());
            SetIn(entry_, NumberKey(moduleCount()), name);
            SetIn(entry_, "module:module_num", number);
        }
        GiveFile(name, "");
        // Two modules of one name that are both there end a run.
        std::int32_t more = NumberOf(name, NumberOf(name, 1) + 1);
        while (more != 0) {
            Unlist(more);
            more = NumberOf(name, more);
        }
    }

    /// Takes a module out of the list, and its file out of the tree unless another module has it.
    void RemoveModule(const std::string& name) {
        const std::int32_t number = NumberOf(name, 1);
        if (number != 0) {
            Unlist(number);
        }
        Replace(entry_, tree::WithoutSection(file(entry_), name));
        const std::string path = paths_.at(name);
        paths_.erase(name);
        const auto hasIt = [&](const auto& other) { return other.second == path; };
        if (path != entry_ && std::none_of(paths_.begin(), paths_.end(), hasIt)) {
            files_.erase(path);
        }
    }

    /// Gives a module a file of its own, with what its file has now.
    void Split(const std::string& name) { GiveFile(name, file(paths_.at(name)).bytes()); }

    /// The modules of each file that several have.
    std::vector<std::vector<std::string>> SharingModules() const {
        std::map<std::string, std::vector<std::string>> modules;
        for (const auto& [name, path] : paths_) {
            modules[path].push_back(name);
        }
        std::vector<std::vector<std::string>> sharing;
        for (auto& [path, names] : modules) {
            if (names.size() > 1) {
                sharing.push_back(std::move(names));
            }
        }
        return sharing;
    }

    bool HasModule(const std::string& name) const { return paths_.count(name) != 0; }

    /// Gives a key of a module its value; none takes it out.
    void Set(const std::string& module, const std::string& key,
             const std::optional<std::string>& text) {
        const std::string& path = paths_.at(module);
        const tree::Line* line = file(path).Find(key);
        const bool isThere = line != nullptr && line->kind == tree::LineKind::kValue;
        if (isThere ? !text || file(path).TextOf(line->value) != *text : text.has_value()) {
            changes_[path].push_back({.key = key, .value = text});
        }
    }

    /// The files with everything that was set.
    std::vector<TreeFile> Files() {
        for (const auto& [path, changes] : changes_) {
            Replace(path, tree::WithChanges(file(path), changes));
        }
        changes_.clear();
        MendPaths();
        std::vector<TreeFile> files = {{.path = entry_, .bytes = file(entry_).bytes()}};
        for (const auto& [path, ini] : files_) {
            if (path != entry_) {
                files.push_back({.path = path, .bytes = ini->bytes()});
            }
        }
        return files;
    }

private:
    /// A path that begins at the root would lead out of the new tree.
    void StayWithin(const std::string& module, const std::string& path) {
        const tree::Line* line = file(entry_).Find(module + ":path");
        if (line != nullptr && file(entry_).TextOf(line->value).starts_with('/')) {
            SetIn(entry_, module + ":path", "./" + fs::path(path).parent_path().string());
        }
    }

    void GiveFile(const std::string& name, const std::string& bytes) {
        std::string path = name + ".ini";
        while (files_.count(path) != 0 || IsOfOther(name, path)) {
            path = "_" + path;
        }
        SetIn(entry_, name + ":path", "./");
        SetIn(entry_, name + ":cfg_filename", path);
        Replace(path, bytes);
        paths_[name] = path;
    }

    /// Whether the file of another module than `name` would lie at `path`, if it was there.
    bool IsOfOther(const std::string& name, const std::string& path) const {
        const auto isThis = [&](const tree::Module& module) {
            return module.name != name && module.file != nullptr &&
                   fs::path(module.file->inTree).lexically_normal() == path;
        };
        return std::any_of(product_.modules().begin(), product_.modules().end(), isThis);
    }

    /// The first number from `from` on under which a module is listed; 0 when there is none.
    std::int32_t NumberOf(const std::string& name, std::int32_t from) {
        for (std::int32_t number = from; number <= moduleCount(); ++number) {
            const tree::Line* line = file(entry_).Find(NumberKey(number));
            if (line != nullptr && file(entry_).TextOf(line->value) == name) {
                return number;
            }
        }
        return 0;
    }

    /// Takes a number out of the list; those behind it move up.
    void Unlist(std::int32_t number) {
        Replace(entry_, tree::WithoutKey(file(entry_), NumberKey(number)));
        for (; number < moduleCount(); ++number) {
            const std::string item = "module" + std::to_string(number);
            Replace(entry_, tree::WithRenamedKey(file(entry_), NumberKey(number + 1), item));
        }
        SetIn(entry_, "module:module_num", std::to_string(--moduleCount()));
    }

    /// Whether a module's path in the entry file goes through a directory that the new tree lacks,
    /// such as "./empty/../media".
    bool IsBroken(const std::string& module, const std::set<std::string>& directories) const {
        const tree::Line* line = file(entry_).Find(module + ":path");
        if (line == nullptr || file(entry_).TextOf(line->value).find('/') == std::string::npos) {
            return false;
        }
        fs::path path;
        for (const fs::path& part : fs::path(file(entry_).TextOf(line->value))) {
            path /= part;
            const bool isName = !part.empty() && part != "." && part != "..";
            if (isName && directories.count(path.lexically_normal().string()) == 0) {
                return true;
            }
        }
        return false;
    }

    void MendPaths() {
        std::set<std::string> directories;
        for (const auto& [path, ini] : files_) {
            for (fs::path at = fs::path(path).parent_path(); !at.empty(); at = at.parent_path()) {
                directories.insert(at.string());
            }
        }
        for (const auto& [module, path] : paths_) {
            if (IsBroken(module, directories)) {
                SetIn(entry_, module + ":path", "./" + fs::path(path).parent_path().string());
            }
        }
    }

    /// The key that names a module in the entry file.
    static std::string NumberKey(std::int32_t number) {
        return "module:module" + std::to_string(number);
    }

    const tree::IniFile& file(const std::string& path) const { return *files_.at(path); }

    void Replace(const std::string& path, const std::string& bytes) {
        files_[path] = std::make_unique<tree::IniFile>(bytes);
    }

    std::int32_t& moduleCount() {
        if (moduleCount_ == 0) {
            moduleCount_ = product_.moduleCount();
        }
        return moduleCount_;
    }

    void SetIn(const std::string& path, const std::string& key, const std::string& text) {
        const std::optional<std::string> bytes = tree::WithKey(file(path), key, text);
        if (bytes) {
            Replace(path, *bytes);
        }
    }

    const tree::Product& product_;
    std::string entry_;
    std::int32_t moduleCount_ = 0;
    std::map<std::string, std::unique_ptr<tree::IniFile>> files_;  ///< by path
    std::map<std::string, std::vector<tree::KeyChange>> changes_;  ///< by path; not made yet
    std::map<std::string, std::string> paths_;                     ///< of modules
    std::set<std::string> withoutFile_;  ///< modules that are listed, and could not be read
};

/// The keys that a module is asked for, and what each is to be; none: absent.
using Wanted = std::map<std::string, std::optional<std::string>>;

std::map<std::string, Wanted> WantedKeys(const Solution& solution) {
    std::map<std::string, Wanted> wanted;
    for (std::size_t i = 0; i < solution.asked.ids.size(); ++i) {
        const compile::Answer& answer = solution.asked.answers[i];
        const auto found = solution.keys.texts.find(solution.asked.ids[i]);
        wanted[answer.module][answer.key] =
            found == solution.keys.texts.end() ? std::nullopt : std::optional(found->second);
    }
    return wanted;
}

/// Adds the keys of `more` to `all`. Returns false, adding nothing, when one is to be something
/// else.
bool Join(const Wanted& more, Wanted* all) {
    for (const auto& [key, text] : more) {
        const auto found = all->find(key);
        if (found != all->end() && found->second != text) {
            return false;
        }
    }
    all->insert(more.begin(), more.end());
    return true;
}

/// Modules that share a file, and want different values for a key, part.
void SplitSharedFiles(const std::map<std::string, Wanted>& wanted, EditedTree* tree) {
    for (const std::vector<std::string>& modules : tree->SharingModules()) {
        Wanted together;
        for (const std::string& module : modules) {
            const auto own = wanted.find(module);
            if (own != wanted.end() && !Join(own->second, &together)) {
                tree->Split(module);
            }
        }
    }
}

/// What a tree has that may be kept.
Kept KeptOf(const compile::Compilation& compilation) {
    Kept kept;
    for (const compile::ModuleFile& file : compilation.files) {
        if (file.isRead && IsOptional(file.name)) {
            kept.modules.insert(file.name);
        }
    }
    for (const compile::Answer& answer : compilation.answers) {
        if (answer.text) {
            kept.texts[IdOf(answer)] = *answer.text;
        }
        if (answer.text && !answer.place && answer.key == "common:mediamode") {
            kept.servedModes[answer.module] = *answer.text;
        }
    }
    kept.answers = compilation.answers;
    kept.image = compilation.image;
    return kept;
}

}  // namespace

Decompiled DecompileLike(const image::Image& image, const Options& options) {
    const image::Input like = image::ReadInput(*options.like);
    if (!like.isTree) {
        throw output::UserError(output::Shown(*options.like) + ": is no tree");
    }
    const tree::Product product(*options.like);
    if (product.entryFate() != tree::EntryFate::kRead) {  // it was there a moment ago
        throw output::UserError(output::Shown(*options.like) + ": cannot be read");
    }
    const Kept kept = KeptOf(*like.compilation);
    const Wish wish = {.all = options.all, .kept = &kept};
    const Solution solution = Solve(image, wish);
    EditedTree edited(product);
    for (const std::string& module : solution.keys.modules) {
        if (!edited.HasModule(module)) {
            edited.AddModule(module);
        }
    }
    for (const std::string& module : kept.modules) {
        if (solution.keys.modules.count(module) == 0) {
            edited.RemoveModule(module);
        }
    }
    const std::map<std::string, Wanted> wanted = WantedKeys(solution);
    SplitSharedFiles(wanted, &edited);
    for (const compile::Answer& answer : solution.asked.answers) {
        edited.Set(answer.module, answer.key, wanted.at(answer.module).at(answer.key));
    }
    return {
        .files = edited.Files(), .lost = Explain(image, solution.lost), .image = solution.image};
}

}  // namespace paramgen::decompile
