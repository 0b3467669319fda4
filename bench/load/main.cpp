/// Loads a file of keys with the reader that it is linked with, queries every key, and prints the
/// time of loading and of querying in nanoseconds, and the sum of the values.
///
/// reader_... <file> <keys> <keys per section> <step>
///
/// It queries key 0, key `step`, key 2 * `step` and so on, modulo the number of keys: in the file's
/// order when `step` is 1, and all over the file when it is large and coprime.
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "bench/load/reader.h"

namespace {

// Keys are formatted in batches, outside the timed part: all at once they would count as memory.
constexpr unsigned long kBatch = 500;

BenchKey g_keys[kBatch];

long long Now() {
    std::timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * 1000000000LL + now.tv_nsec;
}

void WriteKey(BenchKey* key, unsigned long section, unsigned long name) {
    std::snprintf(key->section, sizeof key->section, "sect%lu", section);
    std::snprintf(key->name, sizeof key->name, "key%lu", name);
    std::snprintf(key->joined, sizeof key->joined, "sect%lu:key%lu", section, name);
    std::snprintf(key->dotted, sizeof key->dotted, "sect%lu.key%lu", section, name);
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 5) {
        return 2;
    }
    const unsigned long keys = std::strtoul(arguments[2], nullptr, 10);
    const unsigned long perSection = std::strtoul(arguments[3], nullptr, 10);
    const unsigned long step = std::strtoul(arguments[4], nullptr, 10);

    const long long start = Now();
    if (!BenchLoad(arguments[1])) {
        return 1;
    }
    const long long loaded = Now() - start;

    long long asked = 0;
    long sum = 0;
    for (unsigned long first = 0; first < keys; first += kBatch) {
        const unsigned long batch = keys - first < kBatch ? keys - first : kBatch;
        for (unsigned long number = 0; number < batch; ++number) {
            const unsigned long key = (first + number) * step % keys;
            WriteKey(&g_keys[number], key / perSection, key % perSection);
        }
        const long long startOfBatch = Now();
        sum += BenchSum(g_keys, batch);
        asked += Now() - startOfBatch;
    }
    std::printf("%lld %lld %ld\n", loaded, asked, sum);
    return 0;
}
