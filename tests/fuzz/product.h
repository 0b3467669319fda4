/// Products as inputs of fuzz targets. A line "@NAME" begins the file of module NAME, "@entry" the
/// entry file, and "@-NAME" removes a module. Without "@entry" the entry file lists all modules.
/// Modules that the program needs are empty unless given.
#pragma once

#include <cstdint>

#include "fuzz/fuzz.h"

namespace paramgen::testing {

/// Writes the product that `input` describes to the fuzz directory, removes the files of the one
/// before, and silences standard output. Returns false, having written nothing, when the entry file
/// names files outside of the product, whose contents may be endless.
bool PrepareProduct(Input input);

/// While this object exists, the fuzz directory is the working directory.
class InFuzzDirectory {
public:
    InFuzzDirectory();
    ~InFuzzDirectory();
    InFuzzDirectory(const InFuzzDirectory&) = delete;
    InFuzzDirectory& operator=(const InFuzzDirectory&) = delete;

private:
    int before_;
};

/// Runs the loaders on the fuzz directory, and releases a configuration that is still registered
/// afterwards. Returns their status.
std::int32_t LoadProduct();

}  // namespace paramgen::testing
