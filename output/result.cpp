#include "output/result.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <vector>

#include "output/shown_text.h"
#include "output/write_calls.h"

namespace paramgen::output {
namespace {

/// Whether there is a device, pipe or the like at `path`, which is written to and not replaced.
bool IsDevice(const std::string& path) {
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode);
}

void WriteThrough(const std::string& path, std::string_view bytes) {
    const int descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (descriptor == -1) {
        FailToWrite(path);
    }
    const bool isWritten = WriteAll(descriptor, bytes);
    if (close(descriptor) != 0 || !isWritten) {
        FailToWrite(path);
    }
}

/// A temporary file. The destructor removes it unless it was renamed to its final name.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& target) : target_(target), name_(target + ".XXXXXX") {
        descriptor_ = mkostemp(name_.data(), O_CLOEXEC);
        if (descriptor_ == -1) {
            FailToWrite(target_);
        }
    }
    ~TemporaryFile() {
        if (descriptor_ != -1) {
            close(descriptor_);
        }
        if (!isInPlace_) {
            unlink(name_.c_str());
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    void Write(std::string_view bytes, mode_t mode) {
        if (!WriteAll(descriptor_, bytes) || fchmod(descriptor_, mode) != 0 ||
            fsync(descriptor_) != 0) {
            FailToWrite(target_);
        }
        const int descriptor = descriptor_;
        descriptor_ = -1;
        if (close(descriptor) != 0) {
            FailToWrite(target_);
        }
    }

    void TakePlace() {
        if (rename(name_.c_str(), target_.c_str()) != 0) {
            FailToWrite(target_);
        }
        isInPlace_ = true;
    }

private:
    std::string target_;
    std::string name_;
    int descriptor_ = -1;
    bool isInPlace_ = false;
};

/// The rights that a file has, or that a new one gets.
mode_t ModeFor(const std::string& path) {
    struct stat status = {};
    if (stat(path.c_str(), &status) == 0) {
        return status.st_mode & 07777U;
    }
    const mode_t mask = umask(0);
    umask(mask);
    return 0666U & ~mask;
}

bool IsSet(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0';
}

bool Is(const char* name, const char* expected) {
    const char* value = std::getenv(name);
    return value != nullptr && std::strcmp(value, expected) == 0;
}

}  // namespace

void WriteResult(const std::string& file, std::string_view text) {
    if (!file.empty()) {
        WriteWholeFile(file, text);
        return;
    }
    if (!WriteAll(STDOUT_FILENO, text)) {
        if (errno == EPIPE) {
            std::_Exit(2);
        }
        throw UserError(std::string("cannot write to standard output: ") + std::strerror(errno));
    }
}

void WriteWholeFile(const std::string& path, std::string_view bytes) {
    if (IsDevice(path)) {
        WriteThrough(path, bytes);
        return;
    }
    // A symbolic link is kept: its target is replaced.
    std::error_code error;
    const std::filesystem::path resolved = std::filesystem::canonical(path, error);
    const std::string target = error ? path : resolved.string();
    const mode_t mode = ModeFor(target);
    TemporaryFile file(target);
    file.Write(bytes, mode);
    file.TakePlace();
}

bool UsesColor(ColorChoice choice, int descriptor) {
    if (choice != ColorChoice::kAuto) {
        return choice == ColorChoice::kAlways;
    }
    if (IsSet("NO_COLOR")) {
        return false;
    }
    if (IsSet("CLICOLOR_FORCE") && !Is("CLICOLOR_FORCE", "0")) {
        return true;
    }
    return isatty(descriptor) == 1 && !Is("CLICOLOR", "0") && !Is("TERM", "dumb");
}

}  // namespace paramgen::output
