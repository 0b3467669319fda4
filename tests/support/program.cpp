#include "support/program.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <vector>

#include "support/temp_dir.h"

namespace paramgen::testing {
namespace {

constexpr unsigned kNobody = 65534;

std::string FromEnvironment(const char* name, const char* otherwise) {
    const char* value = std::getenv(name);
    return value == nullptr ? otherwise : value;
}

/// In the child: becomes the program, or exits with 127.
[[noreturn]] void Become(const std::filesystem::path& directory, const std::string& program,
                         const std::string& capture, Output output, Rights rights) {
    const std::string runner = FromEnvironment("PARAMGEN_RUNNER", "");
    std::vector<char*> arguments;
    std::string runnerText = runner;
    std::string programText = program;
    if (!runner.empty()) {
        arguments.push_back(runnerText.data());
    }
    arguments.push_back(programText.data());
    arguments.push_back(nullptr);
    close(STDOUT_FILENO);
    const bool redirected =
        output == Output::kClosed || open(capture.c_str(), O_WRONLY | O_CREAT, 0666) == 1;
    const bool droppedRights =
        rights == Rights::kOwn || geteuid() != 0 || (setgid(kNobody) == 0 && setuid(kNobody) == 0);
    if (redirected && droppedRights && chdir(directory.c_str()) == 0) {
        execvp(arguments[0], arguments.data());
    }
    _exit(127);
}

}  // namespace

ProgramRun RunProgram(const std::filesystem::path& directory, Output output, Rights rights) {
    const TempDir capture;
    std::string program = FromEnvironment("PARAMGEN_PROGRAM", PARAMGEN_PROGRAM);
    if (rights == Rights::kNobody) {
        // Nobody may not reach the build directory.
        const std::filesystem::path copy = capture.path() / "paramgen";
        std::filesystem::copy_file(program, copy);
        program = copy.string();
        std::filesystem::permissions(capture.path(), std::filesystem::perms(0755));
        std::filesystem::permissions(directory, std::filesystem::perms(0777));
    }
    const std::string file = (capture.path() / "stdout").string();
    const pid_t child = fork();
    if (child == 0) {
        Become(directory, program, file, output, rights);
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child) {
        ADD_FAILURE() << "the program cannot be run";
    }
    return {.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -1, .output = ReadFile(file)};
}

}  // namespace paramgen::testing
