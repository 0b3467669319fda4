#include "paramtool/completer.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <map>
#include <string_view>

#include "diagnostics/rule.h"
#include "layout/layout.h"
#include "paramtool/arguments.h"

namespace paramgen::paramtool {
namespace {

bool BeginsWith(std::string_view text, std::string_view begin) {
    const auto same = [](unsigned char a, unsigned char b) {
        return std::tolower(a) == std::tolower(b);
    };
    return text.size() >= begin.size() &&
           std::equal(begin.begin(), begin.end(), text.begin(), same);
}

std::string FirstLine(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

/// The command line up to the word that is completed.
struct Position {
    const CLI::App* command;
    const CLI::Option* option = nullptr;  ///< it is this option's value
    std::size_t arguments = 0;            ///< arguments of the command before it
    bool onlyArguments = false;           ///< behind "--"
};

const CLI::Option* OptionNamed(const CLI::App& command, std::string_view name) {
    for (const CLI::Option* option : OptionsOf(command)) {
        const std::vector<std::string> names = NamesOf(*option);
        if (std::find(names.begin(), names.end(), name) != names.end()) {
            return option;
        }
    }
    return nullptr;
}

const CLI::App* CommandNamed(const CLI::App& app, std::string_view name) {
    for (const CLI::App* command : VisibleCommands(app)) {
        if (command->get_name() == name) {
            return command;
        }
    }
    return nullptr;
}

/// Goes on by one word.
void Pass(std::string_view word, Position* position) {
    if (position->option != nullptr) {
        position->option = nullptr;
    } else if (!position->onlyArguments && word == "--") {
        position->onlyArguments = true;
    } else if (!position->onlyArguments && word.size() > 1 && word.front() == '-') {
        const CLI::Option* option = OptionNamed(*position->command, word);
        position->option = option != nullptr && !PlaceholderOf(*option).empty() ? option : nullptr;
    } else if (const CLI::App* command = CommandNamed(*position->command, word)) {
        *position = {command};
    } else {
        ++position->arguments;
    }
}

/// The argument of its command that `position` is at; null when there are no more.
const CLI::Option* ArgumentAt(const Position& position) {
    std::size_t left = position.arguments;
    for (const CLI::Option* argument : ArgumentsOf(*position.command)) {
        if (left == 0 || IsRepeated(*argument)) {
            return argument;
        }
        --left;
    }
    return nullptr;
}

/// Collects what begins with the typed text.
class Collector {
public:
    explicit Collector(std::string_view typed) : typed_(typed) {}

    void Add(const std::string& text, const std::string& description) {
        if (BeginsWith(text, typed_)) {
            found_.emplace(text, description);
        }
    }

    /// Adds `name` up to the end of that part of it in which the typed text ends: a module with its
    /// slash, then a section with its colon, then the key, with `end` behind it.
    void AddPart(const std::string& name, const std::string& end, const std::string& description) {
        if (!BeginsWith(name, typed_)) {
            return;
        }
        const std::size_t stop = name.find_first_of("/:", typed_.size());
        if (stop == std::string::npos) {
            found_.emplace(name + end, description);
        } else {
            found_.emplace(name.substr(0, stop + 1), "");
        }
    }

    bool IsEmpty() const { return found_.empty(); }

    /// All of it, `before` in front of each.
    std::vector<Candidate> Take(const std::string& before) const {
        std::vector<Candidate> candidates;
        for (const auto& [text, description] : found_) {
            candidates.push_back({before + text, description});
        }
        return candidates;
    }

private:
    std::string_view typed_;
    std::map<std::string, std::string> found_;
};

std::string DescriptionOf(const layout::Key& key) {
    return key.values.empty() ? "" : FirstLine(key.values.front()->About());
}

/// Keys with `end` behind them: by module, else by section, else alone.
void AddKeys(const std::string& end, Collector* found) {
    for (const layout::Key& key : layout::Keys()) {
        found->AddPart(layout::Text(key.name), end, DescriptionOf(key));
    }
    if (found->IsEmpty()) {
        for (const layout::Key& key : layout::Keys()) {
            found->AddPart(key.name.section + ":" + key.name.key, end, DescriptionOf(key));
        }
    }
    if (found->IsEmpty()) {
        for (const layout::Key& key : layout::Keys()) {
            found->AddPart(key.name.key, end, DescriptionOf(key));
        }
    }
}

/// Kinds of findings, or their groups.
void AddFindings(bool areGroups, Collector* found) {
    if (areGroups) {
        found->Add("all", "all findings");
    }
    for (const diagnostics::Rule& rule : diagnostics::Rules()) {
        if (areGroups) {
            found->Add(std::string(rule.group), "findings of this group");
        } else {
            found->Add(std::string(rule.name), std::string(rule.summary));
        }
    }
}

bool IsFile(const std::string& placeholder) {
    static constexpr std::string_view kNames[] = {"IMAGE", "OLD", "NEW"};
    return std::any_of(std::begin(kNames), std::end(kNames),
                       [&](std::string_view name) { return BeginsWith(placeholder, name); }) ||
           placeholder.find("FILE") != std::string::npos ||
           placeholder.find(".json") != std::string::npos;
}

/// The parts of "A|B|C".
std::vector<std::string> Alternatives(const std::string& placeholder) {
    std::vector<std::string> parts = {""};
    for (const char c : placeholder) {
        if (c == '|') {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

/// Adds what can stand for one alternative of a placeholder.
void AddFor(const std::string& alternative, Collector* found, Paths* paths) {
    const auto isLower = [](unsigned char c) { return std::isupper(c) == 0; };
    if (std::all_of(alternative.begin(), alternative.end(), isLower)) {
        found->Add(alternative, "");
    } else if (BeginsWith(alternative, "KEY")) {
        AddKeys(BeginsWith(alternative, "KEY=") ? "=" : "", found);
    } else if (BeginsWith(alternative, "TREE") || BeginsWith(alternative, "DIR")) {
        *paths = *paths == Paths::kNone ? Paths::kDirectories : *paths;
    } else if (alternative == "ID" || BeginsWith(alternative, "GROUP")) {
        AddFindings(alternative != "ID", found);
    } else if (IsFile(alternative)) {
        *paths = Paths::kFiles;
    }
}

Completion CompleteValue(const CLI::Option& option, std::string_view typed,
                         const std::string& before) {
    Completion completion;
    Collector found(typed);
    for (const std::string& alternative : Alternatives(PlaceholderOf(option))) {
        AddFor(alternative, &found, &completion.paths);
    }
    completion.candidates = found.Take(before);
    return completion;
}

Completion CompleteOption(const CLI::App& command, const std::string& typed) {
    const std::size_t equals = typed.find('=');
    if (equals != std::string::npos) {
        const CLI::Option* option = OptionNamed(command, typed.substr(0, equals));
        return option == nullptr
                   ? Completion{}
                   : CompleteValue(*option, std::string_view(typed).substr(equals + 1),
                                   typed.substr(0, equals + 1));
    }
    Collector found(typed);
    for (const CLI::Option* option : OptionsOf(command)) {
        for (const std::string& name : NamesOf(*option)) {
            found.Add(name, FirstLine(option->get_description()));
        }
    }
    return {found.Take(""), Paths::kNone};
}

}  // namespace

Completion Complete(const CLI::App& app, const std::vector<std::string>& words) {
    if (words.empty()) {
        return {};
    }
    Position position{&app};
    for (std::size_t i = 0; i + 1 < words.size(); ++i) {
        Pass(words[i], &position);
    }
    const std::string& typed = words.back();
    if (position.option != nullptr) {
        return CompleteValue(*position.option, typed, "");
    }
    if (!position.onlyArguments && typed.size() > 0 && typed.front() == '-') {
        return CompleteOption(*position.command, typed);
    }
    if (const CLI::Option* argument = ArgumentAt(position)) {
        return CompleteValue(*argument, typed, "");
    }
    Collector found(typed);
    for (const CLI::App* command : VisibleCommands(*position.command)) {
        found.Add(command->get_name(), FirstLine(command->get_description()));
    }
    return {found.Take(""), Paths::kNone};
}

}  // namespace paramgen::paramtool
