#include "generator/image.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "support/table_walk.h"

namespace paramgen::testing {
namespace {

TEST(Image, FrameByHand) {
    ParamImage image;
    std::memset(&image, 0xA5, sizeof image);
    BuildFrame(&image);
    std::string expected(29928, '\0');
    expected.replace(0, 8, std::string("\x61\x72\x61\x70\xE8\x74\x00\x00", 8));
    expected.replace(29920, 4, "\x6D\x72\x61\x70");
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(&image), sizeof image), expected);
}

TEST(Image, EveryByteBelongsToOneFieldOrIsReserved) {
    std::vector<int> owners(29928, 0);
    for (const WalkedField& walked : WalkTable(kImageTable, "")) {
        for (std::size_t i = 0; i < walked.field->size; ++i) {
            ASSERT_LT(walked.offset + i, owners.size()) << Describe(walked);
            ++owners[walked.offset + i];
        }
    }
    for (std::size_t at = 0; at < owners.size(); ++at) {
        EXPECT_EQ(owners[at], 1) << "byte " << at;
    }
}

TEST(Image, SectionsLieWhereTheyShould) {
    const struct {
        std::size_t offset;
        std::size_t size;
        std::size_t expectedOffset;
        std::size_t expectedSize;
    } sections[] = {
        {offsetof(ParamImage, workMode), sizeof(WorkModeCfg), 16, 8912},
        {offsetof(ParamImage, mediaComm), sizeof(MediaCommCfg), 8928, 716},
        {offsetof(ParamImage, cam), sizeof(CamMediaCfg), 9648, 12832},
        {offsetof(ParamImage, fileMng), sizeof(FileMngCfg), 22480, 1444},
        {offsetof(ParamImage, devMng), sizeof(DevMngCfg), 23924, 420},
        {offsetof(ParamImage, valueSet), sizeof(ValueSetCfg), 24344, 5576},
    };
    for (const auto& section : sections) {
        EXPECT_EQ(section.offset, section.expectedOffset);
        EXPECT_EQ(section.size, section.expectedSize);
    }
}

}  // namespace
}  // namespace paramgen::testing
