/// Where results go: standard output, or a file that is written whole or not at all.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace paramgen::output {

/// A failure to tell the user, who has to mend it. It ends the command with exit status 2.
class UserError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Writes `text` to standard output, when `file` is empty, or to the file of that name. A reader
/// that has gone away ends the process quietly. Throws `UserError` when it cannot be written.
void WriteResult(const std::string& file, std::string_view text);

/// Writes `bytes` to the file at `path`, whole or not at all: to a temporary file beside it, which
/// is flushed and renamed. What is no regular file, a device say, is written to as it is. Throws
/// `UserError` when that fails; the file is then as it was.
void WriteWholeFile(const std::string& path, std::string_view bytes);

/// When texts are coloured.
enum class ColorChoice { kAuto, kAlways, kNever };

/// Whether texts that go to `descriptor` are coloured: as chosen; else by NO_COLOR and
/// CLICOLOR_FORCE; else when it is a terminal that is not dumb, and CLICOLOR is not 0.
bool UsesColor(ColorChoice choice, int descriptor);

}  // namespace paramgen::output
