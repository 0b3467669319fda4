#include "paramtool/command.h"

int main(int argc, char** argv) {
    return paramgen::paramtool::Run(argc, argv);
}
