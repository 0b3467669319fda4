#include "decompile/writer.h"

#include <unordered_map>
#include <unordered_set>

#include "layout/layout.h"
#include "tree/product.h"
#include "tree/spelling.h"

namespace paramgen::decompile {
namespace {

/// The sections of a module's file, in the order in which their keys are asked for.
class ModuleText {
public:
    void Add(const std::string& key, const std::string& value) {
        const std::size_t colon = key.rfind(':');
        const auto [lines, isNew] = lines_.try_emplace(key.substr(0, colon));
        if (isNew) {
            sections_.push_back(lines->first);
        }
        lines->second.append(key, colon + 1).append(" = ").append(value).append("\n");
    }

    std::string Text() const {
        std::string text;
        for (const std::string& section : sections_) {
            text += (text.empty() ? "[" : "\n[") + section + "]\n" + lines_.at(section);
        }
        return text;
    }

private:
    std::vector<std::string> sections_;
    std::unordered_map<std::string, std::string> lines_;  ///< by section
};

/// The modules of a solution in the order of the image, lens modules last.
std::vector<std::string> ModulesOf(const Keys& keys) {
    std::vector<std::string> modules;
    std::set<std::string> left(keys.modules.begin(), keys.modules.end());
    for (const std::string& module : layout::Modules()) {
        if (left.erase(module) != 0) {
            modules.push_back(module);
        }
    }
    modules.insert(modules.end(), left.begin(), left.end());
    return modules;
}

std::string EntryText(const std::vector<std::string>& modules) {
    std::string text = "[module]\nmodule_num = " + std::to_string(modules.size()) + "\n";
    for (std::size_t i = 0; i < modules.size(); ++i) {
        text += "module" + std::to_string(i + 1) + " = " + modules[i] + "\n";
    }
    for (const std::string& module : modules) {
        text.append("\n[").append(module).append("]\npath = ./\ncfg_filename = ");
        text.append(module).append(".ini\n");
    }
    return text;
}

}  // namespace

std::vector<TreeFile> NewTree(const Solution& solution) {
    std::unordered_map<std::string, ModuleText> texts;
    std::unordered_set<KeyId> written;
    for (std::size_t i = 0; i < solution.asked.ids.size(); ++i) {
        const KeyId id = solution.asked.ids[i];
        const compile::Answer& answer = solution.asked.answers[i];
        const auto found = solution.keys.texts.find(id);
        if (found != solution.keys.texts.end() && written.insert(id).second) {
            const std::optional<std::string> spelled = tree::Spelled(found->second);
            if (spelled) {
                texts[answer.module].Add(answer.key, *spelled);
            }
        }
    }
    const std::vector<std::string> modules = ModulesOf(solution.keys);
    std::vector<TreeFile> files = {{.path = tree::kEntryName, .bytes = EntryText(modules)}};
    for (const std::string& module : modules) {
        files.push_back({.path = module + ".ini", .bytes = texts[module].Text()});
    }
    return files;
}

}  // namespace paramgen::decompile
