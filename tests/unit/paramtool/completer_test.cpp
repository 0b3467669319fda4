#include "paramtool/completer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "paramtool/arguments.h"
#include "paramtool/command.h"

namespace paramgen::paramtool {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;

/// A command line with two commands, and its completions.
class CompleterTest : public ::testing::Test {
protected:
    CompleterTest() {
        app_.add_flag("--version", flag_, "print the version");
        CLI::App* look = app_.add_subcommand("look", "show a key");
        look->add_option("-f,--format", text_, "form")->option_text("text|json");
        look->add_option("--only", list_, "these alone")->option_text("KEY");
        look->add_option("-o,--output", text_, "write to FILE")->option_text("FILE");
        look->add_option("--error", list_, "findings")->option_text("ID|GROUP ...");
        look->add_flag("--all", flag_, "everything");
        look->add_option("KEY", text_, "which")->required();
        look->add_option("INPUT", text_, "in what")->option_text("IMAGE|TREE");
        CLI::App* lock = app_.add_subcommand("lock", "lock trees");
        lock->add_option("TREE", list_, "trees");
        app_.add_subcommand("hidden", "for programs")->group("");
        app_.add_subcommand("set", "change keys")->add_option("KEY=VALUE", list_, "changes");
    }

    std::vector<std::string> After(const std::vector<std::string>& words) const {
        std::vector<std::string> texts;
        for (const Candidate& candidate : Complete(app_, words).candidates) {
            texts.push_back(candidate.text);
        }
        return texts;
    }

    Paths PathsAfter(const std::vector<std::string>& words) const {
        return Complete(app_, words).paths;
    }

