#include "image/diff.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <set>
#include <span>

#include "compile/session.h"
#include "image/dump.h"
#include "output/result.h"

namespace paramgen::image {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
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

const Input& Example() {
    static const Input input = [] {
        const compile::Compilation result =
            compile::Compile(std::filesystem::path(PARAMGEN_EXAMPLES) / "dashcam");
        Input tree = FromImage(result.image);
        tree.isTree = true;
        tree.compilation = result;
        return tree;
    }();
    return input;
}

TEST(Differences, OfAnImageAndItselfThereAreNone) {
    EXPECT_THAT(Differences(Example(), FromImage(Example().image)), SizeIs(0));
}

TEST(Differences, AChangedByteIsToldAsItsOwner) {
    const Input before = FromImage(Example().image);
    Input after = before;
    std::size_t at = 0;
    for (const layout::Value& value : layout::Values()) {
        ASSERT_EQ(value.offset, at);
        for (; at < value.offset + value.size; ++at) {
            const std::byte old = after.image[at];
            after.image[at] ^= std::byte{0x40};
            const std::vector<Difference> found = Differences(before, after);
            ASSERT_THAT(found, SizeIs(1)) << at;
            ASSERT_THAT(found.front().places, ElementsAre(&value)) << at;
            after.image[at] = old;
        }
    }
    EXPECT_EQ(at, 29928U);
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

/// Another text for the value of a key.
std::string OtherText(const layout::Value& value, const compile::Answer& answer) {
    if (const NameTable* names = layout::NamesOf(value)) {
        const std::vector<std::string> all = layout::AllNames(*names);
        return all.front() == answer.text ? all.back() : all.front();
    }
    return EntryOf(Example().image, value).text == "1" ? "0" : "1";
}

/// The keys that differ. A copy of a value goes by the key of the value.
std::set<std::string> KeysThatDiffer(const std::vector<Difference>& differences) {
    std::set<std::string> keys;
    for (const Difference& difference : differences) {
        const layout::Value& changed = *difference.places.front();
        const bool isCopy = changed.Source() == FieldSource::kCopy;
        const layout::Value& owner = isCopy ? *layout::ValueAt(changed.origin) : changed;
        keys.insert(owner.section + ":" + owner.key);
    }
    return keys;
}

/// Whether two runs asked for the same keys.
bool AskedForTheSame(const compile::Compilation& a, const compile::Compilation& b) {
    return std::equal(a.answers.begin(), a.answers.end(), b.answers.begin(), b.answers.end(),
                      [](const compile::Answer& one, const compile::Answer& other) {
                          return one.module == other.module && one.key == other.key;
                      });
}

/// Changes keys of the example and looks at what the diff names.
class ChangedKeys {
public:
    /// Changes all of `answers` at once; half by half when what is asked for changes with them.
    void Try(std::span<const compile::Answer* const> answers) {
        compile::Pretence pretence;
        std::set<std::string> expected;
        for (const compile::Answer* answer : answers) {
            const layout::Value& value = *layout::ValueAt(answer->place->offset);
            pretence.texts[{answer->module, answer->key}] = OtherText(value, *answer);
            expected.insert(answer->key);
        }
        Input after = FromImage({});
        after.isTree = true;
        after.compilation = session_.Run(pretence);
        after.image = after.compilation->image;
        const bool isSame = after.compilation->status == kOk &&
                            AskedForTheSame(*Example().compilation, *after.compilation);
        if (!isSame && answers.size() > 1) {
            Try(answers.first(answers.size() / 2));
            Try(answers.subspan(answers.size() / 2));
            return;
        }
        ASSERT_EQ(after.compilation->status, kOk) << answers.front()->key;
        const std::set<std::string> keys = KeysThatDiffer(Differences(Example(), after));
        if (isSame) {
            EXPECT_EQ(keys, expected) << answers.front()->module;
            alone_ += answers.size();
        } else {
            EXPECT_THAT(keys, Contains(answers.front()->key)) << answers.front()->module;
            ++leading_;
        }
    }

    std::size_t alone() const { return alone_; }

    /// Counts and media modes, which decide about other keys.
    std::size_t leading() const { return leading_; }

private:
    compile::Session session_{std::filesystem::path(PARAMGEN_EXAMPLES) / "dashcam"};
    std::size_t alone_ = 0;
    std::size_t leading_ = 0;
};

// To save time, several keys change at once, unless PARAMGEN_SWEEP=every is in the environment.
TEST(Differences, EachKeyThatIsChangedIsNamedAndNoOther) {
    const char* sweep = std::getenv("PARAMGEN_SWEEP");
    const std::size_t atOnce = sweep != nullptr && std::string(sweep) == "every" ? 1 : 64;
    std::vector<const compile::Answer*> answers;
    for (const compile::Answer& answer : Example().compilation->answers) {
        if (answer.place) {
            answers.push_back(&answer);
        }
    }
    ChangedKeys changed;
    for (std::size_t at = 0; at < answers.size(); at += atOnce) {
        changed.Try(std::span(answers).subspan(at, std::min(atOnce, answers.size() - at)));
    }
    std::printf("%zu keys, and %zu that decide about others\n", changed.alone(), changed.leading());
    EXPECT_GT(changed.alone(), 2000U);
    EXPECT_GT(changed.leading(), 10U);
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
