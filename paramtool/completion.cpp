#include <memory>

#include "paramtool/command.h"
#include "paramtool/completer.h"

namespace paramgen::paramtool {
namespace {

// The shells ask the program itself, `paramtool complete -- WORD...`, so that what they offer is
// what it knows. Its answer: "none", "files" or "directories", then a line for each word, with its
// description behind a tab.

constexpr char kBash[] = R"bash(# paramtool completion for bash
_paramtool() {
    # Words as the program gets them: bash cuts them at ':' and '=' as well.
    local line=${COMP_LINE:0:COMP_POINT} words=() piece i
    for ((i = 0; i <= COMP_CWORD; i++)); do
        piece=${COMP_WORDS[i]}
        if ((i == 0)) || [[ $line == [[:blank:]]* ]]; then
            words+=("")
            line=${line#"${line%%[![:blank:]]*}"}
        fi
        ((i < COMP_CWORD)) || piece=$line
        words[-1]+=${piece//[\\\"\']/}
        line=${line#"$piece"}
    done
    local current=${words[-1]} answer
    mapfile -t answer <<<"$("${words[0]/#\~/$HOME}" complete -- "${words[@]:1}" 2>/dev/null)"
    COMPREPLY=("${answer[@]:1}")
    COMPREPLY=("${COMPREPLY[@]%%$'\t'*}")
    case ${answer[0]} in
    files | directories)
        compopt -o filenames 2>/dev/null
        local kind=-f paths
        [[ ${answer[0]} == files ]] || kind=-d
        paths=$(compgen "$kind" -- "${current#--*=}") &&
            mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY <<<"$paths"
        ;;
    esac
    [[ ${#COMPREPLY[@]} != 1 || ${COMPREPLY[0]} != *[/:=] ]] || compopt -o nospace 2>/dev/null
    # What stands before the last cut stays as it was typed.
    local cut=${current%"${current##*[:=]}"}
    if [[ -n $cut && ${answer[0]} == none && $COMP_WORDBREAKS == *:* ]]; then
        COMPREPLY=("${COMPREPLY[@]/#${cut//?/?}/}")
    fi
}
complete -F _paramtool paramtool
)bash";

constexpr char kZsh[] = R"zsh(#compdef paramtool
# paramtool completion for zsh
_paramtool() {
    local -a answer full open shown openshown
    local line word
    answer=("${(@f)$("${(Q)words[1]}" complete -- "${(@Q)words[2,CURRENT]}" 2>/dev/null)}")
    for line in "${(@)answer[2,-1]}"; do
        word=${line%%$'\t'*}
        if [[ $word == *[/:=] ]]; then
            open+=("$word"); openshown+=("$word")
        else
            full+=("$word")
            [[ -n ${line#*$'\t'} ]] && shown+=("$word  -- ${line#*$'\t'}") || shown+=("$word")
        fi
    done
    (( $#full )) && compadd -M 'm:{a-zA-Z}={A-Za-z}' -l -d shown -a full
    (( $#open )) && compadd -M 'm:{a-zA-Z}={A-Za-z}' -S '' -d openshown -a open
    [[ $PREFIX == --*=* && $answer[1] != none ]] && compset -P '*='
    case $answer[1] in
    files) _files ;;
    directories) _files -/ ;;
    esac
}
if [[ $funcstack[1] == _paramtool ]]; then
    _paramtool "$@"
else
    compdef _paramtool paramtool
fi
)zsh";

constexpr char kFish[] = R"fish(# paramtool completion for fish
function __paramtool_complete
    set -l words (commandline -opc) (commandline -ct)
    set -l answer ($words[1] complete -- $words[2..-1] 2>/dev/null)
    # In --option=VALUE the value is completed, and the option stays in front of it.
    set -l option (string match -r -- '^--[^=]*=' $words[-1])
    set -l typed (string replace -r -- '^--[^=]*=' '' $words[-1])
    set -l paths
    switch "$answer[1]"
        case files
            set paths (__fish_complete_path $typed)
        case directories
            set paths (__fish_complete_directories $typed '')
    end
    string join \n -- "$option"$paths
    string join \n -- $answer[2..-1]
end
complete -c paramtool -f -a '(__paramtool_complete)'
)fish";

void Answer(const CLI::App& app, const std::vector<std::string>& words) {
    static constexpr const char* kPaths[] = {"none", "files", "directories"};
    const Completion completion = Complete(app, words);
    std::string text = std::string(kPaths[static_cast<int>(completion.paths)]) + "\n";
    for (const Candidate& candidate : completion.candidates) {
        text += candidate.text + "\t" + candidate.description + "\n";
    }
    output::WriteResult("", text);
}

}  // namespace

void AddCompletion(CLI::App& app, int* status) {
    struct Options {
        std::string shell;
        std::string file;
    };
    const auto options = std::make_shared<Options>();
    CLI::App* command =
        app.add_subcommand("completion", "print what lets a shell complete commands");
    command->footer(
        "Example: paramtool completion bash "
        ">~/.local/share/bash-completion/completions/paramtool");
    command
        ->add_option("-o,--output", options->file, "write the result to FILE, whole or not at all")
        ->option_text("FILE");
    command->add_option("SHELL", options->shell, "bash, zsh or fish")
        ->required()
        ->check(CLI::IsMember(std::vector<std::string>{"bash", "zsh", "fish"}))
        ->option_text("bash|zsh|fish");
    command->callback([options, status] {
        const char* text = options->shell == "bash"  ? kBash
                           : options->shell == "zsh" ? kZsh
                                                     : kFish;
        output::WriteResult(options->file, text);
        *status = kAllWell;
    });
}

void AddComplete(CLI::App& app, int* status) {
    const auto words = std::make_shared<std::vector<std::string>>();
    CLI::App* command = app.add_subcommand("complete", "tell what a word could become")->group("");
    command->add_option("WORD", *words,
                        "words behind the program's name; the last one is completed");
    command->callback([words, status, &app] {
        Answer(app, *words);
        *status = kAllWell;
    });
}

}  // namespace paramgen::paramtool
