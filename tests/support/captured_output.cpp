#include "support/captured_output.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>

namespace paramgen::testing {
namespace {

std::string Capture(std::FILE* stream, const std::function<void()>& code) {
    std::fflush(stream);
    const int original = dup(fileno(stream));
    std::FILE* file = std::tmpfile();
    if (original < 0 || file == nullptr || dup2(fileno(file), fileno(stream)) < 0) {
        ADD_FAILURE() << "output cannot be captured";
        return "";
    }
    code();
    std::fflush(stream);
    dup2(original, fileno(stream));
    close(original);
    std::fseek(file, 0, SEEK_END);
    std::string text(static_cast<std::size_t>(std::ftell(file)), '\0');
    std::rewind(file);
    if (std::fread(text.data(), 1, text.size(), file) != text.size()) {
        ADD_FAILURE() << "captured output cannot be read";
    }
    std::fclose(file);
    return text;
}

}  // namespace

std::string CaptureStdout(const std::function<void()>& code) {
    return Capture(stdout, code);
}

std::string CaptureStderr(const std::function<void()>& code) {
    return Capture(stderr, code);
}

}  // namespace paramgen::testing
