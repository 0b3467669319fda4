// The program's image compared with that of the independent builder, for the example product and
// for random products.

#include "golden/independent_image.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <ostream>
#include <string>

#include "golden/random_product.h"
#include "support/program.h"
#include "support/records.h"
#include "support/temp_dir.h"

namespace paramgen::testing {
namespace {

using independent::AskedKey;
using independent::Section;

std::string Hex(const std::string& bytes) {
    std::string text;
    for (const char byte : bytes) {
        char two[4];
        std::snprintf(two, sizeof two, "%02X ", static_cast<unsigned>(byte) & 0xFF);
        text += two;
    }
    return text;
}

/// The keys whose values are stored at a byte of the image.
std::string KeysAt(std::size_t at, const std::vector<AskedKey>& asked) {
    std::string keys;
    for (const AskedKey& key : asked) {
        if (key.at != AskedKey::kNowhere && at >= key.at && at < key.at + key.width) {
            keys += " " + key.module + " " + key.key;
        }
    }
    return keys;
}

/// One line about the first byte of a section that differs; empty when none does.
std::string Difference(const Section& section, const std::string& expected,
                       const std::string& actual, const std::vector<AskedKey>& asked) {
    for (std::size_t at = section.at; at < section.at + section.size; ++at) {
        if (expected[at] != actual[at]) {
            return section.name + ": byte " + std::to_string(at) + " (" +
                   std::to_string(at - section.at) + " of the section): expected " +
                   Hex(expected.substr(at, 4)) + "found " + Hex(actual.substr(at, 4)) + "key" +
                   KeysAt(at, asked) + "\n";
        }
    }
    return "";
}

/// The differences between the program's image in `directory` and the independent one.
std::string Differences(const std::filesystem::path& directory) {
    const std::string actual = ReadFile(directory / "param.bin");
    const std::optional<independent::Product> product = independent::ReadProduct(directory);
    if (!product || actual.size() != 29928) {
        return product ? "no image\n" : "no product\n";
    }
    const independent::BuiltImage expected = independent::BuildImage(*product);
    std::string differences = expected.failed ? "must be refused\n" : "";
    for (const Section& section : independent::Sections()) {
        differences += Difference(section, expected.bytes, actual, expected.asked);
    }
    return differences;
}

std::uint64_t FromEnvironment(const char* name, std::uint64_t otherwise) {
    const char* text = std::getenv(name);
    return text == nullptr ? otherwise : std::strtoull(text, nullptr, 10);
}

const std::vector<AskedKey>& Keys() {
    static const std::vector<AskedKey> keys = AllKeys();
    return keys;
}

/// The random products: PARAMGEN_TREES of them, numbered from PARAMGEN_SEED; and a third as many
/// with a bad value.
class RandomProducts : public ::testing::Test {
protected:
    RandomProducts() {
        std::printf("PARAMGEN_SEED=%llu PARAMGEN_TREES=%llu\n",
                    static_cast<unsigned long long>(first_),
                    static_cast<unsigned long long>(count_));
    }

    std::string Again(std::uint64_t number) const {
        return "again: PARAMGEN_TREES=1 PARAMGEN_SEED=" + std::to_string(number);
    }

