/// Notes on the rows of field tables, for the companion. The program does not need them.
#pragma once

#include <cstdint>

namespace paramgen {

class NameTable;

/// What happens when an array's count is larger than the array.
enum class CountBeyond : std::uint8_t {
    kNotCounted,  ///< the array has no count
    kClamped,     ///< the count is stored as it is, elements beyond the array are not read
    kRefused,     ///< it is an error
    kSpilling,    ///< elements beyond the array are stored in the bytes behind it
};

/// A search through several modules for the one that names a given media mode.
struct ModuleSearch {
    const char* modules;  ///< template of their names; it takes the camera and a number
    const char* key;      ///< the key of each module's media mode, "section:item"
    std::uint32_t camera;
    std::uint32_t count;  ///< number of modules; they are numbered from 0
};

/// Notes on one row.
struct FieldNotes {
    const char* member;   ///< name of the member in its record
    const char* about;    ///< what the value is, in one line
    const char* unit;     ///< "ms", "px"; null when there is none
    const char* numbers;  ///< "0 linear, 1 tile": what its numbers mean; null when not known

    const NameTable* names;  ///< names of the value's numbers; null when they have none

    CountBeyond beyond;         ///< of an array: whether it has a count, and what limits the count
    std::uint16_t countOffset;  ///< of the count, in bytes from the record's start
    /// Of an array of records: element N is read only when all elements before it have this key.
    /// The member at `countOffset` holds the number of elements before the first one without it.
    const char* whileKey;
    bool optionalModule;         ///< the product may lack the row's module; the bytes then stay
    const ModuleSearch* search;  ///< finds the row's module; null when it has a fixed name
    const ModuleSearch* wanted;  ///< this value is the media mode that the search looks for
    std::uint16_t times;         ///< factor of numbers in arrays of the nested record; 0: none
    std::uint16_t countMax;  ///< a larger count in the nested record is an error; 0: no such limit
    bool emptyByQuotes;      ///< a text of two double quotes is stored as an empty one
};

}  // namespace paramgen
