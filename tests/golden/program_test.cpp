// Programs that cannot be started fail a test, with the reason.

#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "support/captured_output.h"
#include "support/program.h"
#include "support/temp_dir.h"

namespace paramgen::testing {
namespace {

using ::testing::HasSubstr;

/// Sets an environment variable; the destructor restores it.
class Variable {
public:
    Variable(const char* name, const std::string& value) : name_(name) {
        const char* before = std::getenv(name);
        hadValue_ = before != nullptr;
        before_ = hadValue_ ? before : "";
        setenv(name, value.c_str(), 1);
    }
    ~Variable() { hadValue_ ? setenv(name_, before_.c_str(), 1) : unsetenv(name_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
    bool hadValue_;
    std::string before_;
};

TEST(Program, ThatIsNotThereIsTold) {
    const Variable runner("PARAMGEN_RUNNER", "");
    const Variable program("PARAMGEN_PROGRAM", "/no/such/program");
    const Variable reference("PARAMGEN_REFERENCE_PROGRAM", "");
    const std::string said = CaptureStderr([] {
        EXPECT_NONFATAL_FAILURE(RunProgram(TempDir().path()), "cannot be run:  /no/such/program");
    });
    EXPECT_THAT(said, HasSubstr("cannot be started: run /no/such/program: No such file"));
}

TEST(Program, ReferenceThatIsNotThereIsTold) {
    const Variable reference("PARAMGEN_REFERENCE_PROGRAM", "/no/such/reference");
    ::testing::TestPartResultArray failures;
    const std::string said = CaptureStderr([&] {
        const ::testing::ScopedFakeTestPartResultReporter reporter(
            ::testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &failures);
        RunProgram(TempDir().path());
    });
    EXPECT_GT(failures.size(), 0);
    EXPECT_THAT(said, HasSubstr("cannot be started: run /no/such/reference: No such file"));
}

TEST(Program, DirectoryThatIsNotThereIsTold) {
    const Variable reference("PARAMGEN_REFERENCE_PROGRAM", "");
    const std::string said = CaptureStderr(
        [] { EXPECT_NONFATAL_FAILURE(RunProgram("/no/such/directory"), "cannot be run"); });
    EXPECT_THAT(said, HasSubstr("cannot be started: change to /no/such/directory: No such file"));
}

}  // namespace
}  // namespace paramgen::testing
