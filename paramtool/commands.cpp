#include "paramtool/command.h"

namespace paramgen::paramtool {

const std::vector<Command>& Commands() {
    static const std::vector<Command> kCommands = {
        {"check", AddCheck},
        {"explain", AddExplain},
        {"dump", AddDump},
        {"diff", AddDiff},
        {"identify", AddIdentify},
        {"decompile", AddDecompile},
        {"get", AddGet},
        {"set", AddSet},
        {"init", AddInit},
        {"deps", AddDeps},
        {"reference", AddReference},
        {"layout", AddLayout},
        {"report", AddReport},
        {"completion", AddCompletion},
        {"complete", AddComplete, true},
        {"manual", AddManual, true},
    };
    return kCommands;
}

}  // namespace paramgen::paramtool
