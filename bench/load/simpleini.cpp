/// SimpleIni, case-insensitive like configuration access.
#define SI_IMPLEMENTATION
#define SI_NO_CONVERSION  // no validation either
#include <SimpleIni.h>

#include "bench/load/reader.h"

namespace {

CSimpleIniA g_ini;

}  // namespace

int BenchLoad(const char* path) {
    return g_ini.LoadFile(path) == SI_OK ? 1 : 0;
}

long BenchSum(const BenchKey* keys, std::size_t count) {
    long sum = 0;
    for (std::size_t number = 0; number < count; ++number) {
        sum += g_ini.GetLongValue(keys[number].section, keys[number].name, 0);
    }
    return sum;
}
