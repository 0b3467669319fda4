// The entry point while flushing or closing an output file fails: it logs the failure and goes on.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fault/failing_calls.h"
#include "support/captured_output.h"
#include "support/product_tree.h"
#include "support/records.h"
#include "support/temp_dir.h"

// The linker turns calls of main into calls of __wrap_main; __real_main is the generator's main.
extern "C" int __real_main();

extern "C" int __wrap_main(int count, char** arguments) {
    ::testing::InitGoogleMock(&count, arguments);
    return RUN_ALL_TESTS();
}

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;

/// Result of a run.
struct Run {
    int status;
    std::string output;
    std::string images[2];
};

/// Runs the generator while call `number` of one kind fails.
Run RunIn(const TempDir& directory, Call call, int number) {
    const WorkingDirectory here(directory.path());
    Run run = {};
    run.output = CaptureStdout([&] {
        Fail(call, number);
        run.status = __real_main();
        Fail(call, 0);
    });
    run.images[0] = ReadFile("param.bin");
    run.images[1] = ReadFile("paramdef.bin");
    return run;
}

/// The errors of runs in which call 1, 2 ... `calls` fails. Runs without errors are left out.
std::vector<std::vector<std::string>> ErrorsWithout(Call call, int calls) {
    const TempDir directory;
    SmallestProduct().WriteTo(directory);
    const std::string image = RunIn(directory, call, 0).images[0];
    EXPECT_EQ(image.size(), 29928U);
    std::vector<std::vector<std::string>> found;
    for (int number = 1; number <= calls; ++number) {
        const Run run = RunIn(directory, call, number);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.images[0], image);
        EXPECT_EQ(run.images[1], image);
        EXPECT_EQ(EchoOf(run.output).back(), "main: parambin update end\n");
        if (!ErrorsOf(run.output).empty()) {
            found.push_back(ErrorsOf(run.output));
        }
    }
    return found;
}

// Only the second file is flushed explicitly.
TEST(EntryPoint, GoesOnWhenAFileCannotBeFlushed) {
    EXPECT_THAT(ErrorsWithout(Call::kFflush, 3),
                ElementsAre(ElementsAre("main: [fflush failed] failed\n")));
}

// Only the output files are streams.
TEST(EntryPoint, GoesOnWhenAFileCannotBeClosed) {
    EXPECT_THAT(ErrorsWithout(Call::kFclose, 20),
                ElementsAre(ElementsAre("main: [fclose failed] failed\n"),
                            ElementsAre("main: [fclose failed] failed\n")));
}

}  // namespace
}  // namespace paramgen::testing
