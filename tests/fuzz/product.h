/// Products as fuzz targets take them from an input: a line "@NAME" begins the file of module NAME,
/// "@entry" that of the entry file, which otherwise lists the modules there are, and "@-NAME" takes
/// a module away. A product that says nothing of a module that it needs has an empty one.
#pragma once

#include <map>
#include <string>

#include "fuzz/fuzz.h"

namespace paramgen::testing {

/// The text of each module's file, and under "entry" that of the entry file.
using Product = std::map<std::string, std::string>;

Product ReadProduct(Input input);

/// Whether the entry file leads to where reading never ends, or is not the input's.
bool LeadsAstray(const Product& product);

/// Makes the fuzz directory hold this product and no other.
void WriteProduct(const Product& product);

/// While this lives, the fuzz directory is the working directory.
class InFuzzDirectory {
public:
    InFuzzDirectory();
    ~InFuzzDirectory();
    InFuzzDirectory(const InFuzzDirectory&) = delete;
    InFuzzDirectory& operator=(const InFuzzDirectory&) = delete;

private:
    int before_;
};

/// Runs the loaders there, and releases what they leave registered. Returns their status.
std::int32_t LoadProduct();

}  // namespace paramgen::testing
