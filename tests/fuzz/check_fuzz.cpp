// The companion's check, compared with the loaders. An input is a product.

#include <algorithm>
#include <string>
#include <vector>

#include "check/check.h"
#include "diagnostics/report.h"
#include "fuzz/fuzz.h"
#include "fuzz/product.h"
#include "log/console_log.h"
#include "log/library_log.h"

namespace paramgen::testing {
namespace {

using diagnostics::Finding;
using diagnostics::Place;

/// Whether the program would fail.
bool IsRefused() {
    const InFuzzDirectory working;
    ConsoleLogSetup(0, 0, kConsoleDebug);
    ZV_LOG_SetThreshold(kLibraryFatal + 1);
    return LoadProduct() != 0;
}

void RequirePlace(const Place& place) {
    Require(!place.file.empty(), "a finding is in a file");
    Require((place.line == 0) == (place.column == 0), "a line has a column");
    Require(place.line == 0 || place.endColumn >= place.column, "columns are in order");
}

void RequireShownSafely(const std::string& text) {
    const auto isSafe = [](char c) { return c == '\n' || static_cast<unsigned char>(c) >= 0x20; };
    Require(std::all_of(text.begin(), text.end(), isSafe), "no control character is shown");
}

void RequirePlaces(const std::vector<Finding>& findings) {
    for (const Finding& finding : findings) {
        RequirePlace(finding.place);
        Require(!finding.message.empty(), "a finding has a message");
        for (const diagnostics::Note& note : finding.notes) {
            RequirePlace(note.place);
        }
    }
}

void RequireForms(const std::vector<Finding>& findings) {
    Require(output::Json::accept(output::Dumped(diagnostics::JsonReport(findings))),
            "findings are valid JSON");
    RequireShownSafely(diagnostics::TextReport(findings, false));
    RequireShownSafely(diagnostics::GithubReport(findings));
    Require(output::Json::accept(output::Dumped(diagnostics::SarifReport(findings, "1"))),
            "findings are valid SARIF");
}

}  // namespace
}  // namespace paramgen::testing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace paramgen;
    if (!testing::PrepareProduct({data, size})) {
        return 0;
    }
    const bool isRefused = testing::IsRefused();
    check::Choice choice;
    // Missing keys and the forms of findings take most of the time: each only in some runs.
    if (size % 16 == 0) {
        choice.enabled = {"all"};
    }
    const check::Verdict verdict = check::Check(testing::FuzzDirectory(), choice);
    testing::Require((diagnostics::Count(verdict.findings).errors != 0) == isRefused,
                     "there are errors exactly when the program fails");
    testing::RequirePlaces(verdict.findings);
    if (size % 32 < 2) {
        testing::RequireForms(verdict.findings);
    }
    return 0;
}
