// One small tree for each kind of finding: it is found at its place, and nothing else is; and a
// tree that is nearly the same, in which nothing is found.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "check/check.h"
#include "diagnostics/report.h"
#include "unit/check/changes.h"

namespace paramgen::check {
namespace {

using diagnostics::Finding;
using diagnostics::RuleOf;
using diagnostics::Severity;
using paramgen::testing::TempDir;
using testing::Add;
using testing::Append;
using testing::Both;
using testing::Change;
using testing::CheckOf;
using testing::Nothing;
using testing::Remove;
using testing::Replace;
using testing::Set;

constexpr char kEntry[] = "config_cfgaccess_entry.ini";
constexpr char kMode0[] = "[common]\nmediamode = QX_PARAM_MEDIAMODE_1080P_30\n";

/// A kind of finding: a change of the small product that causes it, and its place,
/// "file:line:column-endColumn" or "file" alone; and a similar change that must not cause it.
struct Case {
    const char* id;
    Change spoil;
    std::string place;
    Change fine;
    bool isError = false;
    const char* enable = "";  ///< option that turns the kind on, if it is off by default
};

void AddEntryCases(std::vector<Case>* cases) {
    const std::string file = kEntry;
    cases->push_back({"entry-missing", Remove(kEntry), file, Nothing(), true});
    cases->push_back({"module-count", Replace(kEntry, "module_num = 10", "module_num = 0"),
                      file + ":2:14-15", Nothing(), true});
    cases->push_back({"module-name-missing", Replace(kEntry, "module10 = ", "module11 = "),
                      file + ":2:14-16", Nothing(), true});
    cases->push_back({"module-incomplete",
                      Replace(kEntry, "cfg_filename = devmng.ini", "cfg_filename ="),
                      file + ":20:1-13", Nothing(), true});
    cases->push_back({"module-repeated", Replace(kEntry, "module5 = filemng", "module5 = devmng"),
                      file + ":7:11-17", Nothing(), true});
    cases->push_back({"path-too-long",
                      Both(Add("cam0_comm_playback", "[vcap.dev]\nenable = no\n"),
                           Append(kEntry, "path = /" + std::string(255, 'p') + "\n")),
                      file + ":36:8-264", Add("cam0_comm_playback", "[vcap.dev]\nenable = no\n")});
    cases->push_back({"octal", Replace(kEntry, "module_num = 10", "module_num = 012"),
                      file + ":2:14-17", Replace(kEntry, "module_num = 10", "module_num = 0xA")});
    cases->push_back({"path-ignored", Append(kEntry, "[workmode_record]\npath = sub\n"),
                      file + ":34:8-11", Append(kEntry, "[workmode_record]\npath = ./\n")});
    cases->push_back({"module-uncounted",
                      Both(Append(kEntry, "[module]\nmodule11 = cam0_comm_playback\n"), Nothing()),
                      file + ":34:1-9", Nothing()});
}

void AddLostCases(std::vector<Case>* cases) {
    const std::string file = kEntry;
    const Change playback = Add("cam0_comm_playback", "[vcap.dev]\nenable = no\n");
    const std::string playbackFile = "cam0_comm_playback.ini";
    cases->push_back(
        {"module-unreadable", Both(playback, Remove(playbackFile)), file + ":35:16-38", playback});
    cases->push_back({"module-missing",
                      Both(Replace(kEntry, "module_num = 10", "module_num = 9"),
                           Replace(kEntry, "module10 = workmode_record\n", "")),
                      file + ":2:14-15", Nothing(), true});
    cases->push_back(
        {"empty-module", Set("workmode_common.ini", ""), "workmode_common.ini", Nothing()});
    cases->push_back({"encoding", Set("workmode_common.ini", "\xEF\xBB\xBF[common]\nx = 1\n"),
                      "workmode_common.ini:1:1-4", Nothing(), true});
    cases->push_back({"syntax", Append("workmode_common.ini", "  nonsense \n"),
                      "workmode_common.ini:3:3-11", Append("workmode_common.ini", "# text\n"),
                      true});
    cases->push_back({"line-too-long",
                      Append("workmode_common.ini", "#" + std::string(1022, 'x') + "\n"),
                      "workmode_common.ini:3:1-1024",
                      Append("workmode_common.ini", "#" + std::string(1021, 'x') + "\n"), true});
    cases->push_back({"nul-byte", Append("workmode_common.ini", std::string("# a\0b\n", 6)),
                      "workmode_common.ini:3:4-5", Nothing(), true});
    cases->push_back({"line-ignored", Append("workmode_common.ini", "# a\\"),
                      "workmode_common.ini:3:1-5", Append("workmode_common.ini", "# a\\\n")});
}

void AddValueCases(std::vector<Case>* cases) {
    const auto set = [](const std::string& text) { return Set("devmng.ini", text); };
    const std::string file = "devmng.ini";
    cases->push_back({"number-out-of-range", set("[gsensor]\nsensitivity = 2147483648\n"),
                      file + ":2:15-25", set("[gsensor]\nsensitivity = 2147483647\n"), true});
    cases->push_back({"text-too-long", set("[devinfo]\nmodel = " + std::string(64, 'm') + "\n"),
                      file + ":2:9-73", set("[devinfo]\nmodel = " + std::string(63, 'm') + "\n"),
                      true});
    cases->push_back(
        {"unknown-name",
         Set("media_common.ini", "[disp.0.csc]\ncscmatrix = QX_MAPI_DISP_CSC_MATRIX_BT709\n"),
         "media_common.ini:2:13-42",
         Set("media_common.ini",
             "[disp.0.csc]\ncscmatrix = QX_MAPI_DISP_CSC_MATRIX_BT709FULL_TO_RGBFULL\n"),
         true});
    cases->push_back({"count-too-large", Set("valueset.ini", "[cam.0.burst.mediamode]\nnum = 11\n"),
                      "valueset.ini:2:7-9", Nothing(), true});
    cases->push_back(
        {"mask-negative",
         Add("cam0_mediamode0", std::string(kMode0) + "[vcap.dev]\ncomponentmask1 = -1\n"),
         "cam0_mediamode0.ini:4:18-20",
         Add("cam0_mediamode0", std::string(kMode0) + "[vcap.dev]\ncomponentmask1 = 1\n"), true});
    cases->push_back({"not-a-number", set("[gsensor]\nsensitivity = high\n"), file + ":2:15-19",
                      set("[gsensor]\nsensitivity = 3\n")});
    cases->push_back({"trailing-text", set("[gsensor]\nsensitivity = 2M\n"), file + ":2:15-17",
                      set("[gsensor]\nsensitivity = 2 # M\n")});
    cases->push_back({"hexadecimal", set("[gsensor]\nsensitivity = 0x2\n"), file + ":2:15-18",
                      set("[gsensor]\nsensitivity = 02\n")});
    cases->push_back({"number-truncated",
                      Set("media_common.ini", "[venc.snap.single]\nlargethumbnail_num = 300\n"),
                      "media_common.ini:2:22-25",
                      Set("media_common.ini", "[venc.snap.single]\nlargethumbnail_num = 2\n")});
    cases->push_back({"number-negative", Set("media_common.ini", "[disp.0.csc]\nluma = -1\n"),
                      "media_common.ini:2:8-10",
                      Set("media_common.ini", "[disp.0.csc]\nluma = 1\n")});
    cases->push_back({"not-a-boolean", set("[keytone]\nenable = on\n"), file + ":2:10-12",
                      set("[keytone]\nenable = True\n")});
    cases->push_back(
        {"float-range",
         Add("cam0_mediamode0", std::string(kMode0) + "[vcap.pipe.0]\nisp_framerate = 1e99\n"),
         "cam0_mediamode0.ini:4:17-21",
         Add("cam0_mediamode0", std::string(kMode0) + "[vcap.pipe.0]\nisp_framerate = 29.97\n")});
    cases->push_back({"value-cut", set("[devinfo]\nmodel = a;b\n"), file + ":2:9-10",
                      set("[devinfo]\nmodel = a ;b\n")});
    cases->push_back({"quote", set("[devinfo]\nmodel = 'a' b\n"), file + ":2:10-11",
                      set("[devinfo]\nmodel = 'a' # b\n")});
}

void AddStructureCases(std::vector<Case>* cases) {
    const std::string file = "devmng.ini";
    const Change twoOverlays =
        Set("workmode_photo.ini", "[osd]\nosdcnt = 1\n[osd.0]\ntype = 1\n[osd.1]\ntype = 1\n");
    cases->push_back({"unknown-key", Append(file, "enabel = yes\n"), file + ":3:1-7",
                      Append(file, "[bootsound]\nENABLE = yes\n")});
    cases->push_back({"unknown-section", Append(file, "[bootsnd]\nenable = yes\n"), file + ":3:2-9",
                      Append(file, "[BootSound]\nenable = yes\n")});
    cases->push_back({"unread-key", twoOverlays, "workmode_photo.ini:6:1-5",
                      Set("workmode_photo.ini", "[osd]\nosdcnt = 1\n[osd.0]\ntype = 1\n")});
    cases->push_back({"unused-module", Add("cam1_comm", "[camera]\nenable = yes\n"),
                      std::string(kEntry) + ":3:12-21", Nothing()});
    cases->push_back({"duplicate-key", Append(file, "Enable = no\n"), file + ":3:1-7",
                      Append(file, "[buzzer]\nenable = no\n")});
    cases->push_back({"key-hidden-by-section",
                      Append(file,
                             "[keytone:enable]\n[gsensor]\n"
                             "sensitivity = 1\n"),
                      file + ":2:1-7", Nothing()});
    cases->push_back({"section-comment", Append(file, "[bootsound] # a = b\nenable = no\n"),
                      file + ":3:1-16", Append(file, "[bootsound] ; a = b\nenable = no\n")});
    std::string menu = "[volume]\nnum = 11\n";
    for (int i = 0; i < 11; ++i) {
        menu += "value" + std::to_string(i) + " = 1\n";
    }
    cases->push_back({"count-beyond-array", Set("valueset.ini", menu), "valueset.ini:2:7-9",
                      Set("valueset.ini", "[volume]\nnum = 1\nvalue0 = 1\n")});
    std::string overlays = "[osd]\nosdcnt = 17\n";
    for (int i = 0; i < 16; ++i) {
        overlays += "[osd." + std::to_string(i) + "]\ntype = 1\n";
    }
    cases->push_back({"count-clamped", Set("workmode_photo.ini", overlays),
                      "workmode_photo.ini:2:10-12", Nothing()});
    cases->push_back({"count-unfilled", Set("workmode_photo.ini", "[osd]\nosdcnt = 1\n"),
                      "workmode_photo.ini:2:10-11",
                      Set("workmode_photo.ini", "[osd]\nosdcnt = 1\n[osd.0]\ntype = 1\n")});
    cases->push_back(
        {"unlisted-file", Set("other.ini", ""), "other.ini", Nothing(), false, "unlisted-file"});
}

void AddReferenceCases(std::vector<Case>* cases) {
    const std::string encoders = "[venc.0]\nenable = yes\nvenchdl = 4\n";
    const std::string source = "[photosource.0]\nenable = yes\nvenchdl = ";
    cases->push_back(
        {"handle-unknown",
         Both(Set("cam0_comm_photo.ini", encoders), Append("workmode_photo.ini", source + "5\n")),
         "workmode_photo.ini:5:11-12",
         Both(Set("cam0_comm_photo.ini", encoders),
              Append("workmode_photo.ini", source + "-1\n"))});
    cases->push_back(
        {"handle-repeated",
         Set("cam0_comm_photo.ini", encoders + "[venc.1]\nenable = yes\nvenchdl = 4\n"),
         "cam0_comm_photo.ini:6:11-12",
         Set("cam0_comm_photo.ini", encoders + "[venc.1]\nenable = no\nvenchdl = 4\n")});
    const std::string mode = "[common.mediamode.config.0]\nmediamode = ";
    cases->push_back({"mode-not-served",
                      Both(Add("cam0_mediamode0", kMode0),
                           Append("workmode_photo.ini", mode + "QX_PARAM_MEDIAMODE_1080P_60\n")),
                      "workmode_photo.ini:4:13-40",
                      Both(Add("cam0_mediamode0", kMode0),
                           Append("workmode_photo.ini", mode + "QX_PARAM_MEDIAMODE_1080P_30\n"))});
    cases->push_back(
        {"mode-repeated", Both(Add("cam0_mediamode0", kMode0), Add("cam0_mediamode1", kMode0)),
         "cam0_mediamode1.ini:2:13-40",
         Both(Add("cam0_mediamode0", kMode0),
              Add("cam0_mediamode1", "[common]\nmediamode = QX_PARAM_MEDIAMODE_1080P_60\n"))});
    const Change lens = Add("cam0_ldccfg_0", "[common]\nmediamode = QX_PARAM_MEDIAMODE_720P_30\n");
    cases->push_back(
        {"ldc-unused", Both(Add("cam0_mediamode0", kMode0), lens), "cam0_ldccfg_0.ini:2:13-39",
         Both(Add("cam0_mediamode0", "[common]\nmediamode = QX_PARAM_MEDIAMODE_720P_30\n"), lens)});
    const Change menu =
        Append("valueset.ini", "[drive_sensitivity]\nnum = 2\nvalue0 = 1\nvalue1 = 3\n");
    cases->push_back(
        {"not-offered", Both(menu, Append("devmng.ini", "[gsensor]\nsensitivity = 2\n")),
         "devmng.ini:4:15-16", Both(menu, Append("devmng.ini", "[gsensor]\nsensitivity = 3\n"))});
    const std::string limits = "[venc.video.main.h264.cbr]\nmax_qp = 20\nmin_qp = ";
    cases->push_back({"limits-crossed", Set("media_common.ini", limits + "21\n"),
                      "media_common.ini:3:10-12", Set("media_common.ini", limits + "20\n")});
}

void AddSuppressionCases(std::vector<Case>* cases) {
    const std::string wrong = "[keytone]\nenable = on ; paramtool: ignore not-a-boolean";
    cases->push_back({"suppression-without-reason", Set("devmng.ini", wrong + "\n"),
                      "devmng.ini:2:15-46", Set("devmng.ini", wrong + " (factory default)\n")});
    cases->push_back(
        {"unneeded-suppression",
         Set("devmng.ini", "[keytone]\nenable = yes ; paramtool: ignore not-a-boolean (x)\n"),
         "devmng.ini:2:16-51", Nothing()});
}

std::vector<Case> Cases() {
    std::vector<Case> cases;
    AddEntryCases(&cases);
    AddLostCases(&cases);
    AddValueCases(&cases);
    AddStructureCases(&cases);
    AddReferenceCases(&cases);
    AddSuppressionCases(&cases);
    return cases;
}

std::string PlaceText(const diagnostics::Place& place) {
    if (place.line == 0) {
        return place.file;
    }
    return place.file + ":" + std::to_string(place.line) + ":" + std::to_string(place.column) +
           "-" + std::to_string(place.endColumn);
}

/// Expects that all output formats can show the findings.
void ExpectForms(const std::vector<Finding>& findings) {
    const Finding& finding = findings.front();
    const std::string id(RuleOf(finding.id).name);
    const std::string severity(diagnostics::NameOf(finding.severity));
    std::string where = finding.place.file;
    if (finding.place.line != 0) {
        where +=
            ":" + std::to_string(finding.place.line) + ":" + std::to_string(finding.place.column);
    }
    const std::string text = diagnostics::TextReport(findings, false);
    EXPECT_EQ(text.rfind(where + ": " + severity + ": ", 0), 0U) << text;
    EXPECT_NE(text.substr(0, text.find('\n')).find("[" + id + "]"), std::string::npos) << text;

    const output::Json json = diagnostics::JsonReport(findings);
    EXPECT_EQ(json["findings"][0]["id"], id);
    EXPECT_EQ(json["findings"][0]["group"], RuleOf(finding.id).group);
    EXPECT_EQ(json["findings"][0]["severity"], severity);
    EXPECT_EQ(json["findings"][0].contains("line"), finding.place.line != 0);
    EXPECT_EQ(json["errors"], finding.severity == Severity::kError ? 1 : 0);

    const output::Json sarif = diagnostics::SarifReport(findings, "1");
    const output::Json& result = sarif["runs"][0]["results"][0];
    EXPECT_EQ(result["ruleId"], id);
    EXPECT_EQ(result["level"], severity);
    const output::Json& region = result["locations"][0]["physicalLocation"]["region"];
    EXPECT_EQ(region["startLine"], std::max<std::uint32_t>(finding.place.line, 1));
    EXPECT_GE(region["startColumn"], 1);
    EXPECT_EQ(result["locations"][0]["physicalLocation"]["artifactLocation"]["uri"],
              finding.place.file);

    const std::string annotations = diagnostics::GithubReport(findings);
    EXPECT_NE(annotations.find("\n::" + severity + " file=" + finding.place.file),
              std::string::npos)
        << annotations;
    EXPECT_NE(annotations.find(",title=" + id + "::"), std::string::npos) << annotations;
}

TEST(Rules, TheSmallProductIsFine) {
    const TempDir directory;
    const Verdict verdict = CheckOf(Nothing(), directory, "");
    EXPECT_EQ(diagnostics::TextReport(verdict.findings, false), "");
}

TEST(Rules, EachIsFoundAtItsPlaceAndNothingElse) {
    for (const Case& each : Cases()) {
        SCOPED_TRACE(each.id);
        const TempDir directory;
        const Verdict verdict = CheckOf(each.spoil, directory, each.enable);
        const std::string report = diagnostics::TextReport(verdict.findings, false);
        EXPECT_EQ(verdict.findings.size(), 1U) << report;
        if (verdict.findings.empty()) {
            continue;
        }
        EXPECT_EQ(RuleOf(verdict.findings[0].id).name, each.id) << report;
        EXPECT_EQ(PlaceText(verdict.findings[0].place), each.place) << report;
        EXPECT_EQ(verdict.findings[0].severity == Severity::kError, each.isError) << report;
        ExpectForms(verdict.findings);
    }
}

TEST(Rules, NearlyTheSameIsFine) {
    for (const Case& each : Cases()) {
        SCOPED_TRACE(each.id);
        const TempDir directory;
        const Verdict verdict = CheckOf(each.fine, directory, each.enable);
        EXPECT_EQ(diagnostics::TextReport(verdict.findings, false), "");
    }
}

TEST(Rules, EveryKindHasACase) {
    std::set<std::string> tried = {"missing-key"};  // see below
    for (const Case& each : Cases()) {
        tried.insert(each.id);
    }
    for (const diagnostics::Rule& rule : diagnostics::Rules()) {
        EXPECT_TRUE(tried.contains(std::string(rule.name))) << rule.name;
    }
}

TEST(Rules, MissingKeysAreToldWhenAskedFor) {
    const TempDir directory;
    const Verdict verdict = CheckOf(Nothing(), directory, "missing-key");
    const std::string report = diagnostics::TextReport(verdict.findings, false);
    EXPECT_NE(report.find("devmng.ini: warning: [gsensor] leaves sensitivity to its default"),
              std::string::npos)
        << report;
    EXPECT_EQ(report.find("[keytone]"), std::string::npos) << report;
}

}  // namespace
}  // namespace paramgen::check
