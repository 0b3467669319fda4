/// The page of an image or a tree: what it shows, apart from how.
///
/// Texts may hold anything that an input file held. Whatever they hold is shown as text, and what
/// cannot be seen is spelled as `output::Shown` spells it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace paramgen::report {

/// Where a value comes from.
enum class State : std::uint8_t {
    kSet,       ///< the tree has its key
    kDefault,   ///< its key is absent
    kUnread,    ///< its key is not read with this tree's counts and modules
    kStored,    ///< read from an image: whether the key was there cannot be known
    kConstant,  ///< no key: the same in every image, or worked out
    kReserved,  ///< no key: bytes that nobody writes
};

/// Something that a value names, or that names it.
struct Reference {
    std::string text;      ///< "encodes the port vpss.0.vport.1"
    std::uint32_t offset;  ///< of the other value, in the image
};

/// One value of the image.
struct Value {
    std::uint32_t offset = 0;
    std::uint32_t size = 0;
    std::string part;    ///< the part of the image that it lies in, "work modes"
    std::string member;  ///< "devMng.gsensor.sensitivity"
    std::string module;  ///< empty without a key, as are the next two
    std::string section;
    std::string key;
    std::string type;  ///< "int32"
    std::string raw;   ///< its bytes, hexadecimal
    std::string value;
    std::string name;     ///< of a number that stands for one
    std::string initial;  ///< the default; empty when there is none
    State state = State::kStored;
    std::string about;
    std::string unit;
    std::string numbers;
    std::string condition;
    std::string place;  ///< "devmng.ini:12:1", where it is set
    std::string given;  ///< the text there
    std::vector<std::string> flags;
    bool changed = false;
    std::string old;  ///< the value that it is compared with, when it changed
    std::string oldName;
    std::string oldPlace;
    std::vector<Reference> refersTo;
    std::vector<Reference> referredBy;
};

/// A finding, as `check` shows it.
struct Finding {
    std::string severity;  ///< "error" or "warning"
    std::string id;
    std::string place;  ///< "media_common.ini:12:1"
    std::string message;
    std::string excerpt;  ///< the source line and the carets below it; may be empty
    std::vector<std::string> notes;
    std::vector<std::uint32_t> offsets;  ///< of the values that it is about
};

/// Bytes of one record beside bytes of others of its kind.
struct Column {
    std::string title;
    std::string member;  ///< what the members begin with, "camera[0].mediaModes[1]."
};
struct Comparison {
    std::string title;
    std::vector<Column> columns;
};

struct Page {
    std::string tool;     ///< the version of paramtool
    std::string input;    ///< the file or directory, as it was given
    std::string against;  ///< what it is compared with; empty: with nothing
    std::string model;
    std::string version;
    std::string sha256;    ///< of the image
    bool checked = false;  ///< the input is a tree, and `findings` are what is wrong with it
    std::string failure;   ///< why there is no image; empty: there is one
    std::vector<Finding> findings;
    std::vector<Value> values;  ///< by offset; they cover the image exactly once
    std::vector<Comparison> comparisons;
};

/// The page as one HTML file that needs nothing else. The same page gives the same bytes.
std::string Render(const Page& page);

}  // namespace paramgen::report
