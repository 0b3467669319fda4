#include "param/media_common/csc_matrix.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "log/console_log.h"
#include "support/captured_output.h"
#include "support/records.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::int32_t kUntouched = -7;

constexpr std::pair<const char*, std::int32_t> kMatrices[] = {
    {"QX_MAPI_DISP_CSC_MATRIX_BT601LIMIT_TO_BT601LIMIT", 0},
    {"QX_MAPI_DISP_CSC_MATRIX_BT601LIMIT_TO_BT709LIMIT", 4},
    {"QX_MAPI_DISP_CSC_MATRIX_BT709LIMIT_TO_BT601LIMIT", 2},
    {"QX_MAPI_DISP_CSC_MATRIX_BT601LIMIT_TO_RGBLIMIT", 20},
    {"QX_MAPI_DISP_CSC_MATRIX_BT709LIMIT_TO_RGBLIMIT", 22},
    {"QX_MAPI_DISP_CSC_MATRIX_RGBFULL_TO_BT601LIMIT", 24},
    {"QX_MAPI_DISP_CSC_MATRIX_RGBFULL_TO_BT709LIMIT", 26},
    {"QX_MAPI_DISP_CSC_MATRIX_BT601FULL_TO_RGBFULL", 17},
    {"QX_MAPI_DISP_CSC_MATRIX_BT709FULL_TO_RGBFULL", 19},
};

struct Found {
    Status status;
    std::int32_t number;
    std::string output;
};

Found Find(const std::string& name) {
    ConsoleLogSetup(1, 0, kConsoleDebug);
    Found found = {.status = 0, .number = 0, .output = ""};
    CscMatrix matrix = static_cast<CscMatrix>(kUntouched);
    found.output = CaptureStdout(
        [&] { found.status = PDT_INIPARAM_GetMediaCommCSCMatrixEnum(name.c_str(), &matrix); });
    found.number = matrix;
    return found;
}

TEST(CscMatrix, EveryNameHasItsNumber) {
    for (const auto& [name, number] : kMatrices) {
        const Found found = Find(name);
        EXPECT_EQ(found.status, 0);
        EXPECT_EQ(found.number, number) << name;
        EXPECT_THAT(EchoOf(found.output),
                    ElementsAre("PDT_INIPARAM_GetMediaCommCSCMatrixEnum:     CSCMatrix[" +
                                std::string(name) + "] Enum[" + std::to_string(number) + "]\n"));
        EXPECT_THAT(ErrorsOf(found.output), IsEmpty());
    }
}

TEST(CscMatrix, UnknownNamesAreRefused) {
    const std::string known = kMatrices[8].first;
    for (const std::string& name :
         {std::string("nonsense"), std::string("qx_mapi_disp_csc_matrix_bt709full_to_rgbfull"),
          known + " ", known.substr(0, known.size() - 1), std::string(kMatrices[3].first) + "_2"}) {
        const Found found = Find(name);
        EXPECT_EQ(found.status, -1);
        EXPECT_EQ(found.number, kUntouched);
        EXPECT_THAT(ErrorsOf(found.output),
                    ElementsAre("PDT_INIPARAM_GetMediaCommCSCMatrixEnum: Invalid CSCMatrix[" +
                                name + "]\n"));
        EXPECT_THAT(EchoOf(found.output), IsEmpty());
    }
}

// Every name of the table is shorter than the 64 characters that are compared.
TEST(CscMatrix, NameOf64CharactersIsComparedBeyondTheEntry) {
    std::string name = kMatrices[0].first;
    name.resize(64, 'x');
    EXPECT_EQ(Find(name).status, -1);
    name.resize(65, 'y');
    EXPECT_EQ(Find(name).status, -1);
}

TEST(CscMatrix, LookupLeavesTheNumberAloneAfterAFailure) {
    ConsoleLogSetup(1, 0, kConsoleDebug);
    std::int32_t number = kUntouched;
    Status status = 0;
    CaptureStdout([&] { status = FieldTraits<CscMatrix>::Lookup("nonsense", &number); });
    EXPECT_EQ(status, -1);
    EXPECT_EQ(number, kUntouched);
    CaptureStdout([&] { status = FieldTraits<CscMatrix>::Lookup(kMatrices[1].first, &number); });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(number, 4);
}

TEST(CscMatrix, NullNameIsUnknown) {
    ConsoleLogSetup(1, 0, kConsoleDebug);
    auto number = static_cast<CscMatrix>(7);
    Status status = 0;
    const std::string output =
        CaptureStdout([&] { status = PDT_INIPARAM_GetMediaCommCSCMatrixEnum(nullptr, &number); });
    EXPECT_EQ(status, -1);
    EXPECT_EQ(number, 7);
    EXPECT_THAT(ErrorsOf(output),
                ElementsAre("PDT_INIPARAM_GetMediaCommCSCMatrixEnum: Invalid CSCMatrix[(null)]\n"));
}

}  // namespace
}  // namespace paramgen::testing
