/// A product's tree in memory: the entry file and the modules that it lists, each file read once.
///
/// Files are found in the same way as by the program in the product's directory. The result tells
/// for each module whether it was read or why not.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tree/ini_file.h"

namespace paramgen::tree {

/// The name of the entry file.
inline constexpr char kEntryName[] = "config_cfgaccess_entry.ini";

/// Whether a module was read.
enum class ModuleFate : std::uint8_t {
    kRead,         ///< it is there
    kUnreadable,   ///< left out: its file cannot be opened or read
    kRefused,      ///< left out: its file is no INI file
    kNameTooLong,  ///< left out: its name, with a key of the entry file, does not fit
    kPathTooLong,  ///< left out: the path of its file does not fit
    kNoName,       ///< ends the run: counted, but not named
    kNoFileName,   ///< ends the run: no file name, or an empty one
    kRepeated,     ///< ends the run: a module that is there has this name already
};

/// A file as it was found.
struct FoundFile {
    std::string path;    ///< as it was opened, from the product's directory unless absolute
    std::string shown;   ///< the same for people: joined with the directory as it was given
    std::string inTree;  ///< the same from the product's directory, where it lies in it
    bool isReadable = false;
    bool isDirectory = false;
    std::unique_ptr<IniFile> ini;  ///< null when it is not readable
};

/// A module that the entry file lists.
struct Module {
    std::int32_t number = 0;  ///< from 1
    std::string name;         ///< empty when it has none
    ModuleFate fate = ModuleFate::kRead;
    const FoundFile* file = nullptr;  ///< null when no file was searched for
};

/// Whether the entry file was read.
enum class EntryFate : std::uint8_t {
    kRead,
    kMissing,      ///< there is none, or it cannot be read
    kRefused,      ///< it is no INI file
    kPathTooLong,  ///< where it lies has more than 255 characters
    kNoCount,      ///< it counts no modules
};

/// The tree of one product.
class Product {
public:
    /// Reads the tree in `directory`.
    explicit Product(std::string_view directory);

    const std::string& directory() const { return directory_; }
    EntryFate entryFate() const { return entryFate_; }

    /// The entry file. It has no `ini` when it is missing.
    const FoundFile& entry() const { return *entry_; }

    /// Where the entry file lies, links resolved; empty when it is missing.
    const std::string& entryFile() const { return entryFile_; }

    /// In the order in which they are listed, up to the first that ends the run.
    const std::vector<Module>& modules() const { return modules_; }

    /// The files of modules, each once, however modules write its path.
    const std::vector<std::unique_ptr<FoundFile>>& files() const { return files_; }

    /// These files by all paths under which modules open them.
    const std::map<std::string, const FoundFile*>& opened() const { return opened_; }

    /// The number of modules that the entry file counts.
    std::int32_t moduleCount() const { return moduleCount_; }

    /// The module called `name` that is there; null when there is none.
    const Module* FindModule(std::string_view name) const;

    /// How a path that starts at the product's directory is shown: joined with that as it was
    /// given.
    std::string Shown(std::string_view path) const;

private:
    void ReadEntry();
    void ListModules();
    Module ReadModule(std::int32_t number);
    ModuleFate FindPath(const std::string& name, std::string* path) const;
    const FoundFile* Open(const std::string& path);
    const FoundFile* Read(const std::string& path);
    std::string NormalPath(const std::string& path) const;

    std::string directory_;
    std::string realDirectory_;  ///< the same, links resolved; empty when there is none
    std::string entryFile_;
    std::string home_;  ///< the directory of that
    EntryFate entryFate_ = EntryFate::kRead;
    std::unique_ptr<FoundFile> entry_;
    std::int32_t moduleCount_ = 0;
    std::vector<Module> modules_;
    std::vector<std::unique_ptr<FoundFile>> files_;
    std::map<std::string, const FoundFile*> opened_;
    std::map<std::string, const FoundFile*> known_;  ///< by their normal paths
};

/// Whether the run ends at a module of this fate.
bool EndsRun(ModuleFate fate);

/// Reads the file at `path` as the program does. Returns false when it cannot be read.
bool ReadFile(const std::string& path, std::string* bytes);

}  // namespace paramgen::tree
