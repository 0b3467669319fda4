#include "compile/errors.h"

namespace paramgen::compile {

std::vector<Stop> FindStops(Session* session, Pretence pretence) {
    std::vector<Stop> stops;
    while (true) {
        const Compilation result = session->Run(pretence, {.answers = false, .log = false});
        if (!result.stop) {
            return stops;
        }
        const Stop& stop = *result.stop;
        stops.push_back(stop);
        const bool isNew = stop.at == Stop::At::kKey
                               ? pretence.absentKeys.insert({stop.module, stop.key}).second
                               : pretence.emptyModules.insert(stop.module).second;
        if (stop.at == Stop::At::kEntry || !isNew) {
            return stops;
        }
    }
}

}  // namespace paramgen::compile
