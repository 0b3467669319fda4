#include "confaccess/number.h"

#include <gtest/gtest.h>

#include <bit>
#include <cerrno>
#include <cmath>
#include <ostream>
#include <string>

namespace paramgen::testing {
namespace {

constexpr int kUntouched = 12345;

struct IntegerCase {
    const char* text;
    int base;
    std::int32_t number;
    int error;  ///< `errno` afterwards
};

void PrintTo(const IntegerCase& test, std::ostream* stream) {
    *stream << '"' << test.text << "\" in base " << test.base;
}

class ParseIntegerText : public ::testing::TestWithParam<IntegerCase> {};

TEST_P(ParseIntegerText, GivesNumberAndErrno) {
    errno = kUntouched;
    const std::int32_t number = ParseInteger(GetParam().text, GetParam().base);
    const int error = errno;
    EXPECT_EQ(number, GetParam().number);
    EXPECT_EQ(error, GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(
    Decimal, ParseIntegerText,
    ::testing::Values(IntegerCase{"0", 10, 0, kUntouched}, IntegerCase{"42", 10, 42, kUntouched},
                      IntegerCase{"+42", 10, 42, kUntouched},
                      IntegerCase{"-42", 10, -42, kUntouched}, IntegerCase{"-0", 10, 0, kUntouched},
                      IntegerCase{" \t\n\v\f\r7", 10, 7, kUntouched},
                      IntegerCase{"007", 10, 7, kUntouched}, IntegerCase{"08", 10, 8, kUntouched},
                      IntegerCase{"12abc", 10, 12, kUntouched},
                      IntegerCase{"12 34", 10, 12, kUntouched},
                      IntegerCase{"3.9", 10, 3, kUntouched}, IntegerCase{"0x10", 10, 0, kUntouched},
                      IntegerCase{"", 10, 0, EINVAL}, IntegerCase{"   ", 10, 0, EINVAL},
                      IntegerCase{"abc", 10, 0, EINVAL}, IntegerCase{"a", 10, 0, EINVAL},
                      IntegerCase{"+", 10, 0, EINVAL}, IntegerCase{"-", 10, 0, EINVAL},
                      IntegerCase{"+-5", 10, 0, EINVAL}, IntegerCase{"--5", 10, 0, EINVAL},
                      IntegerCase{"- 5", 10, 0, EINVAL}, IntegerCase{"\xb2", 10, 0, EINVAL},
                      IntegerCase{"/", 10, 0, EINVAL}, IntegerCase{":", 10, 0, EINVAL}));

INSTANTIATE_TEST_SUITE_P(
    Limits, ParseIntegerText,
    ::testing::Values(IntegerCase{"2147483646", 10, 2147483646, kUntouched},
                      IntegerCase{"2147483647", 10, 2147483647, kUntouched},
                      IntegerCase{"2147483648", 10, 2147483647, ERANGE},
                      IntegerCase{"4294967295", 10, 2147483647, ERANGE},
                      IntegerCase{"4294967297", 10, 2147483647, ERANGE},
                      IntegerCase{"99999999999", 10, 2147483647, ERANGE},
                      IntegerCase{"18446744073709551617", 10, 2147483647, ERANGE},
                      IntegerCase{"99999999999999999999999999999999x", 10, 2147483647, ERANGE},
                      IntegerCase{"-2147483647", 10, -2147483647, kUntouched},
                      IntegerCase{"-2147483648", 10, -2147483647 - 1, kUntouched},
                      IntegerCase{"-2147483649", 10, -2147483647 - 1, ERANGE},
                      IntegerCase{"-99999999999999999999999", 10, -2147483647 - 1, ERANGE},
                      IntegerCase{"00000000000000000000000000000002147483647", 10, 2147483647,
                                  kUntouched},
                      IntegerCase{"0x7fffffff", 0, 2147483647, kUntouched},
                      IntegerCase{"0x80000000", 0, 2147483647, ERANGE},
                      IntegerCase{"-0x80000000", 0, -2147483647 - 1, kUntouched},
                      IntegerCase{"0xffffffff", 0, 2147483647, ERANGE},
                      IntegerCase{"017777777777", 0, 2147483647, kUntouched},
                      IntegerCase{"020000000000", 0, 2147483647, ERANGE}));

INSTANTIATE_TEST_SUITE_P(
    Prefixed, ParseIntegerText,
    ::testing::Values(IntegerCase{"10", 0, 10, kUntouched}, IntegerCase{"0x10", 0, 16, kUntouched},
                      IntegerCase{"0X1f", 0, 31, kUntouched},
                      IntegerCase{"0xABCDEF", 0, 0xABCDEF, kUntouched},
                      IntegerCase{"0xabcdefg", 0, 0xABCDEF, kUntouched},
                      IntegerCase{" -0x10", 0, -16, kUntouched},
                      IntegerCase{"+010", 0, 8, kUntouched}, IntegerCase{"010", 0, 8, kUntouched},
                      IntegerCase{"0", 0, 0, kUntouched}, IntegerCase{"00", 0, 0, kUntouched},
                      IntegerCase{"08", 0, 0, kUntouched}, IntegerCase{"0178", 0, 15, kUntouched},
                      IntegerCase{"0x", 0, 0, kUntouched}, IntegerCase{"0X", 0, 0, kUntouched},
                      IntegerCase{"0xg", 0, 0, kUntouched}, IntegerCase{"0x 1", 0, 0, kUntouched},
                      IntegerCase{"0x-1", 0, 0, kUntouched}, IntegerCase{"0b1", 0, 0, kUntouched},
                      IntegerCase{"x10", 0, 0, EINVAL}, IntegerCase{"", 0, 0, EINVAL},
                      IntegerCase{"-", 0, 0, EINVAL}, IntegerCase{"ff", 0, 0, EINVAL}));

struct DoubleCase {
    const char* text;
    std::uint64_t bits;
    int error;  ///< `errno` afterwards
};

void PrintTo(const DoubleCase& test, std::ostream* stream) {
    *stream << '"' << test.text << '"';
}

class ParseDoubleText : public ::testing::TestWithParam<DoubleCase> {};

TEST_P(ParseDoubleText, GivesNumberAndErrno) {
    errno = kUntouched;
    const double number = ParseDouble(GetParam().text);
    const int error = errno;
    EXPECT_EQ(std::bit_cast<std::uint64_t>(number), GetParam().bits) << number;
    EXPECT_EQ(error, GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(Decimal, ParseDoubleText,
                         ::testing::Values(DoubleCase{"0", 0, kUntouched},
                                           DoubleCase{"-0", 0x8000000000000000U, kUntouched},
                                           DoubleCase{"1", 0x3FF0000000000000U, kUntouched},
                                           DoubleCase{"+1.0", 0x3FF0000000000000U, kUntouched},
                                           DoubleCase{" \t-2.5abc", 0xC004000000000000U,
                                                      kUntouched},
                                           DoubleCase{".5", 0x3FE0000000000000U, kUntouched},
                                           DoubleCase{"5.", 0x4014000000000000U, kUntouched},
                                           DoubleCase{"1e1", 0x4024000000000000U, kUntouched},
                                           DoubleCase{"1e", 0x3FF0000000000000U, kUntouched},
                                           DoubleCase{"1,5", 0x3FF0000000000000U, kUntouched}));

INSTANTIATE_TEST_SUITE_P(Hexadecimal, ParseDoubleText,
                         ::testing::Values(DoubleCase{"0x10", 0x4030000000000000U, kUntouched},
                                           DoubleCase{"0X1.8p1", 0x4008000000000000U, kUntouched},
                                           DoubleCase{"-0x.8", 0xBFE0000000000000U, kUntouched},
                                           DoubleCase{"0x", 0, kUntouched},
                                           DoubleCase{"0xg", 0, kUntouched}));

constexpr std::uint64_t kInfinity = 0x7FF0000000000000U;

// Numbers are too large from a certain exponent on, whatever their digits behind the point are.
INSTANTIATE_TEST_SUITE_P(
    HexadecimalLimits, ParseDoubleText,
    ::testing::Values(
        DoubleCase{"0x1p1023", 0x7FE0000000000000U, kUntouched},
        DoubleCase{"0x1p1024", kInfinity, kUntouched},
        DoubleCase{" \t-0X1P+1024", 0xFFF0000000000000U, kUntouched},
        DoubleCase{"0x1p1102", kInfinity, kUntouched}, DoubleCase{"0x1p1103", kInfinity, ERANGE},
        DoubleCase{"0x10p1098", kInfinity, kUntouched}, DoubleCase{"0x10p1099", kInfinity, ERANGE},
        DoubleCase{"0x0010.01p1098", kInfinity, kUntouched},
        DoubleCase{"0x.1p1106", kInfinity, kUntouched}, DoubleCase{"0x.1p1107", kInfinity, ERANGE},
        DoubleCase{"0x.001p1114", kInfinity, kUntouched},
        DoubleCase{"0x.001p1115", kInfinity, ERANGE},
        DoubleCase{"0x1p99999999999999999999", kInfinity, ERANGE},
        DoubleCase{"0x1.8p-1074", 2, kUntouched}, DoubleCase{"0x1p-1074", 1, kUntouched},
        DoubleCase{"0x1.8p-1075", 1, kUntouched}, DoubleCase{"0x1p-1075", 0, ERANGE},
        DoubleCase{"0x1p-99999999999999999999", 0, ERANGE},
        DoubleCase{"0x0p99999", 0, kUntouched}));

INSTANTIATE_TEST_SUITE_P(NoFiniteNumber, ParseDoubleText,
                         ::testing::Values(DoubleCase{"inf", 0x7FF0000000000000U, kUntouched},
                                           DoubleCase{"-INFinity", 0xFFF0000000000000U, kUntouched},
                                           DoubleCase{"infinit", 0x7FF0000000000000U, kUntouched},
                                           DoubleCase{"nan", 0x7FF8000000000000U, kUntouched},
                                           DoubleCase{"NaN", 0x7FF8000000000000U, kUntouched},
                                           DoubleCase{"-nan", 0x7FF8000000000000U, kUntouched},
                                           DoubleCase{"nan(123)", 0x7FF8000000000000U, kUntouched},
                                           DoubleCase{"-nan(0x7ff)", 0x7FF8000000000000U,
                                                      kUntouched},
                                           DoubleCase{"nan(", 0x7FF8000000000000U, kUntouched}));

INSTANTIATE_TEST_SUITE_P(Limits, ParseDoubleText,
                         ::testing::Values(DoubleCase{"1e400", 0x7FF0000000000000U, ERANGE},
                                           DoubleCase{"-1e400", 0xFFF0000000000000U, ERANGE},
                                           DoubleCase{"1e-400", 0, ERANGE},
                                           DoubleCase{"-1e-400", 0x8000000000000000U, ERANGE},
                                           DoubleCase{"0x1p2000", 0x7FF0000000000000U, ERANGE},
                                           DoubleCase{"1e-310", 0x000012688B70E62BU, ERANGE},
                                           DoubleCase{"1.7976931348623157e308", 0x7FEFFFFFFFFFFFFFU,
                                                      kUntouched}));

INSTANTIATE_TEST_SUITE_P(NoDigits, ParseDoubleText,
                         ::testing::Values(DoubleCase{"", 0, EINVAL}, DoubleCase{"  ", 0, EINVAL},
                                           DoubleCase{"abc", 0, EINVAL}, DoubleCase{".", 0, EINVAL},
                                           DoubleCase{"-", 0, EINVAL}, DoubleCase{"-.", 0, EINVAL},
                                           DoubleCase{"e5", 0, EINVAL},
                                           DoubleCase{"in", 0, EINVAL}));

}  // namespace
}  // namespace paramgen::testing
