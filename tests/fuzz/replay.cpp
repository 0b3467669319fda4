// Feeds the files that its arguments name, or that lie in the directories that they name, to a fuzz
// target: what a fuzzer found once stays found.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "fuzz/fuzz.h"

namespace {

int g_count = 0;

void Replay(const std::filesystem::path& file) {
    std::ostringstream bytes;
    bytes << std::ifstream(file, std::ios::binary).rdbuf();
    const std::string input = bytes.str();
    std::fprintf(stderr, "%s\n", file.c_str());
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    ++g_count;
}

}  // namespace

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (!std::filesystem::is_directory(argv[i])) {
            Replay(argv[i]);
            continue;
        }
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            Replay(entry.path());
        }
    }
    std::fprintf(stderr, "%d inputs\n", g_count);
    return g_count == 0 ? 1 : 0;
}
