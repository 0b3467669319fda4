#include "support/temp_dir.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <sstream>

namespace paramgen::testing {

TempDir::TempDir() {
    std::string name = (std::filesystem::temp_directory_path() / "paramgen-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        ADD_FAILURE() << "no temporary directory";
    }
    // The canonical path, because messages show canonical paths.
    path_ = std::filesystem::canonical(name);
}

TempDir::~TempDir() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string TempDir::Write(const std::string& name, const std::string& bytes) const {
    const std::filesystem::path file = path_ / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    return file.string();
}

std::string ReadFile(const std::filesystem::path& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

}  // namespace paramgen::testing
