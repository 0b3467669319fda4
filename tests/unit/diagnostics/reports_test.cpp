#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "diagnostics/report.h"

namespace paramgen::diagnostics {
namespace {

/// A finding about a part of a line.
Finding FindingAt(const std::string& source, std::uint32_t column, std::uint32_t endColumn) {
    Finding finding;
    finding.id = RuleId::kUnknownKey;
    finding.place = {.file = "p/a.ini",
                     .path = "a.ini",
                     .line = 12,
                     .column = column,
                     .endColumn = endColumn,
                     .source = source};
    finding.message = "unknown key";
    return finding;
}

TEST(TextReport, ShowsTheLineAndACaret) {
    Finding finding = FindingAt("luma_ = 50", 1, 6);
    finding.message = "unknown key 'luma_' in [disp.0.csc]";
    finding.suggestion = "luma";
    EXPECT_EQ(TextReport({finding}, false),
              "p/a.ini:12:1: warning: unknown key 'luma_' in [disp.0.csc]; did you mean 'luma'? "
              "[unknown-key]\n"
              "   12 | luma_ = 50\n"
              "      | ^~~~~\n");
}

TEST(TextReport, CaretsStandRightBehindTabsAndWideCharacters) {
    // A tab; two wide characters and an e with an accent that combines; a tab within the line.
    EXPECT_EQ(TextReport({FindingAt("\tx = 1", 6, 7)}, false),
              "p/a.ini:12:6: warning: unknown key [unknown-key]\n"
              "   12 |         x = 1\n"
              "      |             ^\n");
    EXPECT_EQ(TextReport({FindingAt("\xE4\xB8\xAD\xE6\x96\x87"
                                    "e\xCC\x81=x",
                                    11, 12)},
                         false),
              "p/a.ini:12:11: warning: unknown key [unknown-key]\n"
              "   12 | \xE4\xB8\xAD\xE6\x96\x87"
              "e\xCC\x81=x\n"
              "      |       ^\n");
    EXPECT_EQ(TextReport({FindingAt("a\tb", 3, 4)}, false),
              "p/a.ini:12:3: warning: unknown key [unknown-key]\n"
              "   12 | a       b\n"
              "      |         ^\n");
}

TEST(TextReport, NothingOfTheInputReachesTheTerminal) {
    Finding finding = FindingAt("\x1B[2J = \xE9", 1, 5);
    finding.place.file = "p/\x1B.ini";
    finding.message = "unknown key '\x1B[2J'";
    EXPECT_EQ(TextReport({finding}, false),
              "p/<U+001B>.ini:12:1: warning: unknown key '<U+001B>[2J' [unknown-key]\n"
              "   12 | <U+001B>[2J = <e9>\n"
              "      | ^~~~~~~~~~~\n");
}

TEST(TextReport, NotesAndColours) {
    Finding finding = FindingAt("a = 1", 1, 2);
    finding.notes.push_back({.place = finding.place, .message = "here"});
    EXPECT_NE(TextReport({finding}, false).find("p/a.ini:12:1: note: here\n"), std::string::npos);
    EXPECT_NE(TextReport({finding}, true).find("\x1B[1;35mwarning:\x1B[m"), std::string::npos);
}

TEST(JsonReport, LeavesOutWhatDoesNotApply) {
    Finding finding;
    finding.id = RuleId::kEmptyModule;
    finding.place.file = "a\xE9.ini";
    finding.message = "empty";
    EXPECT_EQ(
        JsonReport({finding}).dump(),
        "{\"schema\":1,\"findings\":[{\"id\":\"empty-module\",\"group\":\"lost\",\"severity\":"
        "\"warning\","
        "\"file\":\"a\xEF\xBF\xBD.ini\",\"message\":\"empty\"}],\"errors\":0,\"warnings\":1}");
}

TEST(SarifReport, ColumnsAreCodePointsAndPathsAreUris) {
    Finding finding = FindingAt("caf\xC3\xA9 = 1", 9, 10);
    finding.place.file = "a b:#/c.ini";
    const output::Json result = SarifReport({finding}, "1")["runs"][0]["results"][0];
    const output::Json& place = result["locations"][0]["physicalLocation"];
    EXPECT_EQ(place["artifactLocation"]["uri"], "a%20b%3A%23/c.ini");
    EXPECT_EQ(place["region"]["startColumn"], 8);
    EXPECT_EQ(place["region"]["endColumn"], 9);
}

std::string FingerprintOf(const std::vector<Finding>& findings, std::size_t index) {
    const output::Json sarif = SarifReport(findings, "1");
    return sarif["runs"][0]["results"][index]["partialFingerprints"]["primaryLocationLineHash"]
        .get<std::string>();
}

TEST(SarifReport, FingerprintsDoNotHangOnLines) {
    const Finding finding = FindingAt("a = 1", 1, 2);
    Finding moved = finding;
    moved.place.line = 99;
    Finding other = finding;
    other.message = "another";
    EXPECT_EQ(FingerprintOf({finding}, 0), FingerprintOf({moved}, 0));
    EXPECT_NE(FingerprintOf({finding}, 0), FingerprintOf({other}, 0));
    EXPECT_NE(FingerprintOf({finding, moved}, 0), FingerprintOf({finding, moved}, 1));
}

TEST(SarifReport, NamesTheHomepageWhereThereIsOne) {
    const output::Json with = SarifReport({}, "1", "https://paramgen.example/");
    EXPECT_EQ(with["runs"][0]["tool"]["driver"]["informationUri"], "https://paramgen.example/");
    const output::Json without = SarifReport({}, "1");
    EXPECT_FALSE(without["runs"][0]["tool"]["driver"].contains("informationUri"));
}

TEST(GithubReport, EscapesAndPutsErrorsFirst) {
    Finding warning = FindingAt("a = 1", 1, 2);
    warning.place.file = "a,b:c.ini";
    warning.message = "100%\nno";
    Finding error = FindingAt("a = 1", 1, 2);
    error.severity = Severity::kError;
    const std::string report = GithubReport({warning, error});
    const std::size_t first = report.find("\n::error file=p/a.ini,line=12,col=1,endColumn=2,");
    const std::size_t second = report.find(
        "\n::warning file=a%2Cb%3Ac.ini,line=12,col=1,endColumn=2,title=unknown-key::"
        "100%25<U+000A>no\n");
    ASSERT_NE(first, std::string::npos) << report;
    ASSERT_NE(second, std::string::npos) << report;
    EXPECT_LT(first, second);
    EXPECT_EQ(report.rfind("::stop-commands::paramtool-", 0), 0U) << report;
    EXPECT_EQ(GithubReport({}), "");
}

TEST(GithubReport, ShowsControlCharactersSafely) {
    Finding finding = FindingAt("a = 1", 1, 2);
    finding.message = "'\x1B[2J' is \xE9";
    finding.notes = {{.place = finding.place, .message = "\x07"}};
    const std::string report = GithubReport({finding});
    EXPECT_NE(report.find("title=unknown-key::'<U+001B>[2J' is <e9>%0Ap/a.ini:12: <U+0007>\n"),
              std::string::npos)
        << report;
    EXPECT_EQ(report.find('\x1B'), std::string::npos);
}

TEST(Findings, AreSortedByPlace) {
    const Finding first = FindingAt("", 1, 1);
    const Finding second = FindingAt("", 2, 2);
    Finding third = FindingAt("", 1, 1);
    third.fileOrder = 1;
    std::vector<Finding> findings = {third, second, first};
    Sort(&findings);
    EXPECT_EQ(findings[0].place.column, 1U);
    EXPECT_EQ(findings[1].place.column, 2U);
    EXPECT_EQ(findings[2].fileOrder, 1U);
}

}  // namespace
}  // namespace paramgen::diagnostics
