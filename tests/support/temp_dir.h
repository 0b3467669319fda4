/// A temporary directory, removed with everything in it by the destructor.
#pragma once

#include <filesystem>
#include <string>

namespace paramgen::testing {

class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::filesystem::path& path() const { return path_; }

    /// Writes `bytes` to the file `name` in the directory, and returns the file's path.
    std::string Write(const std::string& name, const std::string& bytes) const;

private:
    std::filesystem::path path_;
};

/// The bytes of a file; empty when it cannot be read.
std::string ReadFile(const std::filesystem::path& path);

/// Makes `directory` the working directory; the destructor restores the old one.
class WorkingDirectory {
public:
    explicit WorkingDirectory(const std::filesystem::path& directory)
        : before_(std::filesystem::current_path()) {
        std::filesystem::current_path(directory);
    }
    ~WorkingDirectory() { std::filesystem::current_path(before_); }
    WorkingDirectory(const WorkingDirectory&) = delete;
    WorkingDirectory& operator=(const WorkingDirectory&) = delete;

private:
    std::filesystem::path before_;
};

}  // namespace paramgen::testing
