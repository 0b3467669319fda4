#include "fault/sweep/sweep.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <string_view>

#include "confaccess/confaccess.h"
#include "confaccess/registry.h"
#include "fault/sweep/said.h"
#include "generator/image.h"

// The generator's main. The linker makes this test program start with its own, __wrap_main.
extern "C" int __real_main();

extern "C" int __wrap_main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

namespace paramgen::testing {
namespace {

constexpr char kOld[] = "what was here before\n";
constexpr unsigned kHangSeconds = 60;

/// The run in progress. The observers of calls are plain functions.
struct Current {
    Kind kind = {};
    int number = 0;
    int stride = 1;
    int capture = -1;      ///< output of this process's run
    int copyCapture = -1;  ///< output of a copy's run
    ObservedCalls* calls = nullptr;
    const WholeRun* clean = nullptr;
    std::vector<Point>* points = nullptr;
    End* copyEnd = nullptr;  ///< shared with the copies
};

Current g_current;
ParamImage g_cleanImage;
int g_pointCount = 0;
int g_callCount = 0;

std::string ReadCapture(int descriptor) {
    std::string text(static_cast<std::size_t>(lseek(descriptor, 0, SEEK_END)), '\0');
    EXPECT_EQ(pread(descriptor, text.data(), text.size(), 0), static_cast<ssize_t>(text.size()));
    return text;
}

FileState StateOf(const char* path) {
    const std::string bytes = ReadFile(path);
    if (bytes == kOld) {
        return FileState::kOld;
    }
    const std::string_view image(reinterpret_cast<const char*>(&g_image), sizeof g_image);
    return bytes == image ? FileState::kImage : FileState::kPart;
}

void WriteOld(const char* path) {
    std::ofstream(path) << kOld;
}

/// Does what a process does after its `main`, and returns how the run ended.
End EndOf(int status) {
    g_current.calls->CloseOutput();
    const bool isRegistered = g_confAccessCount != 0;
    if (isRegistered) {
        static_cast<void>(ZV_CONFACCESS_Deinit("productini"));
    }
    const UnobservedCalls unobserved;
    return {.exitStatus = status & 0xFF,
            .held = HeldThings(),
            .isRegistered = isRegistered,
            .hasCleanImage = std::memcmp(&g_image, &g_cleanImage, sizeof g_image) == 0,
            .param = StateOf("param.bin"),
            .paramDef = StateOf("paramdef.bin")};
}

/// One run of the generator. Forked copies of the process exit in it.
End RunMain(CallObserver observer, int capture) {
    const pid_t original = getpid();
    ObservedCalls calls(observer, capture);
    g_current.calls = &calls;
    const int status = __real_main();
    const End end = EndOf(status);
    if (getpid() != original) {
        *g_current.copyEnd = end;
        _exit(0);
    }
    return end;
}

bool FailAlways(Kind kind) {
    return kind == g_current.kind;
}

/// Restores the output files, unless this process itself has already opened them.
void RestoreFiles(const Progress& progress) {
    const bool secondBegun = progress.path == "./paramdef.bin";
    const bool firstBegun = secondBegun || progress.path == "./param.bin";
    if (!firstBegun && g_current.copyEnd->param != FileState::kOld) {
        WriteOld("param.bin");
    }
    if (!secondBegun && g_current.copyEnd->paramDef != FileState::kOld) {
        WriteOld("paramdef.bin");
    }
}

void Note(const Progress& progress, std::size_t said) {
    const std::string_view rest = std::string_view(g_current.clean->output).substr(said);
    std::string output = ReadCapture(g_current.copyCapture);
    const bool isRest = rest == output;
    g_current.points->push_back({.number = g_current.number,
                                 .progress = progress,
                                 .wasLoading = g_confAccessCount != 0,
                                 .said = said,
                                 .end = *g_current.copyEnd,
                                 .output = isRest ? "" : std::move(output),
                                 .isRest = isRest});
    ++g_pointCount;
}

/// Observer: at every call of the chosen kind, forks a copy of the process in which the call fails,
/// and waits for its end.
bool ForkAndFail(Kind kind) {
    if (kind != g_current.kind) {
        return false;
    }
    ++g_callCount;
    if (++g_current.number % g_current.stride != 0 && g_confAccessCount != 0) {
        return false;
    }
    FlushOutput();
    const UnobservedCalls unobserved;
    const Progress progress = CurrentProgress();
    const std::size_t said = static_cast<std::size_t>(lseek(g_current.capture, 0, SEEK_END));
    *g_current.copyEnd = {};
    EXPECT_EQ(ftruncate(g_current.copyCapture, 0), 0);
    const pid_t copy = fork();
    if (copy == 0) {
        alarm(kHangSeconds);
        RestartOutput(g_current.copyCapture);
        SetObserver(nullptr);
        return true;
    }
    int status = 0;
    EXPECT_EQ(waitpid(copy, &status, 0), copy);
    EXPECT_EQ(status, 0) << "the copy in which call " << g_current.number << " failed crashed";
    Note(progress, said);
    RestoreFiles(progress);
    return false;
}

}  // namespace

namespace {

/// Reads the time zone before anything is counted, since libc keeps the memory for it. Returns a
/// file for output.
int WarmUp() {
    tzset();
    return memfd_create("output", 0);
}

}  // namespace

Sweep::Sweep() : capture_(WarmUp()), copyCapture_(memfd_create("output of a copy", 0)) {
    std::filesystem::copy(PARAMGEN_EXAMPLES "/dashcam", directory_.path(),
                          std::filesystem::copy_options::recursive);
    void* page =
        mmap(nullptr, sizeof(End), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    g_current = {.capture = capture_, .copyCapture = copyCapture_};
    g_current.copyEnd = static_cast<End*>(page);
}

Sweep::~Sweep() {
    munmap(g_current.copyEnd, sizeof(End));
    g_current = {};
    close(capture_);
    close(copyCapture_);
}

WholeRun Sweep::RunWith(CallObserver observer) {
    WriteOld("param.bin");
    WriteOld("paramdef.bin");
    EXPECT_EQ(ftruncate(capture_, 0), 0);
    const End end = RunMain(observer, capture_);
    return {.end = end, .output = ReadCapture(capture_)};
}

const WholeRun& Sweep::Clean() {
    if (!clean_) {
        clean_ = RunWith(nullptr);
        g_cleanImage = g_image;
        clean_->end.hasCleanImage = true;
    }
    return *clean_;
}

WholeRun Sweep::Failing(Kind kind) {
    Clean();
    g_current.kind = kind;
    return RunWith(FailAlways);
}

std::vector<Point> Sweep::Over(Kind kind, int stride) {
    const char* asked = std::getenv("PARAMGEN_SWEEP");
    const bool every = asked != nullptr && std::string_view(asked) == "every";
    std::vector<Point> points;
    g_current.stride = every ? 1 : stride;
    g_current.clean = &Clean();
    g_current.kind = kind;
    g_current.number = 0;
    g_current.points = &points;
    const WholeRun run = RunWith(ForkAndFail);
    EXPECT_EQ(run.end, clean_->end);
    EXPECT_EQ(Said(run.output), Said(clean_->output));
    return points;
}

int PointCount() {
    return g_pointCount;
}

int CallCount() {
    return g_callCount;
}

}  // namespace paramgen::testing
