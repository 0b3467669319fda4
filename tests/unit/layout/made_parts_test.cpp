#include "layout/made_parts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "layout/format_table.h"
#include "layout/fuzz_words.h"

namespace paramgen::layout {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

TEST(FormatTable, HasOneLineForAValue) {
    EXPECT_THAT(
        FormatTable("devMng"),
        HasSubstr("| 24336 | 4 | i32 | `language:system_language` | `devmng` | 0 | Language "
                  "of the menus |\n"));
    EXPECT_THAT(FormatTable("devMng"), Not(HasSubstr("filemng")));
}

TEST(FormatTable, HasOneLineForAllElements) {
    EXPECT_THAT(FormatTable("fileMng"),
                HasSubstr("| 23028 | 14 × 64 | text | `dtcf.dir.name:dir_nameN` | `filemng` |  | "
                          "Name of a directory below the root; \"\" for none |\n"));
    EXPECT_THAT(FormatTable("cam"),
                HasSubstr("| 14840 | 25 × 4 | u32 | `venc.M:res_width` | `cam0_mediamodeN` | 0 | "
                          "Width of the picture [px]; while those before have their key |\n"));
    EXPECT_THAT(FormatTable("workMode.record"),
                HasSubstr("| 4508 | 4 × 4 | i32 | `normal.0:thmhdlN` | `workmode_record` | 0 | "
                          "Handle of a thumbnail encoder; as many as `normal.0:thmcnt` |\n"));
}

TEST(FormatTable, HasLinesWithoutKeys) {
    EXPECT_THAT(
        FormatTable("gap"),
        HasSubstr("| 9644 | 4 | bytes |  |  |  | Brings the cameras to an 8-byte boundary"));
    EXPECT_THAT(FormatTable("mediaComm"), HasSubstr("| 9072 | 2 × 4 | u32 |  |  | 75 | Always 75"));
}

TEST(FuzzWords, AreModulesSectionsKeysAndNames) {
    const std::string words = FuzzWords();
    EXPECT_THAT(words, HasSubstr("\"@cam0_ldccfg_1\\x0A\"\n"));
    EXPECT_THAT(words, HasSubstr("\"\\x0A[vpss.0.extvport.1]\\x0A\"\n"));
    EXPECT_THAT(words, HasSubstr("\"\\x0Adir_name13=\"\n"));
    EXPECT_THAT(words, HasSubstr("\"QX_PARAM_MEDIAMODE_PHOTO_8000P\"\n"));
    EXPECT_THAT(words, HasSubstr("\"QX_MAPI_DISP_CSC_MATRIX_BT709FULL_TO_RGBFULL\"\n"));
}

TEST(MadeParts, AreRenewedBetweenTheirMarks) {
    std::string error;
    const std::string made = "a\n<!-- made: table gap -->\n" + std::string("\n") +
                             FormatTable("gap") + "\n<!-- end of what is made -->\nb\n";
    EXPECT_EQ(RenewMadeParts("a\n<!-- made: table gap -->\nold\n<!-- end of what is made -->\nb\n",
                             &error),
              made);
    EXPECT_EQ(RenewMadeParts(made, &error), made);
    EXPECT_EQ(RenewMadeParts("nothing\n", &error), "nothing\n");
}

TEST(MadeParts, OfUnknownNamesOrWithoutAnEndAreErrors) {
    std::string error;
    EXPECT_EQ(RenewMadeParts("made: poem\nend of what is made\n", &error), std::nullopt);
    EXPECT_EQ(error, "no such part: made: poem");
    EXPECT_EQ(RenewMadeParts("made: table gap\n", &error), std::nullopt);
    EXPECT_EQ(error, "the last made part has no end");
}

}  // namespace
}  // namespace paramgen::layout
