#include "fault/sweep/calls.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <cstring>

#include "fault/sweep/observed.h"
#include "log/output.h"

// The linker turns every call of NAME in the linked code into one of __wrap_NAME; __real_NAME is
// libc's function.
extern "C" {
int __real_open(const char* path, int flags, ...);
int __real_close(int file);
ssize_t __real_pread(int file, void* bytes, std::size_t size, off_t offset);
}

namespace paramgen::testing {
namespace {

/// The file of a stream. It keeps its own position, because a process and its forked child share
/// that of the descriptor.
struct File {
    int descriptor = -1;
    off_t position = 0;
    Kind write = Kind::kWrite;
};

constexpr std::size_t kPathSize = 4096;

struct State {
    bool observing = false;
    CallObserver observer = nullptr;
    int held = 0;
    int opens = 0;
    int inStream = 0;  ///< depth of calls in which libc works on a stream
    int inOutput = 0;  ///< of these, those on standard output
    std::FILE* stream = nullptr;
    bool opening = false;
    bool reading = false;  ///< a file is open for reading
    char path[kPathSize] = "";
    File file;  ///< a run has one file open at a time
    File output;
    std::FILE* realStdout = nullptr;
};

State g_state;

}  // namespace

bool Fails(Kind kind) {
    return g_state.observing && g_state.observer != nullptr && g_state.observer(kind);
}

void* Taken(void* thing) {
    g_state.held += g_state.observing && thing != nullptr ? 1 : 0;
    return thing;
}

void GivenBack(const void* thing) {
    g_state.held -= g_state.observing && thing != nullptr ? 1 : 0;
}

namespace {

/// Marks a call in which libc works on a stream.
class StreamWork {
public:
    explicit StreamWork(const std::FILE* stream) : isOutput_(stream == stdout ? 1 : 0) {
        ++g_state.inStream;
        g_state.inOutput += isOutput_;
    }
    ~StreamWork() {
        --g_state.inStream;
        g_state.inOutput -= isOutput_;
    }
    StreamWork(const StreamWork&) = delete;
    StreamWork& operator=(const StreamWork&) = delete;

private:
    int isOutput_;
};

ssize_t WriteBlock(void* cookie, const char* bytes, std::size_t size) {
    File* file = static_cast<File*>(cookie);
    if (Fails(file->write)) {
        errno = ENOSPC;
        return 0;
    }
    const ssize_t count = pwrite(file->descriptor, bytes, size, file->position);
    file->position += count > 0 ? count : 0;
    return count > 0 ? count : 0;
}

int CloseFile(void* cookie) {
    const File* file = static_cast<File*>(cookie);
    if (file->descriptor == -1) {
        return 0;  // it was never opened
    }
    const int result = __real_close(file->descriptor);
    if (Fails(Kind::kDeviceClose)) {
        errno = EIO;
        return -1;
    }
    return result;
}

int KeepOpen(void* /*cookie*/) {
    return 0;
}

}  // namespace

ObservedCalls::ObservedCalls(CallObserver observer, int output) {
    g_state = {};
    g_state.observing = true;
    g_state.output = {.descriptor = output, .position = 0, .write = Kind::kOutput};
    g_state.realStdout = stdout;
    stdout =
        fopencookie(&g_state.output, "w",
                    {.read = nullptr, .write = WriteBlock, .seek = nullptr, .close = KeepOpen});
    g_state.observer = observer;
}

void ObservedCalls::CloseOutput() {
    if (g_state.realStdout == nullptr) {
        return;
    }
    {
        const StreamWork work(stdout);
        std::fclose(stdout);
    }
    stdout = g_state.realStdout;
    g_state.realStdout = nullptr;
    g_state.observer = nullptr;
}

ObservedCalls::~ObservedCalls() {
    CloseOutput();
    g_state.observing = false;
}

UnobservedCalls::UnobservedCalls() : before_(g_state.observing) {
    g_state.observing = false;
}

UnobservedCalls::~UnobservedCalls() {
    g_state.observing = before_;
}

Progress CurrentProgress() {
    return {.opens = g_state.opens,
            .fileIsOpen = g_state.opening || g_state.reading || g_state.stream != nullptr,
            .isInStream = g_state.inStream != 0,
            .path = g_state.path};
}

void SetObserver(CallObserver observer) {
    g_state.observer = observer;
}

void RestartOutput(int output) {
    g_state.output.descriptor = output;
    g_state.output.position = 0;
}

int HeldThings() {
    return g_state.held;
}

extern "C" {

int __real_fclose(std::FILE* file);
int __real_fflush(std::FILE* file);
std::size_t __real_fwrite(const void* bytes, std::size_t size, std::size_t count, std::FILE* file);
int __real_printf(const char* format, ...);
int __real_vprintf(const char* format, std::va_list args);

/// Notes that a file is opened. Returns whether this must fail.
static bool IsRefused(const char* path) {
    ++g_state.opens;
    std::strncpy(g_state.path, path, sizeof g_state.path - 1);
    if (!Fails(Kind::kOpen)) {
        return false;
    }
    errno = EMFILE;
    return true;
}

// Input files are read through descriptors, output files are written through streams.

int __wrap_open(const char* path, int flags, ...) {
    if (IsRefused(path)) {
        return -1;
    }
    const int file = __real_open(path, flags);
    if (file != -1) {
        g_state.held += g_state.observing ? 1 : 0;
        g_state.reading = true;
    }
    return file;
}

ssize_t __wrap_pread(int file, void* bytes, std::size_t size, off_t offset) {
    if (Fails(Kind::kRead)) {
        errno = EIO;
        return -1;
    }
    return __real_pread(file, bytes, size, offset);
}

int __wrap_close(int file) {
    const bool fails = Fails(Kind::kDeviceClose);
    g_state.held -= g_state.observing ? 1 : 0;
    g_state.reading = false;
    const int result = __real_close(file);
    if (fails) {
        errno = EIO;
        return -1;
    }
    return result;
}

std::FILE* __wrap_fopen(const char* path, const char* mode) {
    if (IsRefused(path)) {
        return nullptr;
    }
    // Allocate before opening, as libc does: without memory the file is not truncated.
    g_state.file = {};
    g_state.opening = true;
    std::FILE* stream =
        fopencookie(&g_state.file, mode,
                    {.read = nullptr, .write = WriteBlock, .seek = nullptr, .close = CloseFile});
    g_state.opening = false;
    if (stream == nullptr) {
        return nullptr;
    }
    g_state.file.descriptor = __real_open(path, O_RDWR | O_CREAT | O_TRUNC, 0666);
    if (g_state.file.descriptor == -1) {
        __real_fclose(stream);
        return nullptr;
    }
    g_state.stream = stream;
    return stream;
}

int __wrap_fclose(std::FILE* file) {
    const StreamWork work(file);
    const bool fails = file != stdout && Fails(Kind::kClose);
    const int result = __real_fclose(file);
    g_state.stream = nullptr;
    return fails ? EOF : result;
}

int __wrap_fflush(std::FILE* file) {
    const StreamWork work(file);
    return file != stdout && Fails(Kind::kFlush) ? EOF : __real_fflush(file);
}

std::size_t __wrap_fwrite(const void* bytes, std::size_t size, std::size_t count, std::FILE* file) {
    const StreamWork work(file);
    if (file != stdout && Fails(Kind::kRefusedWrite)) {
        return 0;
    }
    const std::size_t taken = file != stdout && Fails(Kind::kShortWrite) ? count - 1 : count;
    return __real_fwrite(bytes, size, taken, file);
}

int __wrap_vprintf(const char* format, std::va_list args) {
    const StreamWork work(stdout);
    return __real_vprintf(format, args);
}

int __wrap_printf(const char* format, ...) {
    const StreamWork work(stdout);
    std::va_list args;
    va_start(args, format);
    const int length = __real_vprintf(format, args);
    va_end(args);
    return length;
}

}  // extern "C"

void FlushOutput() {
    if (g_state.inOutput == 0) {
        paramgen::FlushOutput();
        __real_fflush(stdout);
    }
}

}  // namespace paramgen::testing
