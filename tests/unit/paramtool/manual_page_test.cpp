#include "paramtool/manual_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace paramgen::paramtool {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class ManualPageTest : public ::testing::Test {
protected:
    ManualPageTest() {
        app_.set_version_flag("--version", "paramtool 9.8.7\nmore");
        CLI::App* look = app_.add_subcommand("look", "show a key\n.or two");
        look->add_option("-f,--format", text_, "a \\ form")->option_text("text|FILE");
        look->add_option("KEY", text_, "which")->required();
        look->add_option("TREE", list_, "in what");
        look->footer("Example: look it's-me");
        look->add_subcommand("twice", "look again")->add_option("KEY", text_, "at what");
        app_.add_subcommand("hidden", "for programs")->group("");
    }

    std::string Page() const { return ManualPage(app_); }

    CLI::App app_{"Looks at things.", "paramtool"};
    std::string text_;
    std::vector<std::string> list_;
};

TEST_F(ManualPageTest, BeginsWithNameAndVersion) {
    EXPECT_THAT(Page(), StartsWith(".TH PARAMTOOL 1 \"\" \"paramtool 9.8.7\" \"paramgen\"\n"
                                   ".SH NAME\nparamtool \\- looks at things\n"));
}

TEST_F(ManualPageTest, ShowsHowACommandIsCalled) {
    EXPECT_THAT(Page(), HasSubstr(".SS look\n.B paramtool look\n[\\fIOPTION\\fR...] "
                                  "\\fIKEY\\fR [\\fITREE\\fR...]\n"));
}

TEST_F(ManualPageTest, DescribesOptionsAndArguments) {
    EXPECT_THAT(Page(), HasSubstr(".TP\n\\fB\\-f\\fR, \\fB\\-\\-format\\fR "
                                  "\\fBtext\\fR|\\fIFILE\\fR\n\\&a \\e form\n"));
    EXPECT_THAT(Page(), HasSubstr(".TP\n\\fIKEY\\fR\n\\&which\n"));
}

TEST_F(ManualPageTest, NoTextIsTakenForARequest) {
    EXPECT_THAT(Page(), HasSubstr("\\&show a key\n\\&.or two\n"));
    EXPECT_THAT(Page(), HasSubstr("\\&Example: look it\\(aqs\\-me\n"));
}

TEST_F(ManualPageTest, CommandsOfACommandHaveBothNames) {
    EXPECT_THAT(Page(), HasSubstr(".SS look twice\n.B paramtool look twice\n[\\fIOPTION\\fR...] "
                                  "[\\fIKEY\\fR]\n.PP\n\\&look again\n"));
}

TEST_F(ManualPageTest, LeavesOutWhatHelpLeavesOut) {
    EXPECT_THAT(Page(), Not(HasSubstr("hidden")));
}

}  // namespace
}  // namespace paramgen::paramtool
