#include "param/media_common/hierarchical_qp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/param/media_common/section_load.h"

namespace paramgen::testing {
namespace {

using ::testing::ElementsAre;

LoadResult LoadQp(const ProductTree& tree, const std::string& module = "media_common") {
    return RunLoad(tree, 36, [&module](void* record) {
        return PDT_INIPARAM_LoadMediaCommVencHierarchicalQp(
            module.c_str(), static_cast<HierarchicalQpAttr*>(record));
    });
}

TEST(HierarchicalQp, EveryLayerIsEchoedAsItIsRead) {
    ProductTree tree = MediaTree("venc.hierarchical.qp:enable", "yes");
    for (int i = 0; i < 4; ++i) {
        const std::string layer = std::to_string(i);
        tree.Set("media_common", "venc.hierarchical.qp:qp_delta" + layer, "-1" + layer)
            .Set("media_common", "venc.hierarchical.qp:frame_num" + layer, "2" + layer);
    }
    const std::string function = "PDT_INIPARAM_LoadMediaCommVencHierarchicalQp: ";
    EXPECT_THAT(EchoOf(LoadQp(tree).output),
                ElementsAre(function + "NodePrefix[venc.hierarchical.qp]\n",
                            function + "  hierarchical.qp.enable[1]\n",
                            function + "  QpDelta0[-10]\n", function + "  QpDelta1[-11]\n",
                            function + "  QpDelta2[-12]\n", function + "  QpDelta3[-13]\n",
                            function + "  FrameNum0[20]\n", function + "  FrameNum1[21]\n",
                            function + "  FrameNum2[22]\n", function + "  FrameNum3[23]\n"));
}

TEST(HierarchicalQp, SwitchFailsByItsKey) {
    EXPECT_THAT(
        ErrorsOf(LoadQp(MediaTree(), "absent").output),
        ElementsAre(Failed("LoadBoolValueByNodePrefix", "venc.hierarchical.qp:enable", "A1418046"),
                    Failed("LoadMediaCommVencHierarchicalQp", "enable", "A1418046")));
}

TEST(HierarchicalQp, LayersFailOnceByTheirFullKeys) {
    for (const std::string key :
         {"venc.hierarchical.qp:qp_delta2", "venc.hierarchical.qp:frame_num0"}) {
        const LoadResult result = LoadQp(MediaTree(key, "2147483648"));
        EXPECT_EQ(result.status, -1);
        EXPECT_THAT(ErrorsOf(result.output),
                    ElementsAre(Failed("LoadMediaCommVencHierarchicalQp", key)));
    }
}

}  // namespace
}  // namespace paramgen::testing
