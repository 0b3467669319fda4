#include "support/program.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <optional>
#include <regex>
#include <vector>

#include "support/records.h"
#include "support/temp_dir.h"

namespace paramgen::testing {
namespace {

constexpr unsigned kNobody = 65534;
/// Limit of processor time, far more than any run needs. The kernel kills a run that exceeds it.
constexpr rlim_t kMostSeconds = 60;

std::string FromEnvironment(const char* name, const char* otherwise) {
    const char* value = std::getenv(name);
    return value == nullptr ? otherwise : value;
}

/// The program to run, and how to run it.
struct Command {
    std::string runner;  ///< empty: the program itself is run
    std::string program;
    Output output;
    Rights rights;
};

/// The exit status of a child that could not become the program.
constexpr int kNotStarted = 127;

/// In the child: if a step of its start has failed, prints which step and why, and exits.
void Require(bool done, const std::string& step) {
    if (!done) {
        std::fprintf(stderr, "the program cannot be started: %s: %s\n", step.c_str(),
                     std::strerror(errno));
        _exit(kNotStarted);
    }
}

/// In the child: executes the program, with the file at `capture` as its standard output.
[[noreturn]] void Become(const std::filesystem::path& directory, Command command,
                         const std::string& capture) {
    std::vector<char*> arguments;
    if (!command.runner.empty()) {
        arguments.push_back(command.runner.data());
    }
    arguments.push_back(command.program.data());
    arguments.push_back(nullptr);
    close(STDOUT_FILENO);
    if (command.output != Output::kClosed) {
        Require(open(capture.c_str(), O_WRONLY | O_CREAT | O_NOCTTY, 0666) == STDOUT_FILENO,
                "open " + capture);
    }
    if (command.rights == Rights::kNobody && geteuid() == 0) {
        Require(setgid(kNobody) == 0 && setuid(kNobody) == 0, "become nobody");
    }
    const rlimit seconds = {.rlim_cur = kMostSeconds, .rlim_max = kMostSeconds};
    Require(setrlimit(RLIMIT_CPU, &seconds) == 0, "limit its time");
    Require(chdir(directory.c_str()) == 0, "change to " + directory.string());
    Require(execvp(arguments[0], arguments.data()) != -1, std::string("run ") + arguments[0]);
    _exit(kNotStarted);
}

ProgramRun Run(const std::filesystem::path& directory, Command command) {
    const TempDir capture;
    if (command.rights == Rights::kNobody) {
        // The user nobody may not be able to reach the build directory: run a copy.
        const std::filesystem::path copy = capture.path() / "paramgen";
        std::filesystem::copy_file(command.program, copy);
        command.program = copy.string();
        std::filesystem::permissions(capture.path(), std::filesystem::perms(0755));
        std::filesystem::permissions(directory, std::filesystem::perms(0777));
    }
    const std::string file = (capture.path() / "stdout").string();
    const pid_t child = fork();
    if (child == 0) {
        Become(directory, command, file);
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child ||
        (WIFEXITED(status) && WEXITSTATUS(status) == kNotStarted)) {
        ADD_FAILURE() << "the program cannot be run: " << command.runner << " " << command.program;
    }
    return {.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -1, .output = ReadFile(file)};
}

/// The program and how to run it, from the environment variables.
Command ProgramCommand(Output output, Rights rights) {
    return {.runner = FromEnvironment("PARAMGEN_RUNNER", ""),
            .program = FromEnvironment("PARAMGEN_PROGRAM", PARAMGEN_PROGRAM),
            .output = output,
            .rights = rights};
}

constexpr std::array kOutputFiles = {"param.bin", "paramdef.bin"};

/// The bytes of the output files; nothing for one that is not a regular file.
using Files = std::array<std::optional<std::string>, kOutputFiles.size()>;

Files ReadFiles(const std::filesystem::path& directory) {
    Files files;
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (std::filesystem::is_regular_file(directory / kOutputFiles[i])) {
            files[i] = ReadFile(directory / kOutputFiles[i]);
        }
    }
    return files;
}

/// Restores the contents of the output files, where they are regular files now.
void Restore(const std::filesystem::path& directory, const Files& before) {
    for (std::size_t i = 0; i < before.size(); ++i) {
        const std::filesystem::path path = directory / kOutputFiles[i];
        if (before[i]) {
            std::ofstream(path, std::ios::binary) << *before[i];
        } else if (std::filesystem::is_regular_file(path)) {
            std::filesystem::remove(path);
        }
    }
}

/// The output without what may differ between programs: on a full disk, the number of bytes that
/// fwrite accepts depends on the libc's buffer.
std::string Comparable(std::string_view output) {
    static const std::regex taken("(fwrite : total 29928, write )[0-9]+");
    return std::regex_replace(MaskTimes(output), taken, "$1#");
}

std::string Describe(const std::optional<std::string>& bytes) {
    return bytes ? std::to_string(bytes->size()) + " bytes" : "no plain file";
}

/// Prints at the end how many runs were compared, so that nobody mistakes none for all.
class Comparisons : public ::testing::Environment {
public:
    void TearDown() override {
        if (count_ != 0) {
            std::printf("%d runs compared with %s\n", count_,
                        FromEnvironment(kReference, "").c_str());
        }
    }
    void CountOne() { ++count_; }

