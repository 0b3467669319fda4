// Bytes above 127, which are negative characters on some machines and positive ones on others.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/program.h"
#include "support/records.h"
#include "support/temp_dir.h"

namespace paramgen::testing {
namespace {

/// The example product with additional lines at the end of the device management module.
class Bytes : public ::testing::Test {
protected:
    void Run(const std::string& lines) {
        std::filesystem::copy(PARAMGEN_EXAMPLES "/dashcam", directory_.path(),
                              std::filesystem::copy_options::recursive);
        directory_.Write("devmng.ini", ReadFile(directory_.path() / "devmng.ini") + lines);
        run_ = RunProgram(directory_.path());
    }

    TempDir directory_;
    ProgramRun run_;
};

TEST_F(Bytes, AboveAsciiStayInTexts) {
    Run("\n[devinfo]\nsoftware_version =\v\xA0\x85\xE9 \xFF\x80\xA0\t\n");
    EXPECT_EQ(run_.exitStatus, 0);
    const std::string text = "\xA0\x85\xE9 \xFF\x80\xA0";
    EXPECT_EQ(ReadFile(directory_.path() / "param.bin").substr(23924, text.size() + 1),
              text + '\0');
    EXPECT_THAT(EchoOf(run_.output), ::testing::Contains("PDT_INIPARAM_LoadStringValue: "
                                                         "devinfo:software_version [" +
                                                         text + "]\n"));
}

TEST_F(Bytes, AboveAsciiMakeOtherKeys) {
    Run("\n[gsensor\xA0]\nsensitivity = 7\n[gsensor]\n\xA0sensitivity = 8\n"
        "sensitivity\x85 = 9\n\xD3"
        "ensitivity = 10\n");
    EXPECT_EQ(run_.exitStatus, 0);
    EXPECT_THAT(EchoOf(run_.output),
                ::testing::Contains("PDT_INIPARAM_LoadGsensorCfg: gsensor sensitivity[2]\n"));
}

TEST_F(Bytes, AboveAsciiAreNoDigits) {
    Run("\n[gsensor]\nsensitivity = \xB2\n");
    EXPECT_EQ(run_.exitStatus, 0);
    EXPECT_THAT(EchoOf(run_.output),
                ::testing::Contains("PDT_INIPARAM_LoadGsensorCfg: gsensor sensitivity[0]\n"));
}

TEST_F(Bytes, OneOfThemAloneIsNoBlankLine) {
    Run("\n\xA0\n");
    EXPECT_EQ(run_.exitStatus, 0x46);
    EXPECT_THAT(run_.output, ::testing::HasSubstr("devmng.ini failed\n"));
}

}  // namespace
}  // namespace paramgen::testing
