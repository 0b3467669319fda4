#include "golden/independent_image.h"

#include "golden/independent_sections.h"

namespace paramgen::testing::independent {

void PlaceDeviceManagement(Placer put, std::size_t at) {
    put.Text(at + 0, 64, "devinfo:software_version");
    put.Text(at + 64, 64, "devinfo:model");
    put.Text(at + 128, 128, "storagemng:mount_path");
    put.Text(at + 256, 128, "storagemng:dev_path");
    put.Word(at + 384, 0);
    put.Word(at + 388, 0);
    put.S32(at + 392, "gsensor:sensitivity");
    put.S32(at + 396, "parking:sensitivity");
    put.Word(at + 400, 0);
    put.Bool(at + 404, "keytone:enable");
    put.Bool(at + 408, "bootsound:enable");
    put.S32(at + 412, "language:system_language");
    put.Bool(at + 416, "buzzer:enable");
}

void PlaceFileManagement(Placer put, std::size_t at) {
    put.Of("devmng").Text(at + 0, 128, "storagemng:mount_path");
    put.Bool(at + 128, "common.repair:enable");
    put.Bool(at + 132, "common.repair:parse_extra_mdat");
    put.Text(at + 136, 128, "common.repair:repair_rootdir");
    put.Text(at + 264, 128, "common.repair:repair_topdirname");
    put.U32(at + 392, "dtcf:pre_alloc_cnt");
    put.Copy(at + 396, at + 392);
    put.U32(at + 400, "dtcf:pre_alloc_unit");
    put.Copy(at + 404, at + 400);
    put.S32(at + 408, "dtcf:share_percent");
    put.U32(at + 412, "dtcf:warning_stage");
    put.U32(at + 416, "dtcf:guaranteed_stage");
    put.Text(at + 420, 128, "dtcf:rootdir");
    for (std::size_t i = 0; i < 14; ++i) {
        put.DirName(at + 548 + 64 * i, 64, "dtcf.dir.name:dir_name" + N(i));
    }
}

namespace {

void PlaceFrame(Building& building) {
    building.image.assign(29928, '\0');
    building.image.replace(0, 8, std::string("\x61\x72\x61\x70\xE8\x74\x00\x00", 8));
    building.image.replace(29920, 4, "mrap");
}

}  // namespace

/// The order is that in which the program loads, because elements beyond an array overwrite what
/// follows it.
BuiltImage BuildImage(const Product& product) {
    Building building{.product = product, .image = "", .asked = {}};
    PlaceFrame(building);
    building.end = 24344;
    PlaceDeviceManagement(Placer(building, "devmng"), 23924);
    building.end = 23924;
    PlaceFileManagement(Placer(building, "filemng"), 22480);
    building.end = 9644;
    PlaceMediaCommon(Placer(building, "media_common"), 8928);
    building.end = 8928;
    PlaceWorkMode(Placer(building, ""), 16);
    building.end = 29920;
    PlaceValueSets(Placer(building, "valueset"), 24344);
    building.end = 22480;
    PlaceCamera(Placer(building, ""), 9648, 0);
    return {.bytes = building.image, .asked = building.asked, .failed = building.failed};
}

const std::vector<Section>& Sections() {
    static const std::vector<Section> sections = {
        {"header", 0, 16},
        {"work mode", 16, 8912},
        {"media common", 8928, 716},
        {"gap", 9644, 4},
        {"camera", 9648, 12832},
        {"file management", 22480, 1444},
        {"device management", 23924, 420},
        {"value set", 24344, 5576},
        {"tail", 29920, 8},
    };
    return sections;
}

}  // namespace paramgen::testing::independent

namespace paramgen::testing {

std::optional<std::string> BuildIndependentImage(const std::filesystem::path& directory) {
    const std::optional<independent::Product> product = independent::ReadProduct(directory);
    if (!product) {
        return std::nullopt;
    }
    const independent::BuiltImage image = independent::BuildImage(*product);
    return image.failed ? std::nullopt : std::optional<std::string>(image.bytes);
}

}  // namespace paramgen::testing
