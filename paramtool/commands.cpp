#include "paramtool/command.h"

namespace paramgen::paramtool {

const std::vector<AddCommand>& Commands() {
    static const std::vector<AddCommand> kCommands = {
        AddCheck,  AddExplain,    AddDump,     AddDiff,   AddIdentify,  AddDecompile,
        AddGet,    AddSet,        AddInit,     AddDeps,   AddReference, AddLayout,
        AddReport, AddCompletion, AddComplete, AddManual,
    };
    return kCommands;
}

}  // namespace paramgen::paramtool