    std::uint64_t first_ = FromEnvironment("PARAMGEN_SEED", 20240611);
    std::uint64_t count_ = FromEnvironment("PARAMGEN_TREES", 60);
};

TEST(IndependentImage, OfTheExampleProduct) {
    const TempDir directory;
    std::filesystem::copy(PARAMGEN_EXAMPLES "/dashcam", directory.path(),
                          std::filesystem::copy_options::recursive);
    EXPECT_EQ(RunProgram(directory.path()).exitStatus, 0);
    EXPECT_EQ(Differences(directory.path()), "");
}

/// Lines that are added to a file of the example product.
struct Change {
    std::string file;
    std::string lines;
};

/// The name of a case in messages.
void PrintTo(const Change& change, std::ostream* stream) {
    *stream << change.file << ": " << change.lines;
}

class ChangedExample : public ::testing::TestWithParam<Change> {};

/// Both give the same image, or both refuse the product.
TEST_P(ChangedExample, AsIndependently) {
    const TempDir directory;
    std::filesystem::copy(PARAMGEN_EXAMPLES "/dashcam", directory.path(),
                          std::filesystem::copy_options::recursive);
    const std::string text = ReadFile(directory.path() / GetParam().file);
    directory.Write(GetParam().file, text + GetParam().lines);
    const ProgramRun run = RunProgram(directory.path());
    const bool loads = BuildIndependentImage(directory.path()).has_value();
    EXPECT_EQ(run.exitStatus == 0, loads) << ::testing::PrintToString(ErrorsOf(run.output));
    EXPECT_TRUE(!loads || Differences(directory.path()).empty()) << Differences(directory.path());
}

const std::string kRecord = "workmode/record.ini";
const std::string kValueSet = "valueset.ini";
const std::string kMode = "camera/mediamode/mode0_2160p_30.ini";

// Elements beyond some arrays are stored in the bytes that follow, up to the end of the section.
INSTANTIATE_TEST_SUITE_P(
    Counts, ChangedExample,
    ::testing::Values(Change{kRecord, "[normal.0]\nthmcnt = 7\nthmhdl4 = 77\nthmhdl6 = 78\n"},
                      Change{kRecord, "[normal.0]\nthmcnt = 1105\nthmhdl1104 = 77\n"},
                      Change{kRecord, "[normal.0]\nthmcnt = 1106\n"},
                      Change{kRecord, "[normal.0]\nthmcnt = -1\n"},
                      Change{kValueSet, "[volume]\nnum = 12\nvalue10 = 10\nvalue11 = 11\n"},
                      Change{kValueSet, "[screen.dormant]\nnum = 12\nvalue11 = 11\n"},
                      Change{kValueSet, "[cam.0.enc.payloadtype]\nnum = 348\nvalue300 = 3\n"},
                      Change{kValueSet, "[cam.0.enc.payloadtype]\nnum = 349\n"},
                      Change{kValueSet, "[cam.0.burst.mediamode]\nnum = 11\n"},
                      Change{kValueSet, "[usb.mode]\nnum = -1\n"},
                      Change{kMode, "[vb]\nmax_poolcnt = 9\n"},
                      Change{kMode, "[vb]\nmax_poolcnt = -1\n"}));

// A number at the end of its range is refused when an earlier number was out of range.
INSTANTIATE_TEST_SUITE_P(
    Ranges, ChangedExample,
    ::testing::Values(
        Change{kMode, "[vcap.pipe.0]\nisp_width = 2147483647\nscene_param_idx = -2147483648\n"},
        Change{kMode, "[vcap.dev]\ncomponentmask0 = 99999999999\n"},
        Change{kMode, "[vcap.dev]\ncomponentmask0 = 99999999999\n[venc.0]\ngop = 2147483647\n"},
        Change{kMode, "[vcap.dev]\ncomponentmask0 = -99999999999\n"},
        Change{kMode, "[vcap.pipe.0]\nisp_framerate = 1e999\n"},
        Change{kMode, "[vcap.pipe.0]\nisp_framerate = 1e999\nisp_width = 2147483647\n"},
        Change{kMode, "[vcap.pipe.0]\nisp_framerate = -inf\n"}));

TEST(IndependentImage, NoTwoKeysShareAByte) {
    std::vector<int> owners(29928);
    for (const AskedKey& key : Keys()) {
        const bool lens = key.module.rfind("cam0_ldccfg_", 0) == 0;  // copied to many places
        for (std::size_t i = 0; key.at != AskedKey::kNowhere && !lens && i < key.width; ++i) {
            EXPECT_EQ(owners[key.at + i]++, 0) << key.module << " " << key.key;
        }
    }
}

TEST_F(RandomProducts, GiveTheSameImage) {
    for (std::uint64_t number = first_; number < first_ + count_; ++number) {
        const TempDir directory;
        WriteRandomProduct(directory, Keys(), number, Health::kGood);
        const ProgramRun run = RunProgram(directory.path());
        ASSERT_EQ(run.exitStatus, 0) << Again(number) << "\n"
                                     << ::testing::PrintToString(ErrorsOf(run.output));
        ASSERT_EQ(Differences(directory.path()), "") << Again(number);
    }
}

TEST_F(RandomProducts, AreRefusedWhenAValueThatIsReadIsBad) {
    std::uint64_t refused = 0;
    for (std::uint64_t number = first_; number < first_ + (count_ + 2) / 3; ++number) {
        const TempDir directory;
        WriteRandomProduct(directory, Keys(), number, Health::kOneBadValue);
        const bool loads = BuildIndependentImage(directory.path()).has_value();
        const ProgramRun run = RunProgram(directory.path());
        ASSERT_EQ(run.exitStatus == 0, loads) << Again(number) << "\n"
                                              << ::testing::PrintToString(ErrorsOf(run.output));
        ASSERT_EQ(std::filesystem::exists(directory.path() / "param.bin"), loads) << Again(number);
        refused += loads ? 0 : 1;
    }
    EXPECT_TRUE(refused > 0 || count_ < 60);
}

}  // namespace
}  // namespace paramgen::testing
