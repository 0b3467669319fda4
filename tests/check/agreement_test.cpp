// paramtool check compared with paramgen on random products: good, sparse, bad and hostile ones.
//
// PARAMGEN_TREES is the number of products, PARAMGEN_SEED the number of the first one,
// PARAMGEN_PROGRAM another program to run.

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "check/check.h"
#include "diagnostics/report.h"
#include "golden/random_product.h"
#include "properties/hostile.h"
#include "support/program.h"
#include "support/temp_dir.h"

namespace paramgen::check {
namespace {

using diagnostics::Finding;
using diagnostics::Severity;
using paramgen::testing::Health;
using paramgen::testing::TempDir;
using paramgen::testing::independent::AskedKey;

std::uint64_t FromEnvironment(const char* name, std::uint64_t otherwise) {
    const char* text = std::getenv(name);
    return text == nullptr ? otherwise : std::strtoull(text, nullptr, 10);
}

const std::vector<AskedKey>& Keys() {
    static const std::vector<AskedKey> keys = paramgen::testing::AllKeys();
    return keys;
}

std::string WriteProduct(std::uint64_t number, const TempDir& directory) {
    switch (number % 4) {
        case 0:
            WriteRandomProduct(directory, Keys(), number, Health::kGood);
            return "healthy";
        case 1:
            WriteRandomProduct(directory, Keys(), number, Health::kOneBadValue);
            return "one bad value";
        default:
            return WriteHostileProduct(directory, Keys(), number);
    }
}

void ExpectPlace(const diagnostics::Place& place) {
    EXPECT_FALSE(place.file.empty());
    if (place.line != 0) {
        EXPECT_GE(place.column, 1U);
        EXPECT_GE(place.endColumn, place.column);
    }
}

/// Expects that every finding has a place, and that all output formats can show the findings.
void ExpectForms(const std::vector<Finding>& findings) {
    for (const Finding& finding : findings) {
        ExpectPlace(finding.place);
        EXPECT_FALSE(finding.message.empty());
        for (const diagnostics::Note& note : finding.notes) {
            ExpectPlace(note.place);
        }
    }
    const std::string text = diagnostics::TextReport(findings, false);
    for (const char c : text) {
        EXPECT_TRUE(c == '\n' || static_cast<unsigned char>(c) >= 0x20) << text;
    }
    const std::string json = output::Dumped(diagnostics::JsonReport(findings));
    EXPECT_TRUE(output::Json::accept(json));
    EXPECT_TRUE(output::Json::accept(output::Dumped(diagnostics::SarifReport(findings, "1"))));
    EXPECT_EQ(diagnostics::GithubReport(findings).empty(), findings.empty());
}

TEST(Agreement, CheckHasErrorsExactlyWhenTheProgramFails) {
    const std::uint64_t first = FromEnvironment("PARAMGEN_SEED", 20240611);
    const std::uint64_t count = FromEnvironment("PARAMGEN_TREES", 2000) / 10;
    std::size_t failed = 0;
    for (std::uint64_t number = first; number < first + count; ++number) {
        const TempDir directory;
        const std::string harm = WriteProduct(number, directory);
        SCOPED_TRACE("again: PARAMGEN_TREES=10 PARAMGEN_SEED=" + std::to_string(number) + ": " +
                     harm);
        const int status = paramgen::testing::RunProgram(directory.path()).exitStatus;
        const Verdict verdict = Check(directory.path().string(), {});
        failed += status == 0 ? 0 : 1;
        ASSERT_EQ(diagnostics::Count(verdict.findings).errors != 0, status != 0)
            << diagnostics::TextReport(verdict.findings, false);
        if (number % 5 == 0) {  // they take as long as all the rest
            ExpectForms(verdict.findings);
        }
    }
    std::printf("%llu trees, of which %zu fail\n", static_cast<unsigned long long>(count), failed);
}

}  // namespace
}  // namespace paramgen::check
