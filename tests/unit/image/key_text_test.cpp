#include "image/key_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <limits>
#include <random>

#include "confaccess/number.h"
#include "layout/layout.h"

namespace paramgen::image {
namespace {

using Text = std::optional<std::string>;

const layout::Value& ValueOf(const char* module, const char* section, const char* key) {
    return *layout::FindKey(module, section, key)->values.front();
}

template <typename Number>
Text TextOf(const layout::Value& value, Number number) {
    std::vector<std::byte> bytes(sizeof number);
    std::memcpy(bytes.data(), &number, sizeof number);
    EXPECT_EQ(bytes.size(), value.size) << value.Member();
    return KeyText(value, bytes);
}

Text TextOf(const layout::Value& value, std::string characters) {
    characters.resize(value.size, '\0');
    return KeyText(value, std::as_bytes(std::span(characters)));
}

TEST(KeyText, NumbersAreWrittenAsTheyAreRead) {
    const layout::Value& number = ValueOf("devmng", "gsensor", "sensitivity");
    EXPECT_EQ(TextOf(number, std::int32_t{-2147483647 - 1}), "-2147483648");
    EXPECT_EQ(TextOf(number, std::int32_t{7}), "7");
    // Unsigned members are read as signed numbers.
    const layout::Value& word = ValueOf("workmode_record", "osd", "osdcnt");
    EXPECT_EQ(TextOf(word, std::uint32_t{4294967295}), "-1");
    const layout::Value& byte = ValueOf("media_common", "venc.snap.single", "largethumbnail_num");
    EXPECT_EQ(TextOf(byte, std::uint8_t{200}), "200");
    const layout::Value& narrow = ValueOf("media_common", "aenc.0.aac", "band_width");
    EXPECT_EQ(TextOf(narrow, std::int16_t{-32768}), "-32768");
}

TEST(KeyText, ABooleanIsZeroOrOne) {
    const layout::Value& flag = ValueOf("devmng", "keytone", "enable");
    EXPECT_EQ(TextOf(flag, std::uint32_t{0}), "0");
    EXPECT_EQ(TextOf(flag, std::uint32_t{1}), "1");
    EXPECT_EQ(TextOf(flag, std::uint32_t{2}), std::nullopt);
    EXPECT_EQ(TextOf(flag, std::uint32_t{256}), std::nullopt);
}

TEST(KeyText, A64BitSizeIsReadWith32) {
    const layout::Value& size = ValueOf("cam0_mediamode0", "vb.pool.0", "blk_size");
    EXPECT_EQ(TextOf(size, std::int64_t{2147483647}), "2147483647");
    EXPECT_EQ(TextOf(size, std::int64_t{-1}), "-1");
    EXPECT_EQ(TextOf(size, std::int64_t{2147483648}), std::nullopt);
    EXPECT_EQ(TextOf(size, std::int64_t{1} << 40), std::nullopt);
}

TEST(KeyText, DormantTimesAreDividedAgain) {
    const layout::Value& time = ValueOf("valueset", "screen.dormant", "value0");
    EXPECT_EQ(TextOf(time, std::uint32_t{30000}), "30");
    EXPECT_EQ(TextOf(time, std::uint32_t{0}), "0");
    // 115964117 * 1000 is 8 beyond a multiple of 2^32.
    EXPECT_EQ(TextOf(time, std::uint32_t{8}), "115964117");
    EXPECT_EQ(TextOf(time, std::uint32_t{4}), std::nullopt);
    EXPECT_EQ(TextOf(time, std::uint32_t{30001}), std::nullopt);
}

TEST(KeyText, NamesStandForTheirNumbersAlone) {
    const layout::Value& mode = ValueOf("cam0_mediamode0", "common", "mediamode");
    EXPECT_EQ(TextOf(mode, std::int32_t{0}), "QX_PARAM_MEDIAMODE_480P_25");
    EXPECT_EQ(TextOf(mode, std::int32_t{53}), "QX_PARAM_MEDIAMODE_PLAYBACK");
    EXPECT_EQ(TextOf(mode, std::int32_t{54}), std::nullopt);
    EXPECT_EQ(TextOf(mode, std::int32_t{-1}), std::nullopt);
}

TEST(KeyText, TextsHaveAnEndAndZerosBehindIt) {
    const layout::Value& model = ValueOf("devmng", "devinfo", "model");
    EXPECT_EQ(TextOf(model, std::string("RoadView X4")), "RoadView X4");
    EXPECT_EQ(TextOf(model, std::string()), "");
    EXPECT_EQ(TextOf(model, std::string(63, 'x')), std::string(63, 'x'));
    EXPECT_EQ(TextOf(model, std::string(64, 'x')), std::nullopt);
    EXPECT_EQ(TextOf(model, std::string("a\0b", 3)), std::nullopt);
    const layout::Value& directory = ValueOf("filemng", "dtcf.dir.name", "dir_name0");
    EXPECT_EQ(TextOf(directory, std::string("\"\"")), std::nullopt);
    EXPECT_EQ(TextOf(model, std::string("\"\"")), "\"\"");
}

TEST(KeyText, FloatsAreTheShortestTextThatReadsBack) {
    const layout::Value& rate = ValueOf("cam0_mediamode0", "vcap.pipe.0", "isp_framerate");
    EXPECT_EQ(TextOf(rate, 29.97F), "29.97");
    EXPECT_EQ(TextOf(rate, 30.0F), "30");
    EXPECT_EQ(TextOf(rate, -0.0F), "-0");
    EXPECT_EQ(TextOf(rate, std::numeric_limits<float>::infinity()), "inf");
    EXPECT_EQ(TextOf(rate, -std::numeric_limits<float>::infinity()), "-inf");
    EXPECT_EQ(TextOf(rate, std::uint32_t{0x7FC00000}), "nan");
    EXPECT_EQ(TextOf(rate, std::uint32_t{0x7FC00001}), std::nullopt);
    EXPECT_EQ(TextOf(rate, std::uint32_t{0xFFC00000}), std::nullopt);
}

TEST(KeyText, AnyFloatReadsBack) {
    std::mt19937 random(1);
    for (int i = 0; i < 200000; ++i) {
        const auto bits = static_cast<std::uint32_t>(random());
        const float number = std::bit_cast<float>(bits);
        if (number != number) {
            continue;
        }
        const double read = ParseDouble(FloatText(number).c_str());
        ASSERT_EQ(std::bit_cast<std::uint32_t>(static_cast<float>(read)), bits);
    }
}

}  // namespace
}  // namespace paramgen::image
