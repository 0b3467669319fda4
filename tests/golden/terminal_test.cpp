// Output of a run whose standard output is a terminal.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "support/program.h"
#include "support/temp_dir.h"

namespace paramgen::testing {
namespace {

TEST(Terminal, ShowsEachRecordAsSoonAsItIsWritten) {
    const TempDir directory;
    std::filesystem::copy(PARAMGEN_EXAMPLES "/dashcam", directory.path(),
                          std::filesystem::copy_options::recursive);
    // param.bin is a pipe that nobody reads and that is too small for an image: the run blocks.
    const std::filesystem::path pipe = directory.path() / "param.bin";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const int reader = open(pipe.c_str(), O_RDWR | O_NONBLOCK);
    ASSERT_NE(reader, -1);
    ASSERT_GT(fcntl(reader, F_SETPIPE_SZ, 4096), 0);

    TerminalRun run(directory.path());
    EXPECT_TRUE(run.Shows("CAM MediaMode Spec UnitSize[1864], Cnt[5]"));
    close(reader);
}

}  // namespace
}  // namespace paramgen::testing