    static constexpr char kReference[] = "PARAMGEN_REFERENCE_PROGRAM";

private:
    int count_ = 0;
};

Comparisons* const g_comparisons = static_cast<Comparisons*>(
    ::testing::AddGlobalTestEnvironment(new Comparisons));  // GoogleTest owns it

}  // namespace

ProgramRun RunProgram(const std::filesystem::path& directory, Output output, Rights rights) {
    const Command command = ProgramCommand(output, rights);
    const std::string reference = FromEnvironment(Comparisons::kReference, "");
    if (reference.empty()) {
        return Run(directory, command);
    }
    const Files before = ReadFiles(directory);
    const ProgramRun expected =
        Run(directory, {.runner = "", .program = reference, .output = output, .rights = rights});
    const Files expectedFiles = ReadFiles(directory);
    Restore(directory, before);

    const ProgramRun run = Run(directory, command);
    const Files files = ReadFiles(directory);
    EXPECT_EQ(run.exitStatus, expected.exitStatus) << "unlike " << reference;
    EXPECT_EQ(Comparable(run.output), Comparable(expected.output)) << "unlike " << reference;
    for (std::size_t i = 0; i < files.size(); ++i) {
        EXPECT_TRUE(files[i] == expectedFiles[i])
            << kOutputFiles[i] << " is unlike that of " << reference << ": " << Describe(files[i])
            << ", there " << Describe(expectedFiles[i]);
    }
    g_comparisons->CountOne();
    return run;
}

TerminalRun::TerminalRun(const std::filesystem::path& directory)
    : terminal_(posix_openpt(O_RDWR | O_NOCTTY)) {
    if (terminal_ == -1 || grantpt(terminal_) != 0 || unlockpt(terminal_) != 0) {
        ADD_FAILURE() << "there is no terminal: " << std::strerror(errno);
        return;
    }
    const std::string name = ptsname(terminal_);
    child_ = fork();
    if (child_ == 0) {
        Become(directory, ProgramCommand(Output::kCaptured, Rights::kOwn), name);
    }
}

TerminalRun::~TerminalRun() {
    if (child_ > 0) {
        kill(child_, SIGKILL);
        waitpid(child_, nullptr, 0);
    }
    close(terminal_);
}

bool TerminalRun::Shows(const std::string& text) {
    constexpr int kSilence = 10'000;  // milliseconds
    pollfd ready = {.fd = terminal_, .events = POLLIN, .revents = 0};
    while (shown_.find(text) == std::string::npos) {
        char bytes[4096];
        const ssize_t count =
            poll(&ready, 1, kSilence) == 1 ? read(terminal_, bytes, sizeof bytes) : 0;
        if (count <= 0) {
            return false;
        }
        shown_.append(bytes, static_cast<std::size_t>(count));
    }
    return true;
}

}  // namespace paramgen::testing
