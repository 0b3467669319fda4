#include <sys/stat.h>

#include "unit/decompile/decompile_fixture.h"

#include "layout/layout.h"

namespace paramgen::decompile {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

TEST(Decompile, AnEmptyProductHasNoKeys) {
    const Decompiled result = Back(Compiled(SmallestProduct()));
    EXPECT_EQ(FileOf(result, "devmng"), "");
    EXPECT_EQ(FileOf(result, "media_common"), "");
    EXPECT_FALSE(HasModule(result, "cam0_mediamode0"));
    EXPECT_FALSE(HasModule(result, "cam0_comm_playback"));
    EXPECT_FALSE(HasModule(result, "cam0_ldccfg_0"));
}

TEST(Decompile, AllWritesEveryKeyThatIsRead) {
    const Decompiled result =
        Back(Compiled(SmallestProduct()), {.all = true, .like = std::nullopt});
    EXPECT_THAT(FileOf(result, "media_common"), HasSubstr("work_mode = 6\n"));
    EXPECT_THAT(FileOf(result, "devmng"), HasSubstr("[gsensor]\nsensitivity = 0\n"));
    EXPECT_THAT(FileOf(result, "workmode_record"), Not(HasSubstr("[osd.0]")));
}

TEST(Decompile, AValueAtItsDefaultIsLeftOutAndZeroIsNot) {
    image::Image image = Compiled(SmallestProduct());
    Put(&image, 8928 + 656 + 24, 0);  // the work mode of sound, 6 without its key
    EXPECT_EQ(FileOf(Back(image), "media_common"), "[ao.0]\nwork_mode = 0\n");
}

TEST(Decompile, EncodersThatAreCountedHaveTheirKey) {
    ProductTree tree = SmallestProduct();
    tree.Set("cam0_comm_record", "venc.0:enable", "0");
    tree.Set("cam0_comm_record", "venc.1:enable", "0");
    tree.Set("cam0_comm_record", "venc.2:payload", "3");
    EXPECT_EQ(FileOf(Back(Compiled(tree)), "cam0_comm_record"),
              "[venc.0]\nenable = 0\n\n[venc.1]\nenable = 0\n\n[venc.2]\npayload = 3\n");
}

TEST(Decompile, AnEncoderThatIsNotCountedCannotHaveItsKey) {
    ProductTree tree = SmallestProduct();
    tree.Set("cam0_comm_record", "venc.0:enable", "1");
    image::Image image = Compiled(tree);
    constexpr std::uint32_t kVenc = 9648 + 16 + 744;
    Put(&image, kVenc + 4 + 80, 1);       // enabled, but not counted
    Put(&image, kVenc + 4 + 160 + 4, 7);  // behind the one that is not counted
    EXPECT_THAT(LostOffsets(image), ElementsAre(kVenc + 4 + 80, kVenc + 4 + 160 + 4));
}

TEST(Decompile, AMediaModeThatIsThereAndOneThatIsNot) {
    ProductTree tree = SmallestProduct();
    tree.Set("cam0_mediamode1", "vpss.0:max_width", "1920");
    tree.AddModule("cam0_mediamode3");
    const Decompiled result = Back(Compiled(tree));
    EXPECT_TRUE(HasModule(result, "cam0_mediamode1"));
    EXPECT_TRUE(HasModule(result, "cam0_mediamode3")) << "it has defaults that are not zero";
    EXPECT_FALSE(HasModule(result, "cam0_mediamode0"));
    EXPECT_EQ(FileOf(result, "cam0_mediamode1"), "[vpss.0]\nmax_width = 1920\n");
}

TEST(Decompile, AnOptionalModuleThatOnlyCountsIsThere) {
    ProductTree tree = SmallestProduct();
    tree.Set("cam0_comm_playback", "venc.0:enable", "0");
    const Decompiled result = Back(Compiled(tree));
    EXPECT_EQ(FileOf(result, "cam0_comm_playback"), "[venc.0]\nenable = 0\n");
}

TEST(Decompile, AModuleOfZerosWhereDefaultsAreNot) {
    image::Image image = Compiled(SmallestProduct());
    Put(&image, 13160 + 1212, 1920);  // the largest width of media mode 0, and nothing else
    const Decompiled result = Back(image);
    EXPECT_THAT(FileOf(result, "cam0_mediamode0"), HasSubstr("vivpssmode = 0\n"));
    EXPECT_THAT(FileOf(result, "cam0_mediamode0"), HasSubstr("MotionDenoiseIsoThresh = 0\n"));
}

TEST(Decompile, AMediaModeWithNothingButACalibrationIsThere) {
    ProductTree tree = SmallestProduct();
    tree.Set("cam0_mediamode0", "common:mediamode", "QX_PARAM_MEDIAMODE_480P_25");  // number 0
    tree.Set("cam0_ldccfg_0", "common:mediamode", "QX_PARAM_MEDIAMODE_480P_25");
    tree.Set("cam0_ldccfg_0", "LDCV3Attr:coef_intp_ratio", "7");
    image::Image image = Compiled(tree);
    for (const layout::Value& value : layout::Values()) {
        if (value.module == "cam0_mediamode0") {
            std::memset(&image[value.offset], 0, value.size);
        }
    }
    EXPECT_THAT(FileOf(Back(image), "cam0_ldccfg_0"), HasSubstr("coef_intp_ratio = 7\n"));
}

TEST(Decompile, LensModulesAreFoundByTheirMediaModes) {
    ProductTree tree = SmallestProduct();
    tree.Set("cam0_mediamode0", "common:mediamode", "QX_PARAM_MEDIAMODE_1080P_30");
    tree.Set("cam0_mediamode2", "common:mediamode", "QX_PARAM_MEDIAMODE_720P_30");
    tree.Set("cam0_ldccfg_0", "common:mediamode", "QX_PARAM_MEDIAMODE_720P_30");
    tree.Set("cam0_ldccfg_0", "LDCV3Attr:src_calibration_ratio8", "5");
    tree.Set("cam0_ldccfg_1", "common:mediamode", "QX_PARAM_MEDIAMODE_1080P_30");
    tree.Set("cam0_ldccfg_1", "LDCV1Attr:xratio", "-7");
    const Decompiled result = Back(Compiled(tree));
    EXPECT_EQ(FileOf(result, "cam0_ldccfg_0"),
              "[common]\nmediamode = QX_PARAM_MEDIAMODE_1080P_30\n\n"
              "[LDCV1Attr]\nxratio = -7\n");
}

TEST(Decompile, TwoCalibrationsForOneModeCannotBe) {
    ProductTree tree = SmallestProduct();
    tree.Set("cam0_mediamode0", "common:mediamode", "QX_PARAM_MEDIAMODE_1080P_30");
    tree.Set("cam0_ldccfg_0", "common:mediamode", "QX_PARAM_MEDIAMODE_1080P_30");
    tree.Set("cam0_ldccfg_0", "LDCV1Attr:xratio", "7");
    image::Image image = Compiled(tree);
    constexpr std::uint32_t kRatio = 13160 + 1532 + 8;
    Put(&image, kRatio, 8);  // of the processing group alone
    EXPECT_THAT(Decompile(image, {}).lost, Not(IsEmpty()));
}

TEST(Decompile, ACalibrationOfAModeWithoutANameCannotBe) {
    ProductTree tree = SmallestProduct();
    tree.Set("cam0_mediamode0", "common:mediamode", "QX_PARAM_MEDIAMODE_1080P_30");
    tree.Set("cam0_ldccfg_0", "common:mediamode", "QX_PARAM_MEDIAMODE_1080P_30");
    tree.Set("cam0_ldccfg_0", "LDCV1Attr:xratio", "7");
    image::Image image = Compiled(tree);
    Put(&image, 13160, 54);  // one more than the last mode
    const Decompiled result = Decompile(image, {});
    ASSERT_GE(result.lost.size(), 2U);
    EXPECT_EQ(result.lost[0].reason, "no name has this number");
    EXPECT_EQ(result.lost[1].reason, "its media mode has no name, by which its module is found");
}

TEST(Decompile, TextsThatTheGrammarCannotCarryAreTold) {
    image::Image image = Compiled(SmallestProduct());
    std::memcpy(&image[23988], "a;b", 3);
    const Decompiled result = Decompile(image, {});
    ASSERT_EQ(result.lost.size(), 1U);
    EXPECT_EQ(result.lost.front().offset, 23988U);
    EXPECT_EQ(result.lost.front().member, "devMng.devInfo.model");
    EXPECT_EQ(result.lost.front().reason, "no value of its key is stored so");
}

TEST(Decompile, TextsAreQuotedWhereTheyHaveToBe) {
    image::Image image = Compiled(SmallestProduct());
    std::memcpy(&image[23988], " a #", 4);
    EXPECT_EQ(FileOf(Back(image), "devmng"), "[devinfo]\nmodel = \" a #\"\n");
}

TEST(Decompile, BytesThatNothingStoresAreTold) {
    image::Image image = Compiled(SmallestProduct());
    Put(&image, 9644, 1);
    Put(&image, 4, 1);
    const Decompiled result = Decompile(image, {});
    ASSERT_EQ(result.lost.size(), 2U);
    EXPECT_EQ(result.lost[0].member, "header.totalSize");
    EXPECT_EQ(result.lost[0].reason, "it is always 29928");
    EXPECT_EQ(result.lost[1].member, "gap");
    EXPECT_EQ(result.lost[1].reason, "nothing is stored there");
}

TEST(Decompile, ChoicesBeyondASetComeBack) {
    ProductTree tree = SmallestProduct();
    tree.Set("valueset", "photo.type:num", "12");
    for (int i = 0; i < 12; ++i) {
        tree.Set("valueset", "photo.type:description" + std::to_string(i), "d");
        tree.Set("valueset", "photo.type:value" + std::to_string(i), std::to_string(i + 100));
    }
    tree.Set("valueset", "volume:num", "30");
    tree.Set("valueset", "volume:value29", "77");
    tree.Set("valueset", "volume:description20", "seventy");
    tree.Set("valueset", "cam.0.wdr.status:num", "9");
    tree.Set("valueset", "cam.0.wdr.status:description3", "elevenchars");
    static_cast<void>(Back(Compiled(tree)));
    static_cast<void>(Back(Compiled(tree), {.all = true, .like = std::nullopt}));
}

// The number of record media modes lies where the eleventh choice of brightness has its
// description: an empty one overwrites the lowest byte of 307, which is 51, and leaves 256.
TEST(Decompile, ACountThatIsOverwrittenInPartComesBack) {
    ProductTree tree = SmallestProduct();
    tree.Set("valueset", "cam.0.mediamode.record:num", "307");
    tree.Set("valueset", "cam.0.mediamode.record:description248", "modes");
    tree.Set("valueset", "screen.brightness:num", "11");
    tree.Set("valueset", "screen.brightness:description10", "");
    const image::Image image = Compiled(tree);
    EXPECT_EQ(image[24836], std::byte{0});
    EXPECT_EQ(image[24837], std::byte{1});
    static_cast<void>(Back(image));
    static_cast<void>(Back(image, {.all = true, .like = std::nullopt}));
}

TEST(Decompile, HandlesBeyondTheirArrayComeBack) {
    // Handles 4 and 5 yield to the sizes of buffers, where files are counted; 12 and more lie in
    // the photo section, where they overwrite its number of overlays.
    for (const int count : {5, 6, 7, 13, 1105}) {
        for (const char* files : {"0", "2"}) {
            ProductTree tree = SmallestProduct();
            tree.Set("workmode_record", "normal.0:thmcnt", std::to_string(count));
            tree.Set("workmode_record", "normal.0:filecnt", files);
            tree.Set("workmode_record", "normal.0:playfps", "30");
            tree.Set("workmode_photo", "photosource.0:venchdl", "4");
            tree.Set("workmode_record", "normal.0.filenum.0.fileattr:recvbuf_size", "9");
            for (int i = 0; i < count; ++i) {
                tree.Set("workmode_record", "normal.0:thmhdl" + std::to_string(i),
                         std::to_string(i + 1));
            }
            static_cast<void>(Back(Compiled(tree)));
        }
    }
}

TEST(Decompile, LikeATreeOnlyWhatDiffersChanges) {
    const TempDir directory;
    ProductTree tree = SmallestProduct();
    tree.Set("devmng", "gsensor:sensitivity", "2").Set("devmng", "keytone:enable", "0");
    tree.WriteTo(directory);
    directory.Write("devmng.ini",
                    "# mine\r\n[GSensor]\r\n Sensitivity = 2 ; low\r\n[keytone]\r\nenable = 0\r\n");
    image::Image image = compile::Compile(directory.path()).image;
    const Options like = {.all = false, .like = directory.path().string()};
    EXPECT_THAT(FileOf(Back(image, like), "devmng"), HasSubstr(" Sensitivity = 2 ; low\r\n"));
    Put(&image, 24316, 5);
    EXPECT_EQ(FileOf(Back(image, like), "devmng"),
              "# mine\r\n[GSensor]\r\n Sensitivity = 5 ; low\r\n[keytone]\r\nenable = 0\r\n");
}

TEST(Decompile, LikeATreeThatListsAModuleWithoutAFileListsItOnce) {
    ProductTree wanted = SmallestProduct();
    wanted.Set("cam0_mediamode1", "vpss.0:max_width", "1920");
    const image::Image image = Compiled(wanted);
    const TempDir directory;
    ProductTree tree = SmallestProduct();
    tree.AddModule("cam0_mediamode1");
    tree.WriteTo(directory);
    std::filesystem::remove(directory.path() / "cam0_mediamode1.ini");
    const Decompiled result = Back(image, {.all = false, .like = directory.path().string()});
    EXPECT_EQ(FileOf(result, "cam0_mediamode1"), "[vpss.0]\nmax_width = 1920\n");
}

/// The image of a product that has a media mode.
image::Image ImageWithAMode() {
    ProductTree wanted = SmallestProduct();
    wanted.Set("cam0_mediamode1", "vpss.0:max_width", "1920");
    return Compiled(wanted);
}

/// Writes a tree whose entry file ends in `lines`, which may count and list further modules.
void WriteWithEntry(const ProductTree& tree, const TempDir& directory, const std::string& lines) {
    tree.WriteTo(directory);
    const std::string name = "config_cfgaccess_entry.ini";
    const std::string entry = paramgen::testing::ReadFile((directory.path() / name).string());
    directory.Write(name, entry + lines);
}

TEST(Decompile, LikeATreeThatListsAModuleTwiceWithoutAFileListsItOnce) {
    const TempDir directory;
    WriteWithEntry(SmallestProduct(), directory,
                   "[module]\nmodule_num = 12\nmodule11 = cam0_mediamode1\n"
                   "module12 = cam0_mediamode1\n[cam0_mediamode1]\ncfg_filename = gone.ini\n");
    const Decompiled result =
        Back(ImageWithAMode(), {.all = false, .like = directory.path().string()});
    EXPECT_THAT(result.files.front().bytes, HasSubstr("module_num = 11\n"));
    EXPECT_THAT(result.files.front().bytes, Not(HasSubstr("module12")));
}

TEST(Decompile, LikeATreeTheFileOfANewModuleIsNotThatOfAnother) {
    const TempDir directory;
    WriteWithEntry(
        SmallestProduct(), directory,
        "[module]\nmodule_num = 11\nmodule11 = cam0_mediamode2\n"
        "[cam0_mediamode2]\ncfg_filename = cam0_mediamode1.ini\n");  // which is not there
    const Decompiled result =
        Back(ImageWithAMode(), {.all = false, .like = directory.path().string()});
    EXPECT_TRUE(HasFile(result, "_cam0_mediamode1.ini"));
}

TEST(Decompile, LikeATreeWithAPathThroughADirectoryThatHoldsNoFile) {
    const TempDir directory;
    std::filesystem::create_directory(directory.path() / "empty");
    std::filesystem::create_directory(directory.path() / "media");
    ProductTree tree = SmallestProduct();
    tree.AddModule("cam0_mediamode1");
    WriteWithEntry(tree, directory, "[cam0_mediamode1]\npath = ./empty/../media ; here\n");
    std::filesystem::rename(directory.path() / "cam0_mediamode1.ini",
                            directory.path() / "media/cam0_mediamode1.ini");
    const Decompiled result =
        Back(ImageWithAMode(), {.all = false, .like = directory.path().string()});
    EXPECT_TRUE(HasFile(result, "media/cam0_mediamode1.ini"));
    EXPECT_THAT(result.files.front().bytes, HasSubstr("path = ./media ; here\n"));
}

TEST(Decompile, LikeATreeWithTwoCalibrationsForOneModeMakesTwoForTwo) {
    ProductTree wanted = SmallestProduct();
    wanted.Set("cam0_mediamode0", "common:mediamode", "QX_PARAM_MEDIAMODE_1080P_30");
    wanted.Set("cam0_mediamode1", "common:mediamode", "QX_PARAM_MEDIAMODE_720P_30");
    ProductTree like = wanted;
    wanted.Set("cam0_ldccfg_0", "common:mediamode", "QX_PARAM_MEDIAMODE_1080P_30");
    wanted.Set("cam0_ldccfg_0", "LDCV1Attr:xratio", "7");
    wanted.Set("cam0_ldccfg_1", "common:mediamode", "QX_PARAM_MEDIAMODE_720P_30");
    wanted.Set("cam0_ldccfg_1", "LDCV1Attr:xratio", "8");
    like.Set("cam0_ldccfg_0", "common:mediamode", "QX_PARAM_MEDIAMODE_1080P_30");
    like.Set("cam0_ldccfg_1", "common:mediamode", "QX_PARAM_MEDIAMODE_1080P_30");
    const image::Image image = Compiled(wanted);
    const TempDir directory;
    like.WriteTo(directory);
    static_cast<void>(Back(image, {.all = false, .like = directory.path().string()}));
}

/// A product with a calibration for the media mode of number 0, which is also the mode of every
/// media mode's module that is there and empty.
ProductTree ProductWithACalibrationForModeZero() {
    ProductTree tree = SmallestProduct();
    tree.Set("cam0_mediamode1", "common:mediamode", "QX_PARAM_MEDIAMODE_480P_25");
    tree.Set("cam0_ldccfg_0", "common:mediamode", "QX_PARAM_MEDIAMODE_480P_25");
    tree.Set("cam0_ldccfg_0", "LDCV1Attr:xratio", "7");
    return tree;
}

/// Where the modules lie that two entry files have in common.
constexpr char kCommonModules[] =
    "; of photos\n[cam0_comm_photo]\ncfg_filename = cam0_comm_photo.ini\n"
    "[cam0_comm_playback]\ncfg_filename = cam0_comm_playback.ini\n"
    "[cam0_comm_record]\ncfg_filename = cam0_comm_record.ini\n"
    "[cam0_ldccfg_0]\ncfg_filename = cam0_ldccfg_0.ini\n"
    "[cam0_mediamode1]\ncfg_filename = cam0_mediamode1.ini\n"
    "[devmng]\ncfg_filename = devmng.ini\n"
    "[filemng]\ncfg_filename = filemng.ini\n"
    "[media_common]\ncfg_filename = media_common.ini\n"
    "[valueset]\ncfg_filename = valueset.ini\n"
    "[workmode_common]\ncfg_filename = workmode_common.ini\n"
    "[workmode_photo]\ncfg_filename = workmode_photo.ini\n"
    "[workmode_record]\ncfg_filename = workmode_record.ini\n";

TEST(Decompile, LikeATreeWithAModuleThatIsInTheWayLeavesItOut) {
    const image::Image image = Compiled(ProductWithACalibrationForModeZero());
    const TempDir directory;
    ProductTree like = ProductWithACalibrationForModeZero();
    like.AddModule("cam0_comm_playback");
    like.Set("cam0_mediamode0", "common:mediamode", "QX_PARAM_MEDIAMODE_720P_30");
    like.Set("cam0_mediamode2", "common:mediamode", "QX_PARAM_MEDIAMODE_720P_30");
    like.WriteTo(directory);
    directory.Write("config_cfgaccess_entry.ini",
                    "[module]\nmodule_num = 15\nmodule1 = cam0_comm\nmodule2 = cam0_mediamode0\n"
                    "module3 = cam0_comm_photo\nmodule4 = cam0_comm_playback ; keep\n"
                    "module5 = cam0_comm_record\nmodule6 = cam0_ldccfg_0\n"
                    "module7 = cam0_mediamode1\nmodule8 = devmng\nmodule9 = filemng\n"
                    "module10 = media_common\nmodule11 = valueset\nmodule12 = workmode_common\n"
                    "module13 = workmode_photo\nmodule14 = workmode_record\n"
                    "module15 = cam0_mediamode2\n"
                    "[cam0_comm]\ncfg_filename = cam0_comm.ini\n\n"
                    "; of the camera\n[cam0_mediamode0]\ncfg_filename = cam0_mediamode0.ini\n\n" +
                        std::string(kCommonModules) +
                        "[cam0_mediamode2]\ncfg_filename = cam0_mediamode2.ini\n");
    const Decompiled result = Back(image, {.all = false, .like = directory.path().string()});
    EXPECT_EQ(result.files.front().bytes,
              "[module]\nmodule_num = 13\nmodule1 = cam0_comm\nmodule2 = cam0_comm_photo\n"
              "module3 = cam0_comm_playback ; keep\nmodule4 = cam0_comm_record\n"
              "module5 = cam0_ldccfg_0\nmodule6 = cam0_mediamode1\n"
              "module7 = devmng\nmodule8 = filemng\n"
              "module9 = media_common\nmodule10 = valueset\nmodule11 = workmode_common\n"
              "module12 = workmode_photo\nmodule13 = workmode_record\n"
              "[cam0_comm]\ncfg_filename = cam0_comm.ini\n\n"
              "; of the camera\n" +
                  std::string(kCommonModules));
    EXPECT_FALSE(HasFile(result, "cam0_mediamode0.ini"));
    EXPECT_TRUE(HasFile(result, "cam0_comm_playback.ini"));
}

TEST(WrittenTree, AnEmptyDirectoryKeepsItsRightsAndALinkToItIsKept) {
    const Decompiled result = Decompile(Compiled(SmallestProduct()), {});
    const TempDir home;
    const std::filesystem::path directory = home.path() / "empty";
    std::filesystem::create_directory(directory);
    std::filesystem::permissions(directory, std::filesystem::perms(0750));
    std::filesystem::create_directory_symlink("empty", home.path() / "link");
    WrittenTree(result.files, (home.path() / "link").string(), Old::kNone).Appear();
    EXPECT_TRUE(std::filesystem::exists(directory / "devmng.ini"));
    EXPECT_EQ(std::filesystem::status(directory).permissions(), std::filesystem::perms(0750));
    EXPECT_TRUE(std::filesystem::is_symlink(home.path() / "link"));
}

TEST(WrittenTree, AnEmptyDirectoryStaysTheSameOne) {
    const Decompiled result = Decompile(Compiled(SmallestProduct()), {});
    const TempDir home;
    struct stat before = {};
    struct stat after = {};
    ASSERT_EQ(stat(home.path().c_str(), &before), 0);
    WrittenTree(result.files, home.path().string(), Old::kNone).Appear();
    ASSERT_EQ(stat(home.path().c_str(), &after), 0);
    EXPECT_EQ(after.st_ino, before.st_ino);
    EXPECT_TRUE(std::filesystem::exists(home.path() / "devmng.ini"));
}

TEST(WrittenTree, WhereNothingCanBeMadeBesideItsDirectoryItIsWrittenWithin) {
    const Decompiled result = Decompile(Compiled(SmallestProduct()), {});
    const TempDir home;
    const std::filesystem::path directory = home.path() / std::string(255, 'x');
    std::filesystem::create_directory(directory);  // a longer name cannot be
    WrittenTree(result.files, directory.string(), Old::kNone).Appear();
    EXPECT_TRUE(std::filesystem::exists(directory / "devmng.ini"));
    const std::filesystem::directory_iterator entries(directory);
    EXPECT_EQ(std::distance(begin(entries), end(entries)),
              static_cast<std::ptrdiff_t>(result.files.size()));
}

TEST(WrittenTree, DoesNotTouchWhatIsThere) {
    const Decompiled result = Decompile(Compiled(SmallestProduct()), {});
    const TempDir home;
    const std::string mine = home.Write("mine", "x");
    const std::string directory = home.path().string();
    EXPECT_ANY_THROW(WrittenTree(result.files, directory, Old::kNone));
    {
        WrittenTree tree(result.files, directory, Old::kReplaced);
        EXPECT_FALSE(std::filesystem::exists(home.path() / "devmng.ini"));
        tree.Appear();
    }
    EXPECT_EQ(paramgen::testing::ReadFile(mine), "x");
    EXPECT_TRUE(std::filesystem::exists(home.path() / "devmng.ini"));
}

}  // namespace
}  // namespace paramgen::decompile
