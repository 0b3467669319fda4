#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "manual/c_header.h"
#include "manual/kaitai.h"
#include "manual/layout_compare.h"
#include "manual/layout_data.h"
#include "manual/records.h"
#include "manual/reference.h"

namespace paramgen::manual {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

TEST(Records, EachTypeStandsBehindThoseItIsMadeOf) {
    std::vector<const Record*> met;
    for (const Record* record : Records()) {
        std::uint32_t next = 0;
        for (const Member& member : record->members) {
            EXPECT_EQ(member.offset, next) << record->name << "." << member.name;
            next = member.offset + member.size * member.count;
            if (member.record != nullptr) {
                EXPECT_THAT(met, ::testing::Contains(member.record));
            }
        }
        EXPECT_EQ(next, record->size) << record->name;
        met.push_back(record);
    }
    EXPECT_EQ(ImageRecord().name, "ParamImage");
    EXPECT_EQ(ImageRecord().size, 29928U);
}

TEST(CHeader, AStructForEachRecordWithAssertions) {
    const std::string header = CHeader("1.0");
    EXPECT_THAT(header, HasSubstr("struct paramgen_gsensor_cfg {\n    int32_t sensitivity;"));
    EXPECT_THAT(header, HasSubstr("PARAMGEN_ASSERT(paramgen_image_devMng, "
                                  "offsetof(struct paramgen_image, devMng) == 23924);"));
    EXPECT_THAT(header, HasSubstr("sizeof(struct paramgen_image) == 29928"));
    EXPECT_THAT(header, HasSubstr("#define PARAMGEN_IMAGE_MAGIC 1885434465u\n"));
    EXPECT_THAT(header, HasSubstr("PARAMGEN_QX_PARAM_MEDIAMODE_2160P_30 = 30,"));
    EXPECT_THAT(header, HasSubstr("struct paramgen_value_item_media_mode"));
}

TEST(Kaitai, TextsEndAtTheirZeroOrWithTheirField) {
    EXPECT_THAT(KaitaiStruct("1.0"),
                HasSubstr("  dev_info:\n    seq:\n      - id: software_version\n        size: 64\n"
                          "        type: str\n        terminator: 0\n        encoding: UTF-8\n"));
}

TEST(Layout, CellsOfATableAreQuotedWhenNecessary) {
    EXPECT_EQ(CsvCell("plain text"), "plain text");
    EXPECT_EQ(CsvCell("a,\"b\""), "\"a,\"\"b\"\"\"");
    EXPECT_THAT(LayoutCsv(), HasSubstr("\n24316,4,devMng.gsensor.sensitivity,i32,devmng,gsensor,"
                                       "sensitivity,0,"));
}

TEST(Layout, TheTextIsTheData) {
    EXPECT_EQ(output::Json::parse(LayoutText()), LayoutJson());
}

TEST(Layout, IsThatOfTheLastRelease) {
    std::ifstream file(PARAMGEN_DOCS "/layout.json");
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    for (const LayoutChange& change : CompareLayouts(output::Json::parse(text), LayoutJson())) {
        ADD_FAILURE() << change.member << " " << change.kind << " " << change.text;
    }
}

const ReferenceKey* Find(const Reference& reference, const std::string& module,
                         const std::string& section, const std::string& key) {
    for (const ReferenceModule& inModule : reference.modules) {
        for (const ReferenceSection& inSection : inModule.sections) {
            for (const ReferenceKey& row : inSection.keys) {
                if (inModule.name == module && inSection.name == section && row.key == key) {
                    return &row;
                }
            }
        }
    }
    ADD_FAILURE() << module << "/" << section << ":" << key << " is missing";
    static const ReferenceKey kNone;
    return &kNone;
}

TEST(Reference, RowsSayWhereTheirValuesLie) {
    const Reference reference = MakeReference();
    EXPECT_EQ(Find(reference, "devmng", "gsensor", "sensitivity")->offset, "24316");
    EXPECT_EQ(Find(reference, "workmode_record", "osd.N", "type")->offset, "48 + 268 N");
    EXPECT_EQ(Find(reference, "workmode_record", "osd.N.display.M", "show")->offset,
              "136 + 44 M + 268 N");
    EXPECT_EQ(Find(reference, "devmng", "storagemng", "mount_path")->offset, "22480; 24052");
    EXPECT_EQ(Find(reference, "filemng", "dtcf", "pre_alloc_cnt")->offset, "22872, 22876");
}

TEST(Reference, RowsSayWhatTheirValuesAre) {
    const Reference reference = MakeReference();
    const ReferenceKey& type = *Find(reference, "workmode_record", "osd.N", "type");
    EXPECT_EQ(type.type, "number");
    EXPECT_EQ(type.initial, "4");
    EXPECT_EQ(type.condition, "as many as osd:osdcnt says");
    EXPECT_EQ(Find(reference, "devmng", "devinfo", "model")->type, "text, at most 63 bytes");
    EXPECT_EQ(Find(reference, "devmng", "devinfo", "model")->initial, "");
    EXPECT_EQ(Find(reference, "cam0_mediamodeN", "common", "mediamode")->type,
              "name of qx_param_mediamode");
}

Reference Tricky() {
    ReferenceKey key;
    key.key = "k";
    key.type = "number";
    key.about = "a|b *c* <d> -e \\f";
    return {{{"m", {{"s", {key}}}}}, {{"names", {"A-1"}}}};
}

TEST(Reference, NothingInMarkdownIsMarkup) {
    EXPECT_THAT(Markdown(Tricky()),
                HasSubstr("| `k` | a\\|b \\*c\\* \\<d\\> -e \\\\f | number |  |  |  |  |\n"));
}

TEST(Reference, NothingInAManualPageIsARequest) {
    Reference reference = Tricky();
    reference.modules[0].sections[0].keys[0].about = ".SH x";
    EXPECT_THAT(Man(reference, "1.0"), HasSubstr("\n.TP\n.B k\n\\&.SH x.\n(number)\n"));
    EXPECT_THAT(Man(Tricky(), "1.0"), HasSubstr("\\-e \\ef."));
}

TEST(Reference, NothingInHtmlIsMarkup) {
    const std::string html = Html(Tricky(), "1.0");
    EXPECT_THAT(html, HasSubstr("a|b *c* &lt;d&gt; -e \\f"));
    EXPECT_THAT(html, HasSubstr("<tr id=\"m/s:k\">"));
    EXPECT_THAT(html, Not(HasSubstr("<d>")));
}

TEST(Reference, Json) {
    const output::Json json = ReferenceJson(MakeReference());
    EXPECT_EQ(json["schema"], 1);
    EXPECT_EQ(json["keys"][0]["module"], "workmode_common");
    EXPECT_EQ(json["names"]["qx_param_mediamode"][0], "QX_PARAM_MEDIAMODE_480P_25");
}

}  // namespace
}  // namespace paramgen::manual
