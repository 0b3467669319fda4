/// The working directory of a run.
#pragma once

#include <filesystem>

namespace paramgen::compile {

/// Makes a directory the working directory, as long as it lives.
class WorkingDirectory {
public:
    /// Throws `std::system_error` when `directory` cannot be entered, or the one before could not
    /// be found again.
    explicit WorkingDirectory(const std::filesystem::path& directory);
    ~WorkingDirectory();
    WorkingDirectory(const WorkingDirectory&) = delete;
    WorkingDirectory& operator=(const WorkingDirectory&) = delete;

private:
    int before_;
};

}  // namespace paramgen::compile
