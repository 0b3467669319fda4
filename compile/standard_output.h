/// Standard output of a run, which must not be that of this program.
#pragma once

#include <string>

namespace paramgen::compile {

/// Takes what is written to standard output, through C's stream, as long as it lives.
class StandardOutput {
public:
    /// What is taken can be asked for later when `isKept`; else it is thrown away.
    explicit StandardOutput(bool isKept);
    ~StandardOutput();
    StandardOutput(const StandardOutput&) = delete;
    StandardOutput& operator=(const StandardOutput&) = delete;

    /// What has been taken so far.
    std::string Text() const;

private:
    int before_;  ///< where standard output went; -1: it was closed
    int taken_;   ///< where it goes now; -1: it stays as it was
};

}  // namespace paramgen::compile
