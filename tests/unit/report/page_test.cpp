#include "report/page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "report/files.h"
#include "report/sha256.h"

namespace paramgen::report {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

constexpr char kAttack[] = "</script><script>alert(1)</script>\"'&<!--";

Value SetValue() {
    Value value;
    value.offset = 24316;
    value.size = 4;
    value.part = "device management";
    value.member = "devMng.gsensor.sensitivity";
    value.module = "devmng";
    value.section = "gsensor";
    value.key = "sensitivity";
    value.type = "i32";
    value.raw = "02000000";
    value.value = "2";
    value.initial = "0";
    value.state = State::kSet;
    value.about = "how easily a shock is noticed";
    value.place = "devmng.ini:12:15";
    return value;
}

Page PageOf(Value value) {
    Page page;
    page.input = "product";
    page.model = "RoadView X4";
    page.version = "1.0";
    page.values = {std::move(value)};
    return page;
}

/// The text between two others.
std::string Between(const std::string& text, const std::string& before, const std::string& after) {
    const std::size_t begin = text.find(before) + before.size();
    return text.substr(begin, text.find(after, begin) - begin);
}

/// A page without its head, its data and its scripts.
std::string Body(const Page& page) {
    return Between(Render(page), "<body>", "<script");
}

TEST(Page, AValueIsARowThatIsReadableWithoutTheScript) {
    EXPECT_THAT(
        Render(PageOf(SetValue())),
        HasSubstr(
            "<tr id=\"devmng/gsensor:sensitivity\" class=\"set\"><th scope=\"row\">"
            "<a href=\"#devmng/gsensor:sensitivity\"><span class=\"path\">devmng/gsensor:"
            "</span>sensitivity</a><small>how easily a shock is noticed</small></th>"
            "<td>2</td><td>0</td><td>devmng.ini:12:15</td><td id=\"@24316\">24316</td></tr>"));
}

TEST(Page, FurtherPlacesOfAKeyAreLinkedByTheirOffsets) {
    Page page = PageOf(SetValue());
    page.values.push_back(SetValue());
    page.values[1].offset = 24320;
    EXPECT_THAT(Body(page), HasSubstr("<tr id=\"@24320\" class=\"set\"><th scope=\"row\">"
                                      "<a href=\"#@24320\">"));
}

TEST(Page, OldValuesStandBesideNewOnes) {
    Page page = PageOf(SetValue());
    page.against = "old.bin";
    page.values[0].changed = true;
    page.values[0].old = "5";
    const std::string html = Body(page);
    EXPECT_THAT(html, HasSubstr("class=\"set changed\""));
    EXPECT_THAT(html, HasSubstr("<td>2</td><td class=\"old\">5</td><td>0</td>"));
    EXPECT_THAT(html, HasSubstr("<td class=\"old\">5</td><td class=\"new\">2</td>"));
    page.values[0].changed = false;
    EXPECT_THAT(Body(page), HasSubstr("The images are equal."));
}

TEST(Page, FindingsAreShownWithTheirLinesErrorsFirst) {
    Page page = PageOf(SetValue());
    page.checked = true;
    page.findings = {{"warning", "quote", "a.ini:1:2", "first", "1 | a\n  | ^", {"see b"}, {24317}},
                     {"error", "syntax", "a.ini:2:2", "second", "", {}, {}}};
    const std::string html = Body(page);
    EXPECT_THAT(html,
                HasSubstr("<pre tabindex=\"0\">1 | a\n  | ^</pre><ul class=\"notes\"><li>see b"));
    EXPECT_LT(html.find("second"), html.find("first"));
    EXPECT_THAT(html, HasSubstr("1 error, 1 warning"));
    EXPECT_THAT(html, HasSubstr("<a href=\"#@24317\">devmng/gsensor:sensitivity</a>"));
}

TEST(Page, WithoutFindingsItSaysSo) {
    Page page = PageOf(SetValue());
    EXPECT_THAT(Body(page), Not(HasSubstr("id=\"findings\"")));
    page.checked = true;
    EXPECT_THAT(Body(page), HasSubstr("Nothing is wrong or suspicious."));
}

TEST(Page, TextsOfTheInputAreNeverMarkup) {
    Value value = SetValue();
    value.value = value.given = value.place = value.name = value.old = kAttack;
    value.flags = {kAttack};
    value.changed = true;
    Page page = PageOf(value);
    page.input = page.model = page.version = page.against = page.failure = kAttack;
    page.checked = true;
    page.findings = {{kAttack, kAttack, kAttack, kAttack, kAttack, {kAttack}, {24316}}};
    page.comparisons = {{kAttack, {{kAttack, "devMng."}}}};
    const std::string html = Render(page);
    EXPECT_THAT(html, Not(HasSubstr("<script>alert")));
    EXPECT_THAT(html, Not(HasSubstr("<!--")));
}

TEST(Page, TheDataIsJsonWithSharedTexts) {
    const std::string html = Render(PageOf(SetValue()));
    const auto data = nlohmann::json::parse(
        Between(html, "<script type=\"application/json\" id=\"data\">", "</script>"));
    const auto value = data.at("values").at(0);
    EXPECT_EQ(value.at("offset"), 24316);
    EXPECT_EQ(value.at("state"), "set");
    EXPECT_EQ(data.at("texts").at(value.at("about").get<std::size_t>()),
              "how easily a shock is noticed");
    EXPECT_FALSE(value.contains("given"));
}

TEST(Page, ThePolicyAllowsItsOwnScriptAndStyleAlone) {
    const std::string html = Render(PageOf(SetValue()));
    const std::string policy =
        Between(html, "http-equiv=\"Content-Security-Policy\" content=\"", "\"");
    EXPECT_EQ(policy, "default-src 'none'; script-src 'sha256-" +
                          Base64(Sha256(Between(html, "<script>", "</script>"))) +
                          "'; style-src 'sha256-" +
                          Base64(Sha256(Between(html, "<style>", "</style>"))) +
                          "'; base-uri 'none'; form-action 'none'");
}

TEST(Page, TheSameInputGivesTheSameFile) {
    EXPECT_EQ(Render(PageOf(SetValue())), Render(PageOf(SetValue())));
}

TEST(Page, ItsFilesHaveNoMarkupThatWouldEndThem) {
    EXPECT_EQ(kPageScript.find("</script"), std::string_view::npos);
    EXPECT_EQ(kPageStyle.find("</style"), std::string_view::npos);
    EXPECT_EQ(kPageScript.find("innerHTML"), std::string_view::npos);
}

}  // namespace
}  // namespace paramgen::report
