#include "image/diff.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "compile/session.h"
#include "image/dump.h"
#include "output/result.h"

namespace paramgen::image {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::SizeIs;

Input FromImage(const Image& image) {
    return {.argument = "image",
            .isTree = false,
            .image = image,
            .compilation = std::nullopt,
            .remarks = {}};
}

Input Example() {
    static const compile::Compilation result =
        compile::Compile(std::filesystem::path(PARAMGEN_EXAMPLES) / "dashcam");
    Input input = FromImage(result.image);
    input.isTree = true;
    input.compilation = result;
    return input;
}

TEST(Differences, OfAnImageAndItselfThereAreNone) {
    EXPECT_THAT(Differences(Example(), FromImage(Example().image)), SizeIs(0));
}

TEST(Differences, EachByteHasAnOwner) {
    const Input before = FromImage(Example().image);
    Input after = before;
    for (std::uint32_t at = 0; at < after.image.size(); ++at) {
        const std::byte old = after.image[at];
        after.image[at] ^= std::byte{0x40};
        // Looking at all values for each byte would take minutes.
        const layout::Value& owner = *layout::ValueAt(at);
        EXPECT_TRUE(owner.offset <= at && at < owner.offset + owner.size);
        if (at % 97 == 0) {
            const std::vector<Difference> found = Differences(before, after);
            ASSERT_THAT(found, SizeIs(1)) << at;
            EXPECT_EQ(found.front().places.front(), &owner);
        }
        after.image[at] = old;
    }
}

TEST(Differences, OneKeyInSeveralPlacesIsOne) {
    const Input before = Example();
    Input after = before;
    // The number of pre-allocated files is stored twice.
    after.image[22480 + 392] ^= std::byte{1};
    after.image[22480 + 396] ^= std::byte{1};
    const std::vector<Difference> found = Differences(before, after);
    ASSERT_THAT(found, SizeIs(1));
    EXPECT_THAT(found.front().places, SizeIs(2));
    EXPECT_THAT(TextDiff(found, {}), HasSubstr("filemng/dtcf:pre_alloc_cnt: "));
    EXPECT_THAT(TextDiff(found, {}), HasSubstr(" (2 places)\n"));
    DiffStyle style;
    style.offsets = true;
    EXPECT_THAT(TextDiff(found, style), HasSubstr(" @22872,22876\n"));
}

TEST(Differences, BytesWithoutAKeyGoByTheirMember) {
    const Input before = Example();
    Input after = before;
    after.image[9644] = std::byte{1};
    EXPECT_EQ(TextDiff(Differences(before, after), {}), "gap: 00000000 -> 01000000\n");
}

/// Whether the key of an answer only has a value of its own: it neither counts elements nor selects
/// a media mode.
bool StandsForItself(const compile::Answer& answer) {
    const std::string key = answer.key.substr(answer.key.rfind(':') + 1);
    for (const char* count : {"num", "osdcnt", "dispnum", "thmcnt", "filecnt", "venccnt", "aenccnt",
                              "bindcnt", "max_poolcnt", "mediamode"}) {
        if (key == count) {
            return false;
        }
    }
    return answer.place.has_value() && answer.text.has_value();
}

TEST(Differences, AChangedKeyIsNamedAndNoOther) {
    compile::Session session(std::filesystem::path(PARAMGEN_EXAMPLES) / "dashcam");
    Input before = Example();
    std::size_t tried = 0;
    for (std::size_t i = 0; i < before.compilation->answers.size(); i += 25) {
        const compile::Answer& answer = before.compilation->answers[i];
        const layout::Value& value = *layout::ValueAt(answer.place ? answer.place->offset : 0);
        if (!StandsForItself(answer) || value.Kind() == FieldKind::kName) {
            continue;
        }
        compile::Pretence pretence;
        pretence.texts[{answer.module, answer.key}] = answer.text == "1" ? "0" : "1";
        Input after = before;
        after.compilation = session.Run(pretence);
        ASSERT_EQ(after.compilation->status, kOk) << answer.key;
        after.image = after.compilation->image;
        const std::vector<Difference> found = Differences(before, after);
        for (const Difference& difference : found) {
            const layout::Value& changed = *difference.places.front();
            const bool isCopy = changed.Source() == FieldSource::kCopy;
            const layout::Value& owner = isCopy ? *layout::ValueAt(changed.origin) : changed;
            EXPECT_EQ(owner.section + ":" + owner.key, answer.key) << changed.member;
        }
        tried += found.empty() ? 0 : 1;
    }
    EXPECT_GT(tried, 20U);
}

TEST(Differences, DefaultsAndUnreadKeysAreTold) {
    const Input before = FromImage(Image{});
    Input after = before;
    after.image[24316] = std::byte{7};    // of the g-sensor
    after.image[24 + 20] = std::byte{3};  // displays of an overlay that is not counted
    EXPECT_EQ(TextDiff(Differences(before, after), {}),
              "workmode_record/osd.0:dispnum: 0 (unread) -> 3 (unread)\n"
              "devmng/gsensor:sensitivity: 0 (default) -> 7\n");
}

TEST(Differences, JsonHasThePlaces) {
    const Input before = Example();
    Input after = before;
    after.image[24316] = std::byte{7};
    EXPECT_EQ(JsonDiff(before, after, Differences(before, after)).dump(),
              R"({"schema":1,"differences":[{"module":"devmng","section":"gsensor",)"
              R"("key":"sensitivity","type":"i32","old":2,"new":7,"places":[{"offset":24316,)"
              R"("size":4,"member":"devMng.gsensor.sensitivity"}]}]})");
}

TEST(Differences, MarkdownFitsAReviewComment) {
    Image image = {};
    image.fill(std::byte{0xFF});
    const Input before = FromImage(Image{});
    const Input after = FromImage(image);
    const std::string text = MarkdownDiff(Differences(before, after), {});
    EXPECT_LE(text.size(), 65000U);
    EXPECT_THAT(text, HasSubstr(" differences are left out.\n"));
    Input markup = before;
    std::memcpy(&markup.image[23988], "|<b>`*", 7);
    EXPECT_THAT(MarkdownDiff(Differences(before, markup), {}), HasSubstr(R"(\|\<b\>\`\*)"));
}

TEST(Input, HasTheSizeOfAnImageOrBeginsWithAHeader) {
    const Image image = Example().image;
    const std::string bytes = Characters(image);
    EXPECT_EQ(TakeImage("x", bytes).image, image);
    EXPECT_THROW(static_cast<void>(TakeImage("x", bytes.substr(1))), output::UserError);
    EXPECT_THROW(static_cast<void>(TakeImage("x", "")), output::UserError);
    const Input longer = TakeImage("x", bytes + "more");
    EXPECT_EQ(longer.image, image);
    EXPECT_THAT(longer.remarks, SizeIs(1));
    EXPECT_THROW(static_cast<void>(TakeImage("x", "x" + bytes)), output::UserError);
    // A wrong magic number alone is no reason to refuse it.
    EXPECT_THAT(TakeImage("x", "x" + bytes.substr(1)).remarks, SizeIs(0));
}

}  // namespace
}  // namespace paramgen::image
