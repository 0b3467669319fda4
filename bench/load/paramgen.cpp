/// Configuration access. The file is the entry file that names the module "keys".
#include "bench/load/reader.h"
#include "confaccess/confaccess.h"

using namespace paramgen;

int BenchLoad(const char* path) {
    return ZV_CONFACCESS_Init("bench", path) == kOk ? 1 : 0;
}

long BenchSum(const BenchKey* keys, std::size_t count) {
    long sum = 0;
    for (std::size_t number = 0; number < count; ++number) {
        std::int32_t value = 0;
        if (ZV_CONFACCESS_GetInt("bench", "keys", keys[number].joined, 0, &value) == kOk) {
            sum += value;
        }
    }
    return sum;
}
