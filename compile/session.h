/// Compiles a tree in memory: the program's own loaders run, in the tree's directory, and are
/// watched. Nothing is written there.
///
/// One thread at a time may do so: the working directory, standard output, `errno` and the
/// program's state are the process's. All but the last are as before when a run is over.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "compile/compilation.h"
#include "log/console_log.h"

namespace paramgen::compile {

/// Changes of the product that a run simulates.
struct Pretence {
    /// Keys that are absent: module, and "section:key" as an `Answer` or a `Stop` spells it.
    std::set<std::pair<std::string, std::string>> absentKeys = {};

    /// Keys that have another value than in their file: module, and "section:key" as above.
    std::map<std::pair<std::string, std::string>, std::string> texts = {};

    /// Modules that are there and empty, when they are not there.
    std::set<std::string> emptyModules = {};
};

/// The results to keep of a run, in addition to image, status and the place where it stopped.
struct Keep {
    bool answers = true;
    bool log = false;  ///< it takes most of the time
};

/// Files that have been read, by the paths at which the program opens them; none for those that
/// could not be read.
using FileTexts = std::map<std::string, std::optional<std::string_view>, std::less<>>;

/// A tree whose files have been read. They are read in the first run, each once; later runs take a
/// third of a millisecond.
class Session {
public:
    /// The tree in the directory `tree`, which need not have an entry file: a run then fails.
    /// Files among `texts` are not read again; it is only used in the first run.
    explicit Session(std::filesystem::path tree, FileTexts texts = {});
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Does what the program does when it is started in the tree's directory, up to writing its
    /// files. Throws `std::system_error` when that directory cannot be entered, `std::bad_alloc`
    /// when memory runs out.
    Compilation Run(const Pretence& pretence = {}, Keep keep = {});

private:
    struct State;
    std::unique_ptr<State> state_;
};

/// Compiles a tree once.
Compilation Compile(const std::filesystem::path& tree, Keep keep = {});

}  // namespace paramgen::compile
