/// GLib's GKeyFile.
#include <glib.h>

#include "bench/load/reader.h"

namespace {

GKeyFile* g_file;

}  // namespace

int BenchLoad(const char* path) {
    g_file = g_key_file_new();
    return g_key_file_load_from_file(g_file, path, G_KEY_FILE_NONE, nullptr);
}

long BenchSum(const BenchKey* keys, std::size_t count) {
    long sum = 0;
    for (std::size_t number = 0; number < count; ++number) {
        sum += g_key_file_get_integer(g_file, keys[number].section, keys[number].name, nullptr);
    }
    return sum;
}