    CLI::App app_{"A test", "test"};
    bool flag_ = false;
    std::string text_;
    std::vector<std::string> list_;
};

TEST_F(CompleterTest, OffersCommandsThatHelpLists) {
    EXPECT_THAT(After({""}), ElementsAre("lock", "look", "set"));
    EXPECT_THAT(After({"loo"}), ElementsAre("look"));
    EXPECT_THAT(After({"hid"}), IsEmpty());
}

TEST_F(CompleterTest, TellsWhatACommandDoes) {
    EXPECT_EQ(Complete(app_, {"look"}).candidates.at(0).description, "show a key");
}

TEST_F(CompleterTest, OffersOptionsBehindADash) {
    EXPECT_THAT(After({"--v"}), ElementsAre("--version"));
    EXPECT_THAT(After({"look", "--"}),
                ElementsAre("--all", "--error", "--format", "--help", "--only", "--output"));
    EXPECT_THAT(After({"look", "--all", "-f"}), ElementsAre("-f"));
}

TEST_F(CompleterTest, OffersTheValuesOfAnOption) {
    EXPECT_THAT(After({"look", "--format", ""}), ElementsAre("json", "text"));
    EXPECT_THAT(After({"look", "-f", "t"}), ElementsAre("text"));
    EXPECT_THAT(After({"look", "--format=j"}), ElementsAre("--format=json"));
    EXPECT_THAT(After({"look", "--unknown="}), IsEmpty());
}

TEST_F(CompleterTest, ValuesOfOptionsAreNoArguments) {
    EXPECT_EQ(PathsAfter({"look", "-f", "json", "key", ""}), Paths::kFiles);
    EXPECT_EQ(PathsAfter({"look", "key", ""}), Paths::kFiles);
    EXPECT_EQ(PathsAfter({"look", "-o", ""}), Paths::kFiles);
    EXPECT_EQ(PathsAfter({"look", ""}), Paths::kNone);
}

TEST_F(CompleterTest, OffersNothingBehindTheLastArgument) {
    EXPECT_EQ(PathsAfter({"look", "key", "image", ""}), Paths::kNone);
    EXPECT_THAT(After({"look", "key", "image", ""}), IsEmpty());
}

TEST_F(CompleterTest, ARepeatedArgumentGoesOn) {
    EXPECT_EQ(PathsAfter({"lock", "a", "b", "c", ""}), Paths::kDirectories);
}

TEST_F(CompleterTest, BehindTwoDashesAreArgumentsAlone) {
    EXPECT_THAT(After({"look", "--", "--"}), IsEmpty());
    EXPECT_EQ(PathsAfter({"lock", "--", "-a", ""}), Paths::kDirectories);
}

TEST_F(CompleterTest, OffersKeysPartByPart) {
    EXPECT_THAT(After({"look", "dev"}), ElementsAre("devmng/"));
    EXPECT_THAT(After({"look", "devmng/g"}), ElementsAre("devmng/gsensor:"));
    EXPECT_THAT(After({"look", "devmng/gsensor:"}), ElementsAre("devmng/gsensor:sensitivity"));
    EXPECT_THAT(After({"look", ""}), IsSupersetOf({"devmng/", "filemng/", "valueset/"}));
}

TEST_F(CompleterTest, OffersKeysWithoutTheirModule) {
    EXPECT_THAT(After({"look", "gsen"}), ElementsAre("gsensor:"));
    EXPECT_THAT(After({"look", "gsensor:s"}), ElementsAre("gsensor:sensitivity"));
    EXPECT_THAT(After({"look", "sensitiv"}), ElementsAre("sensitivity"));
}

TEST_F(CompleterTest, TheCaseOfKeysDoesNotMatter) {
    EXPECT_THAT(After({"look", "DEVMNG/GSen"}), ElementsAre("devmng/gsensor:"));
}

TEST_F(CompleterTest, AKeyThatIsSetGoesOnWithItsValue) {
    EXPECT_THAT(After({"set", "devmng/gsensor:sens"}), ElementsAre("devmng/gsensor:sensitivity="));
    EXPECT_THAT(After({"look", "--only=devmng/gsensor:s"}),
                ElementsAre("--only=devmng/gsensor:sensitivity"));
}

TEST_F(CompleterTest, OffersFindingsAndTheirGroups) {
    EXPECT_THAT(After({"look", "--error", "unknown-"}),
                ElementsAre("unknown-key", "unknown-name", "unknown-section"));
    EXPECT_THAT(After({"look", "--error", "l"}), IsSupersetOf({"line-too-long", "lost"}));
    EXPECT_THAT(After({"look", "--error", "al"}), ElementsAre("all"));
}

TEST_F(CompleterTest, NoWordsNoCandidates) {
    EXPECT_THAT(After({}), IsEmpty());
}

TEST(RealCommands, EveryCommandAndOptionIsOffered) {
    CLI::App app("", "paramtool");
    int status = 0;
    for (const Command& command : Commands()) {
        command.add(app, &status);
    }
    const auto offered = [&app](const std::vector<std::string>& words) {
        std::vector<std::string> texts;
        for (const Candidate& candidate : Complete(app, words).candidates) {
            texts.push_back(candidate.text);
        }
        return texts;
    };
    EXPECT_FALSE(VisibleCommands(app).empty());
    for (const CLI::App* command : VisibleCommands(app)) {
        EXPECT_THAT(offered({""}), Contains(command->get_name()));
        for (const CLI::Option* option : command->get_options()) {
            for (const std::string& name : option->get_lnames()) {
                EXPECT_THAT(offered({command->get_name(), "--"}), Contains("--" + name));
            }
        }
    }
}

TEST(RealCommands, EachHasTheNameThatItIsListedUnder) {
    EXPECT_GE(Commands().size(), 16U);
    for (const Command& command : Commands()) {
        CLI::App app("", "paramtool");
        int status = 0;
        command.add(app, &status);
        const std::vector<CLI::App*> added =
            app.get_subcommands([](const CLI::App*) { return true; });
        ASSERT_EQ(added.size(), 1U);
        EXPECT_EQ(added.front()->get_name(), command.name);
    }
}

}  // namespace
}  // namespace paramgen::paramtool
