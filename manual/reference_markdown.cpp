#include "manual/reference.h"

namespace paramgen::manual {
namespace {

/// `text` in a cell of a table: nothing in it is markup or ends the cell.
std::string Escaped(const std::string& text) {
    std::string cell;
    for (const char c : text) {
        const bool isMarkup = std::string("|\\`*_<>[]#").find(c) != std::string::npos;
        cell += isMarkup ? std::string{'\\', c} : std::string{c};
    }
    return cell;
}

std::string AboutAndNumbers(const ReferenceKey& key) {
    return key.numbers.empty() ? key.about
                               : key.about + (key.about.empty() ? "" : ": ") + key.numbers;
}

std::string Row(const ReferenceKey& key) {
    return "| `" + key.key + "` | " + Escaped(AboutAndNumbers(key)) + " | " + Escaped(key.type) +
           " | " + Escaped(key.unit) + " | " + Escaped(key.initial) + " | " + Escaped(key.offset) +
           " | " + Escaped(key.condition) + " |\n";
}

std::string Section(const ReferenceSection& section) {
    std::string text = "### `[" + section.name + "]`\n\n" +
                       "| key | what it is | type | unit | default | offset | read |\n" +
                       "|---|---|---|---|---|---|---|\n";
    for (const ReferenceKey& key : section.keys) {
        text += Row(key);
    }
    return text + "\n";
}

}  // namespace

std::string Markdown(const Reference& reference) {
    std::string text =
        "# Keys\n\nAll keys by module and section. Letters stand for the numbers of elements; "
        "offsets are bytes from\nthe image's start. Without a condition a key is always read.\n\n";
    for (const ReferenceModule& module : reference.modules) {
        text += module.name.empty() ? "## The entry file\n\n" : "## `" + module.name + "`\n\n";
        for (const ReferenceSection& section : module.sections) {
            text += Section(section);
        }
    }
    text += "## Names\n\n";
    for (const ReferenceNames& list : reference.names) {
        text += "### " + Escaped(list.name) + "\n\n";
        for (const std::string& name : list.names) {
            text += "- `" + name + "`\n";
        }
        text += "\n";
    }
    text.pop_back();
    return text;
}

}  // namespace paramgen::manual
