/// The record types of the image, as a description of its layout in another language needs them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "param/common/field.h"

namespace paramgen::manual {

struct Record;

/// A member of a record.
struct Member {
    std::string name;
    std::uint32_t offset;  ///< from the record's start, in bytes
    std::uint32_t size;    ///< of one element, in bytes
    std::uint32_t count;   ///< of elements; 1 when it is no array
    bool isArray;
    const Field* field;    ///< kind, description
    const Record* record;  ///< of a nested record; null for others
};

/// A type of records. Its members cover it exactly once.
struct Record {
    std::string name;  ///< "GsensorCfg"
    std::uint32_t size;
    std::vector<Member> members;  ///< by offset
};

/// All types, each behind those that it is made of; the image is the last.
std::span<const Record* const> Records();

/// The image.
const Record& ImageRecord();

}  // namespace paramgen::manual
