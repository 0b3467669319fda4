#include "fuzz/fuzz.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace paramgen::testing {
namespace {

class Directory {
public:
    Directory() {
        const std::filesystem::path memory = "/dev/shm";
        const auto parent =
            access(memory.c_str(), W_OK) == 0 ? memory : std::filesystem::temp_directory_path();
        path_ = (parent / "paramgen-fuzz-XXXXXX").string();
        Require(mkdtemp(path_.data()) != nullptr, "a directory");
    }
    ~Directory() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    Directory(const Directory&) = delete;
    Directory& operator=(const Directory&) = delete;

    const std::string& path() const { return path_; }

private:
    std::string path_;
};

}  // namespace

void Require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

void SilenceOutput() {
    static const bool silenced = std::freopen("/dev/null", "w", stdout) != nullptr;
    Require(silenced, "standard output goes nowhere");
}

const std::string& FuzzDirectory() {
    static const Directory directory;
    return directory.path();
}

void WriteBytes(const std::string& path, std::string_view bytes) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    Require(file != -1, "a file to write");
    Require(write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()),
            "bytes in a file");
    close(file);
}

std::string ReadBytes(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY);
    if (file == -1) {
        return "";
    }
    std::string bytes(static_cast<std::size_t>(lseek(file, 0, SEEK_END)), '\0');
    Require(pread(file, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()),
            "bytes of a file");
    close(file);
    return bytes;
}

unsigned Input::Byte() {
    if (rest_.empty()) {
        return 0;
    }
    const unsigned char byte = static_cast<unsigned char>(rest_.front());
    rest_.remove_prefix(1);
    return byte;
}

std::string Input::TextUpTo(char end) {
    const std::size_t length = rest_.find(end);
    std::string text(rest_.substr(0, length));
    rest_.remove_prefix(length == std::string_view::npos ? rest_.size() : length + 1);
    return text;
}

}  // namespace paramgen::testing
