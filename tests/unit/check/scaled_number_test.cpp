#include "check/scaled_number.h"

#include <gtest/gtest.h>

namespace paramgen::check {
namespace {

TEST(ScaledNumber, LettersArePowersOfAThousand) {
    EXPECT_EQ(ScaledNumber(12, "M", ""), 12'000'000);
    EXPECT_EQ(ScaledNumber(64, "k", ""), 64'000);
    EXPECT_EQ(ScaledNumber(-64, "K", "Hz"), -64'000);
    EXPECT_EQ(ScaledNumber(2, "G", ""), 2'000'000'000);
    EXPECT_EQ(ScaledNumber(3, "G", ""), std::nullopt) << "beyond 32 bits";
}

TEST(ScaledNumber, OfBytesThoseOf1024) {
    EXPECT_EQ(ScaledNumber(4, "M", "KB"), 4096);
    EXPECT_EQ(ScaledNumber(4, "MB", "KB"), 4096);
    EXPECT_EQ(ScaledNumber(1, "G", "MB"), 1024);
    EXPECT_EQ(ScaledNumber(2, "K", "bytes"), 2048);
}

TEST(ScaledNumber, InTheUnitOfTheValue) {
    EXPECT_EQ(ScaledNumber(12, "M", "kbit/s"), 12'000);
    EXPECT_EQ(ScaledNumber(12, "Mbit/s", "kbit/s"), 12'000);
    EXPECT_EQ(ScaledNumber(12, "kbit/s", "kbit/s"), 12);
    EXPECT_EQ(ScaledNumber(96, "kbit/s", "bit/s"), 96'000);
    EXPECT_EQ(ScaledNumber(30, "fps", "fps"), 30);
    EXPECT_EQ(ScaledNumber(50, "%", "%"), 50);
}

TEST(ScaledNumber, OfTimes) {
    EXPECT_EQ(ScaledNumber(3, "min", "s"), 180);
    EXPECT_EQ(ScaledNumber(2, "s", "ms"), 2000);
    EXPECT_EQ(ScaledNumber(1, "h", "ms"), 3'600'000);
    EXPECT_EQ(ScaledNumber(5, "ms", "ms"), 5);
    EXPECT_EQ(ScaledNumber(500, "ms", "s"), std::nullopt) << "less than one";
    EXPECT_EQ(ScaledNumber(3, "min", "fps"), std::nullopt);
    EXPECT_EQ(ScaledNumber(600, "h", "ms"), std::nullopt) << "beyond 32 bits";
}

TEST(ScaledNumber, NothingElseIsGuessed) {
    EXPECT_EQ(ScaledNumber(12, "", "kbit/s"), std::nullopt);
    EXPECT_EQ(ScaledNumber(12, "m", ""), std::nullopt);
    EXPECT_EQ(ScaledNumber(12, "Mfoo", "kbit/s"), std::nullopt);
    EXPECT_EQ(ScaledNumber(12, "k", "MB"), std::nullopt) << "less than one";
    EXPECT_EQ(ScaledNumber(12, "fps", "Hz"), std::nullopt);
    EXPECT_EQ(ScaledNumber(5, "M", "MB"), 5);
}

}  // namespace
}  // namespace paramgen::check
