#include <sstream>

#include "manual/reference.h"

namespace paramgen::manual {
namespace {

/// `text` as roff shows it: no backslash, hyphen or leading dot means anything.
std::string Roff(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
            case '\\':
                escaped += "\\e";
                break;
            case '-':
                escaped += "\\-";
                break;
            default:
                escaped += c;
        }
    }
    const bool isRequest = !escaped.empty() && (escaped[0] == '.' || escaped[0] == '\'');
    return (isRequest ? "\\&" : "") + escaped;
}

/// `text` as lines of at most 80 characters.
std::string Line(const std::string& text) {
    constexpr std::size_t kWidth = 78;
    std::istringstream words(text);
    std::string lines;
    std::string line;
    for (std::string word; words >> word;) {
        if (!line.empty() && Roff(line).size() + word.size() > kWidth) {
            lines += Roff(line) + "\n";
            line.clear();
        }
        line += (line.empty() ? "" : " ") + word;
    }
    return line.empty() ? lines : lines + Roff(line) + "\n";
}

/// A request with one argument.
std::string Request(const char* name, const std::string& argument) {
    return std::string(".") + name + " \"" + Roff(argument) + "\"\n";
}

/// "number, in ms, default 0, at offset 9228".
std::string Facts(const ReferenceKey& key) {
    std::string text = key.type;
    const auto add = [&text](const char* word, const std::string& fact) {
        if (!fact.empty()) {
            text += std::string(", ") + word + fact;
        }
    };
    add("in ", key.unit);
    add("default ", key.initial);
    add("at offset ", key.offset);
    add("", key.condition);
    return text;
}

std::string Key(const ReferenceKey& key) {
    std::string text = ".TP\n.B " + Roff(key.key) + "\n";
    text += Line(key.about.empty() ? "" : key.about + ".");
    text += Line(key.numbers.empty() ? "" : "Numbers: " + key.numbers + ".");
    return text + Line("(" + Facts(key) + ")");
}

}  // namespace

std::string Man(const Reference& reference, const std::string& version) {
    std::string text = ".TH PARAMGEN\\-KEYS 5 \"\" \"paramgen " + Roff(version) + "\"\n" +
                       ".SH NAME\nparamgen\\-keys \\- keys of a camera product's settings\n" +
                       ".SH DESCRIPTION\nAll keys by module and section.\n" +
                       Line(
                           "Letters stand for the numbers of elements; offsets are bytes from the "
                           "start of the image.");
    for (const ReferenceModule& module : reference.modules) {
        text += Request("SH", module.name.empty() ? "THE ENTRY FILE" : "MODULE " + module.name);
        for (const ReferenceSection& section : module.sections) {
            text += Request("SS", "[" + section.name + "]");
            for (const ReferenceKey& key : section.keys) {
                text += Key(key);
            }
        }
    }
    text += ".SH NAMES\n";
    for (const ReferenceNames& list : reference.names) {
        text += Request("SS", list.name);
        for (const std::string& name : list.names) {
            text += Roff(name) + "\n.br\n";
        }
        text.erase(text.size() - 4);  // the last .br
    }
    return text;
}

}  // namespace paramgen::manual
