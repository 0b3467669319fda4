#include <CLI/CLI.hpp>
#include <memory>

#include "check/check.h"
#include "diagnostics/report.h"
#include "output/shown_text.h"
#include "paramtool/command.h"
#include "paramtool/known_findings.h"
#include "paramtool/tree_jobs.h"

namespace paramgen::paramtool {
namespace {

using diagnostics::Finding;
using diagnostics::Rule;
using diagnostics::Severity;

struct CheckOptions {
    ResultOptions result;
    std::vector<std::string> trees;
    check::Choice choice;
    std::vector<std::string> failing;  ///< --error
    bool isStrict = false;
    std::string against;
    unsigned jobs = 1;
};

/// Accepts ids and groups of findings.
std::string CheckName(const std::string& name) {
    if (diagnostics::FindRule(name) != nullptr || diagnostics::IsGroup(name)) {
        return "";
    }
    return "no finding or group of findings is called '" + output::Shown(name) + "'";
}

/// The results of all trees together.
struct Totals {
    std::size_t errors = 0;
    std::size_t warnings = 0;
    std::size_t failing = 0;    ///< warnings that were made to fail
    std::size_t oldErrors = 0;  ///< errors that are not shown because they are not new
};

std::string Plural(std::size_t count, const char* noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

/// The one line behind all findings, on standard error.
void TellSummary(const Totals& totals, std::size_t trees, const std::string& lacking) {
    const bool hasNothing =
        totals.errors + totals.warnings + totals.oldErrors == 0 && lacking.empty();
    if (hasNothing) {
        return;
    }
    std::string text = Plural(totals.errors, "error") + ", " + Plural(totals.warnings, "warning");
    if (trees > 1) {
        text += " in " + std::to_string(trees) + " trees";
    }
    if (totals.oldErrors != 0) {
        text += "; " + Plural(totals.oldErrors, "error") + " not shown, known before";
    }
    Tell("paramtool: " + text + lacking);
}

class CheckRun {
public:
    explicit CheckRun(const CheckOptions& options) : options_(options) {}

    int Run() {
        if (!options_.against.empty()) {
            known_ = KnownFindings::Load(options_.against, options_.choice);
        }
        const auto take = [this](std::size_t index, check::Verdict verdict) {
            Take(options_.trees[index], std::move(verdict));
        };
        CheckTrees(options_.trees, options_.choice, options_.jobs, take);
        WriteAll();
        TellSummary(totals_, options_.trees.size(), lacking_);
        return totals_.errors + totals_.failing + totals_.oldErrors == 0 ? kAllWell : kFound;
    }

private:
    bool IsFailing(const Finding& finding) const {
        const Rule& rule = diagnostics::RuleOf(finding.id);
        const auto names = [&](const std::string& name) { return IsNamed(rule, name); };
        return options_.isStrict ||
               std::any_of(options_.failing.begin(), options_.failing.end(), names);
    }

    /// Adds the verdict on a tree. Trees come in the order of the arguments.
    void Take(const std::string& tree, check::Verdict verdict) {
        totals_.oldErrors += known_.Remove(&verdict.findings);
        for (const Finding& finding : verdict.findings) {
            const bool isError = finding.severity == Severity::kError;
            ++(isError ? totals_.errors : totals_.warnings);
            totals_.failing += !isError && IsFailing(finding) ? 1 : 0;
        }
        for (const std::string& module : verdict.lacking) {
            lacking_ += lacking_.empty() || options_.trees.size() > 1 ? "; image lacks " : ", ";
            lacking_ += output::Shown(module);
            if (options_.trees.size() > 1) {
                lacking_ += " in " + output::Shown(tree);
            }
        }
        const bool isStreamed = options_.result.format == "text" && options_.result.file.empty();
        if (isStreamed) {
            options_.result.Write(
                diagnostics::TextReport(verdict.findings, options_.result.IsColored()));
            return;
        }
        std::move(verdict.findings.begin(), verdict.findings.end(), std::back_inserter(findings_));
    }

    void WriteAll() const {
        const std::string& format = options_.result.format;
        if (format == "json") {
            options_.result.Write(output::Dumped(diagnostics::JsonReport(findings_)));
        } else if (format == "sarif") {
            options_.result.Write(output::Dumped(
                diagnostics::SarifReport(findings_, PARAMGEN_VERSION, PARAMGEN_HOMEPAGE)));
        } else if (format == "github") {
            options_.result.Write(diagnostics::GithubReport(findings_));
        } else if (!options_.result.file.empty()) {
            options_.result.Write(diagnostics::TextReport(findings_, options_.result.IsColored()));
        }
    }

    const CheckOptions& options_;
    KnownFindings known_;
    Totals totals_;
    std::string lacking_;
    std::vector<Finding> findings_;
};

void AddOptions(CLI::App* command, CheckOptions* options) {
    options->result.AddTo(command, {"text", "json", "sarif", "github"});
    const CLI::Validator isName(CheckName, "");
    command->add_option("--enable", options->choice.enabled, "look for these findings as well")
        ->check(isName)
        ->option_text("ID|GROUP ...");
    command->add_option("--disable", options->choice.disabled, "do not look for these findings")
        ->check(isName)
        ->option_text("ID|GROUP ...");
    command->add_option("--error", options->failing, "let these warnings fail the check")
        ->check(isName)
        ->option_text("ID|GROUP ...");
    command->add_flag("--strict", options->isStrict, "let every warning fail the check");
    command
        ->add_option("--against", options->against,
                     "show only what is new since this tree, or this file of findings (JSON)")
        ->option_text("TREE|FINDINGS.json");
    command->add_option("--jobs,-j", options->jobs, "check N trees at a time (default 1)")
        ->check(CLI::Range(1U, 1024U))
        ->option_text("N");
    for (const char* name : {"--enable", "--disable", "--error"}) {
        command->get_option(name)->delimiter(',')->expected(1)->multi_option_policy(
            CLI::MultiOptionPolicy::TakeAll);
    }
    command->add_option("TREE", options->trees, "directories with a config_cfgaccess_entry.ini")
        ->required();
}

}  // namespace

void AddCheck(CLI::App& app, int* status) {
    const auto options = std::make_shared<CheckOptions>();
    CLI::App* command = app.add_subcommand("check", "tell everything that is wrong in trees");
    command->footer(
        "Exit status: 0 when nothing is wrong, 1 when paramgen would fail or a warning was made "
        "to\n"
        "fail, 2 for wrong usage.\n"
        "Example: paramtool check --error lost examples/dashcam");
    AddOptions(command, options.get());
    command->callback([options, status] { *status = CheckRun(*options).Run(); });
}

}  // namespace paramgen::paramtool
