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
    if (old == Old::kNone && !fs::is_empty(directory, error)) {
        Fail(directory, "is not empty (--force replaces the files of a tree there)");
    }
}

/// A new directory beside `directory`.
fs::path NewDirectoryBeside(const fs::path& directory) {
    std::string name = (directory.has_filename() ? directory : directory.parent_path()).string();
    name += ".XXXXXX";
    if (mkdtemp(name.data()) == nullptr) {
        Fail(directory, std::string("cannot be written: ") + std::strerror(errno));
    }
    return name;
}

/// The rights that new files do not get.
mode_t CurrentMask() {
    const mode_t mask = umask(0);
    umask(mask);
    return mask;
}

std::vector<output::NewContent> ContentIn(const fs::path& directory,
                                          const std::vector<TreeFile>& files) {
    std::vector<output::NewContent> content;
    for (const TreeFile& file : files) {
        const fs::path path = directory / file.path;
        std::error_code error;
        fs::create_directories(path.parent_path(), error);
        content.push_back({.path = path.string(), .bytes = file.bytes});
    }
    return content;
}

}  // namespace

WrittenTree::WrittenTree(const std::vector<TreeFile>& files, const std::string& directory, Old old)
    : files_(files), directory_(directory) {
    Check(directory_, old);
    temporary_ = NewDirectoryBeside(directory_);
    try {
        output::WriteWholeFiles(ContentIn(temporary_, files));
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
    const bool isThere = fs::exists(directory_, error);
    if (isThere && !fs::is_empty(directory_, error)) {
        output::WriteWholeFiles(ContentIn(directory_, files_));
        return;
    }
    fs::permissions(temporary_, fs::perms::all & ~fs::perms(CurrentMask()), error);
    if (isThere) {
        fs::remove(directory_, error);
    }
    fs::rename(temporary_, directory_, error);
    if (error) {
        Fail(directory_, "cannot be written: " + error.message());
    }
    temporary_.clear();
}

}  // namespace paramgen::decompile
