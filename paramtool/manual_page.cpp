#include "paramtool/manual_page.h"

#include <cctype>
#include <string_view>
#include <vector>

#include "paramtool/arguments.h"

namespace paramgen::paramtool {
namespace {

constexpr char kDescription[] = R"(.SH DESCRIPTION
.B paramtool
works on the products that
.BR paramgen (1)
makes images from, and on these images.
Results go to standard output, everything else to standard error.
Nothing is written into a tree but by
.BR "paramtool set" .
.SS Arguments
.TP
.I TREE
a directory with the entry file
.IR config_cfgaccess_entry.ini ,
see
.BR paramgen\-tree (5)
.TP
.I IMAGE
a file of 29,928 bytes, or a longer one that begins with an image;
.B \-
is standard input
.TP
.IR IMAGE | TREE
either: a tree is compiled in memory
.TP
.I KEY
.IR module / section : key ,
as in
.BR devmng/gsensor:sensitivity .
.IR section : key
or
.I key
alone stand for all that match;
.B *
and
.B ?
are wildcards, and case does not matter.
.BI @ OFFSET
is the value that owns that byte.
)";

constexpr char kRest[] = R"(.SH EXIT STATUS
.TP
.B 0
All is well: no errors, no differences.
.TP
.B 1
Errors or differences were found, or what was asked for does not exist.
.TP
.B 2
Wrong usage, arguments that cannot be read, or output that cannot be written.
.SH ENVIRONMENT
.TP
.B NO_COLOR
When set and not empty, nothing is coloured unless
.B \-\-color
says so.
.TP
.B CLICOLOR_FORCE
When set, neither empty nor 0, results are coloured on whatever they go to.
.SH SEE ALSO
.BR paramgen (1),
.BR paramgen\-tree (5),
.BR paramgen\-image (5),
.BR paramgen\-keys (5)
)";

/// A text within a line.
std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '\\') {
            escaped += "\\e";
        } else if (c == '-') {
            escaped += "\\-";
        } else if (c == '\'') {
            escaped += "\\(aq";
        } else {
            escaped += c;
        }
    }
    return escaped;
}

std::string Bold(std::string_view text) {
    return "\\fB" + Escaped(text) + "\\fR";
}

/// Lines of text, none of which is taken for a request.
std::string Lines(std::string_view text) {
    std::string lines = "\\&";
    for (const char c : Escaped(text)) {
        lines += c;
        lines += c == '\n' ? "\\&" : "";
    }
    return lines + "\n";
}

/// A placeholder: what is literal in it bold, what stands for something italic.
std::string Placeholder(const std::string& text) {
    std::string shown;
    for (std::size_t at = 0; at < text.size();) {
        const bool upper = std::isupper(static_cast<unsigned char>(text[at])) != 0;
        const std::size_t stop = text.find('|', at);
        const std::size_t end = stop == std::string::npos ? text.size() : stop;
        shown += (upper ? "\\fI" : "\\fB") + Escaped(text.substr(at, end - at)) + "\\fR";
        shown += stop == std::string::npos ? "" : "|";
        at = stop == std::string::npos ? end : stop + 1;
    }
    return shown;
}

std::string OptionEntry(const CLI::Option& option) {
    std::string entry = ".TP\n";
    const char* between = "";
    for (const std::string& name : NamesOf(option)) {
        entry += between + Bold(name);
        between = ", ";
    }
    const std::string placeholder = PlaceholderOf(option);
    entry += (placeholder.empty() ? "" : " " + Placeholder(placeholder)) + "\n";
    return entry + Lines(option.get_description());
}

std::string ArgumentEntry(const CLI::Option& argument) {
    return ".TP\n" + Placeholder(PlaceholderOf(argument)) + "\n" +
           Lines(argument.get_description());
}

std::string Usage(const CLI::App& command, const std::string& name) {
    std::string usage = ".B paramtool " + Escaped(name) + "\n[\\fIOPTION\\fR...]";
    for (const CLI::Option* argument : ArgumentsOf(command)) {
        const std::string shown =
            Placeholder(PlaceholderOf(*argument)) + (IsRepeated(*argument) ? "..." : "");
        usage += " " + (argument->get_required() ? shown : "[" + shown + "]");
    }
    return usage + "\n";
}

/// A command called `name`, and the commands below it.
std::string CommandEntry(const CLI::App& command, const std::string& name) {
    std::string entry = ".SS " + Escaped(name) + "\n" + Usage(command, name) + ".PP\n" +
                        Lines(command.get_description());
    for (const CLI::Option* argument : ArgumentsOf(command)) {
        entry += ArgumentEntry(*argument);
    }
    for (const CLI::Option* option : OptionsOf(command)) {
        entry += OptionEntry(*option);
    }
    if (!command.get_footer().empty()) {
        entry += ".PP\n" + Lines(command.get_footer());
    }
    for (const CLI::App* below : VisibleCommands(command)) {
        entry += CommandEntry(*below, name + " " + below->get_name());
    }
    return entry;
}

std::string HeadingLine(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

/// A sentence as the line of NAME has it: "Does this." is "does this".
std::string Summary(std::string text) {
    if (!text.empty() && text.back() == '.') {
        text.pop_back();
    }
    if (!text.empty()) {
        text.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(text.front())));
    }
    return text;
}

}  // namespace

std::string ManualPage(const CLI::App& app) {
    std::string page = ".TH PARAMTOOL 1 \"\" \"" + Escaped(HeadingLine(app.version())) +
                       "\" \"paramgen\"\n.SH NAME\nparamtool \\- " +
                       Escaped(Summary(app.get_description())) +
                       "\n.SH SYNOPSIS\n.B paramtool\n[\\fIOPTION\\fR...] \\fICOMMAND\\fR "
                       "[\\fIOPTION\\fR...] [\\fIARGUMENT\\fR...]\n";
    page += kDescription;
    page += ".SH OPTIONS\n";
    for (const CLI::Option* option : OptionsOf(app)) {
        page += OptionEntry(*option);
    }
    page += ".SH COMMANDS\n";
    for (const CLI::App* command : VisibleCommands(app)) {
        page += CommandEntry(*command, command->get_name());
    }
    return page + kRest;
}

}  // namespace paramgen::paramtool
