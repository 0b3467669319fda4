#include "image/input.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include "compile/session.h"
#include "image/bytes.h"
#include "output/result.h"
#include "output/shown_text.h"

namespace paramgen::image {
namespace {

constexpr std::size_t kImageSize = sizeof(ParamImage);

[[noreturn]] void Fail(const std::string& argument, const std::string& what) {
    throw output::UserError(output::Shown(argument) + ": " + what);
}

/// An open file.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ > STDERR_FILENO) {
            close(number_);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int number() const { return number_; }

private:
    int number_;
};

/// The first bytes of a file, one more than an image has: the rest does not matter.
std::string ReadBytes(const std::string& argument) {
    const Descriptor file(argument == "-" ? STDIN_FILENO
                                          : open(argument.c_str(), O_RDONLY | O_CLOEXEC));
    if (file.number() == -1) {
        Fail(argument, std::strerror(errno));
    }
    std::string bytes;
    std::array<char, 65536> piece;
    ssize_t count = 1;
    while (bytes.size() <= kImageSize && count > 0) {
        count = read(file.number(), piece.data(), piece.size());
        if (count < 0 && errno == EINTR) {
            count = 1;
            continue;
        }
        if (count < 0) {
            Fail(argument, std::strerror(errno));
        }
        bytes.append(piece.data(), static_cast<std::size_t>(count));
    }
    return bytes;
}

bool BeginsWithHeader(const Image& image) {
    return NumberAt<std::uint32_t>(image, offsetof(ImageHeader, magic)) == kImageMagic &&
           NumberAt<std::uint32_t>(image, offsetof(ImageHeader, totalSize)) == kImageSize;
}

Input CompileTree(const std::string& argument) {
    std::error_code error;
    const std::filesystem::path entry =
        std::filesystem::path(argument) / "config_cfgaccess_entry.ini";
    if (!std::filesystem::exists(entry, error)) {
        Fail(argument, "has no config_cfgaccess_entry.ini");
    }
    Input input = {.argument = argument,
                   .isTree = true,
                   .image = {},
                   .compilation = compile::Compile(argument),
                   .remarks = {}};
    if (input.compilation->status != kOk) {
        throw RefusedTree(argument, *input.compilation);
    }
    input.image = input.compilation->image;
    return input;
}

/// What a run stopped at, for people.
std::string Reason(const compile::Compilation& compilation) {
    const compile::Stop& stop = *compilation.stop;
    switch (stop.at) {
        case compile::Stop::At::kKey:
            return stop.module + "/" + stop.key + " has a value that paramgen refuses";
        case compile::Stop::At::kModule:
            return "there is no module " + stop.module;
        case compile::Stop::At::kEntry:
            break;
    }
    return "its config_cfgaccess_entry.ini lists no valid modules";
}

}  // namespace

RefusedTree::RefusedTree(std::string tree, const compile::Compilation& compilation)
    : std::runtime_error(output::Shown(tree) + ": " + output::Shown(Reason(compilation))),
      tree_(std::move(tree)) {}

Input TakeImage(const std::string& argument, const std::string& bytes) {
    if (bytes.size() < kImageSize) {
        Fail(argument, "has " + std::to_string(bytes.size()) + " bytes, an image has " +
                           std::to_string(kImageSize));
    }
    Input input = {.argument = argument,
                   .isTree = false,
                   .image = {},
                   .compilation = std::nullopt,
                   .remarks = {}};
    std::memcpy(input.image.data(), bytes.data(), kImageSize);
    if (bytes.size() > kImageSize) {
        if (!BeginsWithHeader(input.image)) {
            Fail(argument, "is longer than an image and does not begin with one");
        }
        input.remarks.push_back("is longer than an image; what stands behind it is ignored");
    }
    return input;
}

Input ReadInput(const std::string& argument) {
    std::error_code error;
    if (argument != "-" && std::filesystem::is_directory(argument, error)) {
        return CompileTree(argument);
    }
    return TakeImage(argument, ReadBytes(argument));
}

}  // namespace paramgen::image
