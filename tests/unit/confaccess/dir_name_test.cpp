#include "confaccess/dir_name.h"

#include <gtest/gtest.h>

#include <string>

#include "unit/confaccess/outcome.h"

namespace paramgen::testing {
namespace {

struct DirNameCase {
    const char* path;
    const char* directory;
};

class DirName : public ::testing::TestWithParam<DirNameCase> {};

TEST_P(DirName, IsWhatStandsBeforeTheLastComponent) {
    char directory[256] = "unset";
    EXPECT_EQ(CONFACCESS_GetDirName(GetParam().path, directory, sizeof directory), 0);
    EXPECT_STREQ(directory, GetParam().directory);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, DirName,
    ::testing::Values(DirNameCase{"", "."}, DirNameCase{"/", "/"}, DirNameCase{"//", "/"},
                      DirNameCase{"///", "/"}, DirNameCase{"a", "."}, DirNameCase{"a/", "."},
                      DirNameCase{"a//", "."}, DirNameCase{"/a", "/"}, DirNameCase{"/a/", "/"},
                      DirNameCase{"//a", "/"}, DirNameCase{"///a//", "/"}, DirNameCase{"a/b", "a"},
                      DirNameCase{"a/b/", "a"}, DirNameCase{"a//b", "a"}, DirNameCase{"/a/b", "/a"},
                      DirNameCase{"/a//b//", "/a"}, DirNameCase{"/a/b/c.ini", "/a/b"},
                      DirNameCase{"//a//b", "//a"}, DirNameCase{"./a", "."},
                      DirNameCase{"../a", ".."}, DirNameCase{".", "."}, DirNameCase{"/.", "/"}));

TEST(DirNameLength, Of254CharactersIsTheLongest) {
    char directory[256];
    EXPECT_EQ(CONFACCESS_GetDirName((std::string(254, 'd') + "/f").c_str(), directory, 256), 0);
    EXPECT_EQ(directory, std::string(254, 'd'));
    EXPECT_EQ(Observe([&] {
                  return CONFACCESS_GetDirName((std::string(255, 'd') + "/f").c_str(), directory,
                                               sizeof directory);
              }),
              (Outcome{Code(0xA1418041U),
                       "[time][ERR][QXCONFACCE] CONFACCESS_GetDirName:85 the dstPath is too "
                       "long\n"}));
}

TEST(DirNameLength, MustFitTheDestinationWithItsTerminator) {
    char directory[5] = "....";
    EXPECT_EQ(CONFACCESS_GetDirName("abc/f", directory, 4), 0);
    EXPECT_STREQ(directory, "abc");
    EXPECT_EQ(Observe([&] { return CONFACCESS_GetDirName("abcd/f", directory, 4); }),
              (Outcome{-1, "[time][ERR][QXCONFACCE] CONFACCESS_GetDirName:90 memcpy_s failed\n"}));
    EXPECT_EQ(directory[4], '\0');
}

}  // namespace
}  // namespace paramgen::testing
