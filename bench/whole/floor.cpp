/// The floor of a whole run: only reads the files, writes as many bytes to standard output as
/// paramgen does, and writes two files of an image's size.
///
/// floor <bytes on standard output> <file>...
#include <fcntl.h>
#include <unistd.h>

#include <cstddef>
#include <cstdlib>

namespace {

constexpr std::size_t kImageSize = 29928;

char g_buffer[64 * 1024];

bool ReadFile(const char* path) {
    const int file = open(path, O_RDONLY);
    ssize_t count = file;
    while (count > 0) {
        count = read(file, g_buffer, sizeof g_buffer);
    }
    return file >= 0 && count == 0 && close(file) == 0;
}

bool WriteBytes(int file, std::size_t size) {
    while (size != 0) {
        const ssize_t count =
            write(file, g_buffer, size < sizeof g_buffer ? size : sizeof g_buffer);
        if (count <= 0) {
            return false;
        }
        size -= static_cast<std::size_t>(count);
    }
    return true;
}

bool WriteFile(const char* path) {
    const int file = open(path, O_WRONLY | O_CREAT | O_TRUNC, 0666);
    return file >= 0 && WriteBytes(file, kImageSize) && close(file) == 0;
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 2) {
        return 2;
    }
    bool done = true;
    for (int number = 2; number < count; ++number) {
        done = ReadFile(arguments[number]) && done;
    }
    done = WriteBytes(STDOUT_FILENO, std::strtoul(arguments[1], nullptr, 10)) && done;
    done = WriteFile("./param.bin") && done;
    done = WriteFile("./paramdef.bin") && done;
    return done ? 0 : 1;
}
