// Writes a source file with the layout's id, which is then a constant of the program.
//
// make_layout_id FILE

#include <fstream>
#include <iostream>

#include "manual/layout_data.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: make_layout_id FILE\n";
        return 2;
    }
    std::ofstream file(argv[1]);
    file << "#include \"paramtool/layout_id.h\"\n\n"
         << "namespace paramgen::paramtool {\n\n"
         << "const char kLayoutId[] = \"" << paramgen::manual::LayoutId() << "\";\n\n"
         << "}  // namespace paramgen::paramtool\n";
    file.close();
    return file ? 0 : 1;
}
