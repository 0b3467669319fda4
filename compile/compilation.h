/// The result of compiling a tree: the image, and the keys that the loaders have queried.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "confaccess/status.h"
#include "generator/image.h"

namespace paramgen::compile {

/// The bytes of an image.
using Image = std::array<std::byte, sizeof(ParamImage)>;

/// Bytes of the image.
struct Place {
    std::uint32_t offset;
    std::uint32_t size;

    bool operator==(const Place&) const = default;
};

/// A key that a loader has queried in an existing module, and its value.
struct Answer {
    std::string module;
    std::string key;  ///< "section:key", in the loader's spelling

    /// The text of its value; none when there is no such key, or it is that of a section.
    std::optional<std::string> text;

    /// Where the value goes; a text takes as much of it as it needs. None when the loader only asks
    /// whether the key is there, and for the media mode that a lens module serves. Later values may
    /// lie over it, where a count leads beyond its array.
    std::optional<Place> place;

    /// An earlier number had left ERANGE in `errno`: an integer at a limit of 32 bits then counts
    /// as one beyond it.
    bool afterRangeError;
};

/// A module that the entry file lists.
struct ModuleFile {
    std::string name;
    std::string path;  ///< as it was opened; relative ones start at the tree
    bool isRead;       ///< false: it could not be read, or is no INI file, and was left out
};

/// Where a run stopped.
struct Stop {
    enum class At : std::uint8_t {
        kEntry,   ///< in the entry file
        kModule,  ///< at a module that is not there
        kKey,     ///< at a key: its value or, for a count, what it leads to
    };
    At at;
    std::string module;  ///< kModule, kKey
    std::string key;     ///< kKey: "section:key"
};

/// The result of a run.
struct Compilation {
    Status status;  ///< 0, or the failure's code; its low byte is the program's exit status
    std::optional<Stop> stop;  ///< set when it failed
    Image image;               ///< after a failure: as far as it came

    /// The keys in the order in which they were asked for; those that go to several places come
    /// several times.
    std::vector<Answer> answers;

    std::vector<std::string> modules;  ///< those asked for, each once, whether there or not
    std::vector<ModuleFile> files;     ///< up to the one that made the entry file invalid, if any
    std::string log;                   ///< what the program would write to standard output
};

}  // namespace paramgen::compile
