/// What the rows of field tables tell the companion, beyond what the program needs of them.
#pragma once

#include <cstdint>

namespace paramgen {

class NameTable;

/// What becomes of array elements that are counted but have no place in the array.
enum class CountBeyond : std::uint8_t {
    kNotCounted,  ///< the elements are not counted by a member
    kClamped,     ///< the count is stored as it is, further elements are not read
    kRefused,     ///< such a count is an error
    kSpilling,    ///< further elements are stored in the bytes behind the array
};

/// A search for the one of several modules that names a media mode.
struct ModuleSearch {
    const char* modules;  ///< template of their names; it takes the camera and a number
    const char* key;      ///< where each of them names its media mode, "section:item"
    std::uint32_t camera;
    std::uint32_t count;  ///< they are numbered from 0
};

/// Notes on one row.
struct FieldNotes {
    const char* member;   ///< name of the member in its record
    const char* about;    ///< what the value is, in one line
    const char* unit;     ///< "ms", "px"; null when there is none
    const char* numbers;  ///< "0 linear, 1 tile": what its numbers mean; null when not known

    const NameTable* names;  ///< of a number that stands for a name; else null

    CountBeyond beyond;         ///< of an array: whether its elements are counted, and how
    std::uint16_t countOffset;  ///< where the count is, in bytes from the record's start
    /// Of an array of records: element N is read while all elements before it have this key. The
    /// member at `countOffset` is how many have it, one behind another from the first.
    const char* whileKey;
    bool optionalModule;         ///< it is left as it is when the product lacks the row's module
    const ModuleSearch* search;  ///< how the row's module is found
    const ModuleSearch* wanted;  ///< this value is what a search for the records around it wants
    std::uint16_t times;  ///< numbers in elements below are stored multiplied by it; 0: as they are
    std::uint16_t countMax;  ///< a larger count of elements below is an error; 0: see their rows
    bool emptyByQuotes;      ///< a text of two double quotes is stored as an empty one
};

}  // namespace paramgen
