#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>

#include "compile/errors.h"
#include "image/diff.h"
#include "output/result.h"
#include "output/shown_text.h"
#include "output/whole_files.h"
#include "paramtool/command.h"
#include "paramtool/key_argument.h"
#include "tree/edit.h"
#include "tree/product.h"

namespace paramgen::paramtool {
namespace {

struct SetOptions {
    std::string tree;
    std::vector<std::string> assignments;
    bool dryRun = false;
};

/// A change that is refused: exit status 1.
class Refused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One KEY=VALUE.
struct Assignment {
    layout::KeyName name;
    std::string value;
};

Assignment ParseAssignment(const std::string& argument) {
    const std::size_t equals = argument.find('=');
    if (equals == std::string::npos) {
        throw output::UserError(output::Shown(argument) + ": an assignment is KEY=VALUE");
    }
    return {.name = OneKey(argument.substr(0, equals)), .value = argument.substr(equals + 1)};
}

/// The files of a tree while they are changed.
class Change {
public:
    explicit Change(const std::string& tree) : product_(tree), session_(tree) {
        if (product_.entryFate() == tree::EntryFate::kMissing) {
            throw output::UserError(output::Shown(tree) + ": has no " + tree::kEntryName);
        }
        stops_ = compile::FindStops(&session_, {});
        before_ = session_.Run();
    }

    void Apply(const Assignment& assignment) {
        const layout::KeyName& name = assignment.name;
        const tree::Module* module = product_.FindModule(name.module);
        if (module == nullptr) {
            throw Refused("the tree has no module " + output::Shown(name.module));
        }
        const std::string key = name.section + ":" + name.key;
        RefuseOtherValue(assignment, key);
        const tree::IniFile& file = FileOf(*module);
        const std::optional<std::string> bytes = tree::WithKey(file, key, assignment.value);
        if (!bytes) {
            throw Refused(layout::Text(name) + ": no line of an INI file can say '" +
                          output::Shown(assignment.value) + "'");
        }
        files_[RealPath(*module->file)] = {module->file, std::make_unique<tree::IniFile>(*bytes)};
        for (const tree::Module& other : product_.modules()) {
            if (other.file != nullptr && other.file->ini != nullptr &&
                RealPath(*other.file) == RealPath(*module->file)) {
                pretence_.texts[{other.name, key}] = assignment.value;
            }
        }
        keys_.push_back(name);
    }

    /// Throws `Refused` when there is an error that was not there before.
    void Check() {
        for (const compile::Stop& stop : compile::FindStops(&session_, pretence_)) {
            const bool isOld = std::any_of(stops_.begin(), stops_.end(), [&](const auto& old) {
                return old.at == stop.at && old.module == stop.module && old.key == stop.key &&
                       !pretence_.texts.contains({stop.module, stop.key});
            });
            if (!isOld) {
                throw Refused(stop.at == compile::Stop::At::kKey
                                  ? stop.module + "/" + stop.key + ": paramgen refuses such a value"
                                  : "paramgen would then miss the module " + stop.module);
            }
        }
    }

    /// What becomes of the image. Keys that are then not read are told.
    std::string Difference(const std::string& tree) {
        const compile::Compilation after = session_.Run(pretence_);
        const image::Input old = {.argument = tree,
                                  .isTree = true,
                                  .image = before_.image,
                                  .compilation = before_,
                                  .remarks = {}};
        image::Input fresh = old;
        fresh.image = after.image;
        fresh.compilation = after;
        for (const layout::KeyName& name : keys_) {
            const bool isRead = std::any_of(after.answers.begin(), after.answers.end(),
                                            [&](const compile::Answer& answer) {
                                                return answer.module == name.module &&
                                                       answer.key == name.section + ":" + name.key;
                                            });
            if (!isRead && after.status == kOk) {
                Tell("paramtool: " + layout::Text(name) +
                     " is not read with this tree's counts and modules");
            }
        }
        return image::TextDiff(image::Differences(old, fresh), {});
    }

