#include "param/media_common/video_mod.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/same_record.h"
#include "unit/param/media_common/section_load.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

LoadResult LoadMod(const ProductTree& tree) {
    return RunLoad(tree, 12, [](void* record) {
        return PDT_INIPARAM_LoadVideoModCfg("media_common", "any.node",
                                            static_cast<VideoModCfg*>(record));
    });
}

TEST(VideoMod, IsReadUnderTheNodeThatItIsGiven) {
    ProductTree tree = MediaTree("any.node:bindedmod", "-2");
    tree.Set("media_common", "any.node:modhdl", "3").Set("media_common", "any.node:chnhdl", "256");
    const LoadResult result = LoadMod(tree);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(SameRecord(kVideoModTable, std::string("\xfe\xff\xff\xff\3\0\0\0\0\1\0\0", 12),
                           result.record));
    EXPECT_THAT(EchoOf(result.output),
                ElementsAre("PDT_INIPARAM_LoadVideoModCfg:  any.node bindedMod[-2] modHdl[3],  "
                            "chnHdl[256] \n"));
}

TEST(VideoMod, EachKeyIsItsLabel) {
    for (const std::string key : {"bindedmod", "modhdl", "chnhdl"}) {
        const LoadResult result = LoadMod(MediaTree("any.node:" + key, "2147483648"));
        EXPECT_EQ(result.status, -1);
        EXPECT_THAT(ErrorsOf(result.output),
                    ElementsAre(Failed("LoadIntValueByNodePrefix", "any.node:" + key),
                                Failed("LoadVideoModCfg", key)));
        EXPECT_THAT(EchoOf(result.output), IsEmpty());
    }
}

}  // namespace
}  // namespace paramgen::testing
