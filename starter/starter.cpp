#include "starter/starter.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "compile/imagined.h"
#include "layout/layout.h"
#include "tree/product.h"

namespace paramgen::starter {
namespace {

constexpr char kMode[] = "QX_PARAM_MEDIAMODE_1080P_30";
constexpr char kModeModule[] = "cam0_mediamode0";

/// Whether a value is in an array whose elements are counted by the existence of their keys.
bool IsLeading(const layout::Value& value) {
    return std::any_of(value.conditions.begin(), value.conditions.end(),
                       [](const layout::Condition& condition) {
                           return condition.kind == layout::ConditionKind::kLeading;
                       });
}

/// The values of a key; null when no table knows it.
const layout::Key* Find(const std::string& module, const std::string& fullKey) {
    const std::size_t colon = fullKey.rfind(':');
    return layout::FindKey(module, fullKey.substr(0, colon), fullKey.substr(colon + 1));
}

bool IsOptional(const layout::Value& value) {
    return std::any_of(value.conditions.begin(), value.conditions.end(),
                       [](const layout::Condition& condition) {
                           return condition.kind == layout::ConditionKind::kOptionalModule ||
                                  condition.kind == layout::ConditionKind::kSearchedModule;
                       });
}

/// What an absent key stands for: a number; of names a media mode that is served, else the first
/// one's; an empty text.
std::string DefaultText(const layout::Value& value) {
    if (value.Kind() == FieldKind::kName) {
        const NameTable& names = *layout::NamesOf(value);
        return layout::NumberOf(names, kMode) ? kMode : layout::NameOf(names, 0);
    }
    return value.HasDefault() ? std::to_string(value.Default()) : "";
}

/// A value that fits the others: its default, except that pipes have different handles.
std::string StarterText(const layout::Value& value) {
    const std::string_view section = value.section;
    if (section.starts_with("vcap.pipe.") && value.key == "vcappipehdl") {
        return std::string(section.substr(section.rfind('.') + 1));
    }
    return DefaultText(value);
}

/// The product: every key has its default, and of elements that are counted by their keys only the
/// first one exists.
class Starter : public compile::Imagined {
public:
    Starter() {
        for (const layout::Value& value : layout::Values()) {
            if (value.HasKey() && (!IsOptional(value) || value.module == kModeModule)) {
                modules_.insert(value.module);
            }
        }
    }

    const std::set<std::string, std::less<>>& modules() const { return modules_; }

    bool HasModule(std::string_view name) override { return modules_.count(name) != 0; }

    std::optional<std::string> Text(std::string_view module, std::string_view key,
                                    const std::optional<compile::Place>&) override {
        const layout::Key* known = Find(std::string(module), std::string(key));
        if (known == nullptr || known->values.empty() || IsLeading(*known->values.front())) {
            return std::nullopt;
        }
        return StarterText(*known->values.front());
    }

private:
    std::set<std::string, std::less<>> modules_;
};

/// The description of a value, as a comment line.
std::string Comment(const layout::Value& value) {
    std::string text = value.About();
    text += value.Unit().empty() ? "" : " [" + value.Unit() + "]";
    text += value.Numbers().empty() ? "" : ": " + value.Numbers();
    return text.empty() ? "" : "# " + text + "\n";
}

/// Lines by section, in the order in which sections came.
class Sections {
public:
    void Add(const std::string& section, const std::string& lines) {
        if (lines_.count(section) == 0) {
            order_.push_back(section);
        }
        lines_[section] += lines;
    }

    /// All sections; `prefix` stands before the headers.
    std::string Text(const std::string& prefix) const {
        std::string text;
        for (const std::string& section : order_) {
            text += "\n" + prefix + "[" + section + "]\n" + lines_.at(section);
        }
        return text;
    }

private:
    std::vector<std::string> order_;
    std::map<std::string, std::string> lines_;
};

/// Keys that the product does not read, as comments; of numbered ones one for all.
Sections UnreadKeys(const std::string& module, const std::set<std::string>& read) {
    Sections sections;
    for (const layout::Pattern& pattern : layout::Patterns()) {
        const auto isOfModule = [&](const layout::Value* value) { return value->module == module; };
        const auto own = std::find_if(pattern.values.begin(), pattern.values.end(), isOfModule);
        const bool isRead = std::any_of(
            pattern.values.begin(), pattern.values.end(), [&](const layout::Value* value) {
                return isOfModule(value) && read.count(value->section + ":" + value->key) != 0;
            });
        if (own != pattern.values.end() && !isRead) {
            sections.Add(pattern.name.section, Comment(**own) + "# " + pattern.name.key + " = " +
                                                   DefaultText(**own) + "\n");
        }
    }
    return sections;
}

std::string ModuleText(const std::string& module, const std::vector<compile::Answer>& answers) {
    Sections sections;
    std::set<std::string> read;
    for (const compile::Answer& answer : answers) {
        if (answer.module != module || !answer.text || !read.insert(answer.key).second) {
            continue;
        }
        const std::size_t colon = answer.key.rfind(':');
        const layout::Value& value = *Find(module, answer.key)->values.front();
        sections.Add(answer.key.substr(0, colon),
                     Comment(value) + answer.key.substr(colon + 1) + " = " + *answer.text + "\n");
    }
    std::string text = "# Module " + module + "\n" + sections.Text("");
    const std::string unread = UnreadKeys(module, read).Text("# ");
    return unread.empty() ? text : text + "\n# Not read with the counts above:\n" + unread;
}

std::string EntryText(const std::set<std::string, std::less<>>& modules) {
    std::string text =
        "# The modules of this product, and the files that they are in\n\n[module]\nmodule_num = " +
        std::to_string(modules.size()) + "\n";
    std::size_t number = 0;
    for (const std::string& module : modules) {
        text += "module" + std::to_string(++number) + " = " + module + "\n";
    }
    for (const std::string& module : modules) {
        text += "\n[" + module + "]\ncfg_filename = " + module + ".ini\n";
    }
    return text;
}

}  // namespace

std::vector<StarterFile> StarterProduct() {
    Starter starter;
    const compile::Compilation result = compile::CompileImagined(&starter, true);
    std::vector<StarterFile> files = {
        {.path = tree::kEntryName, .bytes = EntryText(starter.modules())}};
    for (const std::string& module : starter.modules()) {
        files.push_back({.path = module + ".ini", .bytes = ModuleText(module, result.answers)});
    }
    return files;
}

}  // namespace paramgen::starter
