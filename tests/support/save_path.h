/// Tests of the library log's save path: a directory for its two files, and records of exact text.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>

#include "log/library_log.h"
#include "log/save_file.h"
#include "support/captured_output.h"
#include "support/temp_dir.h"

namespace paramgen::testing {

/// Closes the save path and restores the threshold at the end.
class SavePathTest : public ::testing::Test {
protected:
    void TearDown() override {
        ZV_LOG_CloseSave();
        ZV_LOG_SetThreshold(kLibraryErr);
    }

    std::filesystem::path File1() const { return directory_.path() / "Q2VkYXJMb2dzVoLog1"; }
    std::filesystem::path File2() const { return directory_.path() / "Q2VkYXJMb2dzVoLog2"; }
    std::string Text1() const { return ReadFile(File1()); }
    std::string Text2() const { return ReadFile(File2()); }

    void Write1(const std::string& text) const { directory_.Write("Q2VkYXJMb2dzVoLog1", text); }
    void Write2(const std::string& text) const { directory_.Write("Q2VkYXJMb2dzVoLog2", text); }

    std::int32_t Open(std::uint32_t sizeLimit) const {
        return ZV_LOG_OpenSave(directory_.path().c_str(), sizeLimit);
    }

    /// Saves one record of exactly this text. Returns what is printed meanwhile.
    static std::string Save(const std::string& text) {
        return CaptureStdout([&] { LOG_SaveLog(text.data(), text.size()); });
    }

    TempDir directory_;
};

}  // namespace paramgen::testing
