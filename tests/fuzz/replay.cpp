// Runs a fuzz target on the files, and on the files in the directories, that its arguments name, so
// that inputs found by a fuzzer serve as tests.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "fuzz/fuzz.h"

namespace {

int g_count = 0;

/// Replays a file. Returns false when it cannot be read.
bool Replay(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    const std::string input{std::istreambuf_iterator<char>(stream), {}};
    if (!stream) {
        std::fprintf(stderr, "%s: cannot be read\n", file.c_str());
        return false;
    }
    std::fprintf(stderr, "%s\n", file.c_str());
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    ++g_count;
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (!std::filesystem::is_directory(argv[i])) {
            if (!Replay(argv[i])) {
                return 1;
            }
            continue;
        }
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            if (!Replay(entry.path())) {
                return 1;
            }
        }
    }
    std::fprintf(stderr, "%d inputs\n", g_count);
    return g_count == 0 ? 1 : 0;
}
