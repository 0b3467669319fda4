#include "decompile/tree_directory.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "compile/session.h"
#include "output/result.h"
#include "output/shown_text.h"
#include "output/whole_files.h"

namespace paramgen::decompile {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const fs::path& path, const std::string& what) {
    throw output::UserError(output::Shown(path.string()) + ": " + what);
}

/// Checks the place that a tree is meant for.
void Check(const fs::path& directory, Old old) {
    std::error_code error;
    if (!fs::exists(fs::symlink_status(directory, error))) {
        return;
    }
    if (!fs::is_directory(directory, error)) {
        Fail(directory, "is there and no directory");
    }
    if (old == Old::kReplaced) {
        return;
    }
    const bool isEmpty = fs::is_empty(directory, error);
    if (error) {
        Fail(directory, "cannot be read: " + error.message());
    }
    if (!isEmpty) {
        Fail(directory, old == Old::kNone
                            ? "is not empty"
                            : "is not empty (--force replaces the files of a tree there)");
    }
}

/// The directory by an absolute path, which a change of the working directory does not concern.
/// Links are resolved when it is there, so that what they lead to is replaced.
fs::path Absolute(const fs::path& directory) {
    if (directory.empty()) {
        throw output::UserError("the name of a directory cannot be empty");
    }
    std::error_code error;
    const fs::path resolved = fs::canonical(directory, error);
    return error ? fs::absolute(directory) : resolved;
}

/// A new directory beside `directory`, which the user has given as `given`, or within it where
/// nothing may be made beside it.
fs::path NewDirectoryFor(const fs::path& directory, const fs::path& given) {
    const fs::path plain = directory.has_filename() ? directory : directory.parent_path();
    int error = 0;
    for (std::string name : {plain.string() + ".XXXXXX", (plain / "tree.XXXXXX").string()}) {
        if (mkdtemp(name.data()) != nullptr) {
            return name;
        }
        error = error == 0 ? errno : error;
    }
    Fail(given, std::string("cannot be written: ") + std::strerror(error));
}

/// The rights that new files do not get.
mode_t CurrentMask() {
    const mode_t mask = umask(0);
    umask(mask);
    return mask;
}

/// Makes the directories that files need. Returns those that were not there, outer ones first. One
/// that cannot be made is seen when a file is written there.
std::vector<fs::path> MakeDirectories(const fs::path& directory,
                                      const std::vector<TreeFile>& files) {
    std::vector<fs::path> made;
    made.reserve(files.size());
    for (const TreeFile& file : files) {
        fs::path path = directory;
        for (const fs::path& name : fs::path(file.path).parent_path()) {
            path /= name;
            std::error_code error;
            if (fs::create_directory(path, error)) {
                made.push_back(path);
            }
        }
    }
    return made;
}

/// Writes files in a directory: all, or none.
void WriteFiles(const fs::path& directory, const std::vector<TreeFile>& files) {
    const std::vector<fs::path> made = MakeDirectories(directory, files);
    std::vector<output::NewContent> content;
    content.reserve(files.size());
    for (const TreeFile& file : files) {
        content.push_back({.path = (directory / file.path).string(), .bytes = file.bytes});
    }
    try {
        output::WriteWholeFiles(content);
    } catch (...) {
        for (auto path = made.rbegin(); path != made.rend(); ++path) {
            std::error_code error;
            fs::remove(*path, error);
        }
        throw;
    }
}

}  // namespace

WrittenTree::WrittenTree(const std::vector<TreeFile>& files, const std::string& directory, Old old)
    : files_(files), given_(directory), directory_(Absolute(directory)) {
    Check(given_, old);
    temporary_ = NewDirectoryFor(directory_, given_);
    try {
        WriteFiles(temporary_, files);
        const compile::Compilation result =
            compile::Compile(temporary_, {.answers = false, .log = false});
        if (result.status == kOk) {
            image_ = result.image;
        }
    } catch (...) {
        std::error_code error;
        fs::remove_all(temporary_, error);
        throw;
    }
}

WrittenTree::~WrittenTree() {
    std::error_code error;
    if (!temporary_.empty()) {
        fs::remove_all(temporary_, error);
    }
}

void WrittenTree::Appear() {
    std::error_code error;
    // A directory that is there stays the same one: it may be somebody's working directory.
    if (fs::exists(directory_, error)) {
        WriteFiles(directory_, files_);
        return;
    }
    if (!error) {
        fs::permissions(temporary_, fs::perms::all & ~fs::perms(CurrentMask()), error);
    }
    if (!error) {
        fs::rename(temporary_, directory_, error);
    }
    if (error) {
        Fail(given_, "cannot be written: " + error.message());
    }
    temporary_.clear();
}

}  // namespace paramgen::decompile