    void Write() const {
        std::vector<output::NewContent> contents;
        for (const auto& [path, changed] : files_) {
            if (changed.ini->bytes() != changed.file->ini->bytes()) {
                contents.push_back({.path = changed.file->shown, .bytes = changed.ini->bytes()});
            }
        }
        output::WriteWholeFiles(contents);
    }

private:
    struct Changed {
        const tree::FoundFile* file = nullptr;
        std::unique_ptr<tree::IniFile> ini;
    };

    /// Of two values for one line, that of a file shared by modules too, only one can be set.
    void RefuseOtherValue(const Assignment& assignment, const std::string& key) const {
        const auto earlier = pretence_.texts.find({assignment.name.module, key});
        if (earlier != pretence_.texts.end() && earlier->second != assignment.value) {
            throw Refused(layout::Text(assignment.name) + " cannot be '" +
                          output::Shown(assignment.value) + "': its line is set to something else");
        }
    }

    /// Where a file lies, links resolved: several modules may have it under different names. It is
    /// found out once, so that a failure cannot make two files of one.
    const std::string& RealPath(const tree::FoundFile& file) {
        const auto [known, isNew] = realPaths_.try_emplace(&file, file.shown);
        if (isNew) {
            std::error_code error;
            const std::filesystem::path real = std::filesystem::canonical(file.shown, error);
            if (error && error != std::errc::no_such_file_or_directory) {  // (a pipe has no path)
                throw output::UserError(output::Shown(file.shown) + ": " + error.message());
            }
            known->second = error ? file.shown : real.string();
        }
        return known->second;
    }

    const tree::IniFile& FileOf(const tree::Module& module) {
        const auto changed = files_.find(RealPath(*module.file));
        return changed == files_.end() ? *module.file->ini : *changed->second.ini;
    }

    tree::Product product_;
    compile::Session session_;
    std::vector<compile::Stop> stops_;  ///< errors that the tree has already
    compile::Compilation before_ = {};
    compile::Pretence pretence_;
    std::map<std::string, Changed> files_;  ///< by their real paths
    std::map<const tree::FoundFile*, std::string> realPaths_;
    std::vector<layout::KeyName> keys_;
};

/// Shows what a change has made of the image. When that fails, the change is done all the same.
void ShowDone(const std::string& difference) {
    try {
        output::WriteResult("", difference);
    } catch (const output::UserError& error) {
        throw output::UserError(std::string(error.what()) + "; the tree is changed");
    }
}

int RunSet(const SetOptions& options) {
    try {
        Change change(options.tree);
        for (const std::string& argument : options.assignments) {
            change.Apply(ParseAssignment(argument));
        }
        change.Check();
        // Writing comes last of what may fail.
        const std::string difference = change.Difference(options.tree);
        if (options.dryRun) {
            output::WriteResult("", difference);
        } else {
            change.Write();
            ShowDone(difference);
        }
        return kAllWell;
    } catch (const Refused& refused) {
        Tell(std::string("paramtool: ") + refused.what() + "; nothing is changed");
        return kFound;
    } catch (const UnknownKey& unknown) {
        Tell(std::string("paramtool: ") + unknown.what() + "; nothing is changed");
        return kFound;
    }
}

}  // namespace

void AddSet(CLI::App& app, int* status) {
    const auto options = std::make_shared<SetOptions>();
    CLI::App* command = app.add_subcommand("set", "change values in a tree's files");
    command->footer("Example: paramtool set my-product devmng/gsensor:sensitivity=2");
    command->add_flag("--dry-run", options->dryRun, "show only what would become of the image");
    command->add_option("TREE", options->tree, "the tree to change")->required();
    command->add_option("KEY=VALUE", options->assignments, "the changes: all are done, or none")
        ->required();
    command->callback([options, status] { *status = RunSet(*options); });
}

}  // namespace paramgen::paramtool
