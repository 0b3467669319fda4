/// The example product, run by the real program.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>

#include "support/program.h"
#include "support/temp_dir.h"

namespace paramgen::testing {

/// A copy of the example product, and the result of running the program on it.
class Dashcam : public ::testing::Test {
protected:
    Dashcam() {
        std::filesystem::copy(PARAMGEN_EXAMPLES "/dashcam", directory_.path(),
                              std::filesystem::copy_options::recursive);
        run_ = RunProgram(directory_.path());
        image_ = ReadFile(directory_.path() / "param.bin");
    }

    /// The bytes of the image from `offset`.
    std::string Part(std::size_t offset, std::size_t size) const {
        return image_.size() == 29928 ? image_.substr(offset, size) : "no image";
    }

    TempDir directory_;
    ProgramRun run_;
    std::string image_;
};

}  // namespace paramgen::testing
