// Checks of what may differ between ABIs and libcs, for the machine that this is built for. Like
// the program it needs nothing but libc, so that it runs on the target, where unit tests cannot:
// there is no C++ runtime library. It prints every failed check, and exits with 1 if there is one.

#include <bit>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <string_view>
#include <type_traits>

#include "confaccess/any_case.h"
#include "confaccess/dictionary.h"
#include "confaccess/ini_line.h"
#include "confaccess/number.h"
#include "generator/image.h"
#include "param/common/key.h"
#include "safestr/safestr.h"

namespace {

using paramgen::Dictionary;
using paramgen::IniLine;
using paramgen::IniLineKind;
using paramgen::Key;

// The types in the formats of records.
static_assert(CHAR_BIT == 8 && sizeof(short) == 2 && sizeof(int) == 4 && sizeof(long long) == 8);
static_assert(std::is_same_v<std::int32_t, int>, "%d prints an int32_t");
static_assert(std::is_same_v<std::uint32_t, unsigned>, "%u and %08X print a uint32_t");
static_assert(sizeof(long) == sizeof(void*) && sizeof(std::size_t) == sizeof(void*));
static_assert(sizeof(std::time_t) == 8, "time goes on after 2038");
// Alignment of members in the image.
static_assert(alignof(std::uint64_t) == 8 && alignof(std::uint32_t) == 4);
static_assert(sizeof(float) == 4 && sizeof(double) == 8 && alignof(double) == 8);
static_assert(alignof(paramgen::ParamImage) == 8);
#ifdef __arm__
static_assert(sizeof(long) == 4 && std::is_unsigned_v<char>, "the target's ABI");
#endif

int g_checks = 0;
int g_failures = 0;

void Check(bool holds, const char* what, const char* subject) {
    ++g_checks;
    if (!holds) {
        ++g_failures;
        std::printf("%s: wrong for \"%s\"\n", what, subject);
    }
}

void CheckText(const char* text, const char* expected, const char* what) {
    Check(text != nullptr && std::strcmp(text, expected) == 0, what, expected);
}

constexpr int kUntouched = 12345;

struct IntegerCase {
    const char* text;
    int base;
    std::int32_t number;
    int error;
};

constexpr IntegerCase kIntegers[] = {
    {"42", 10, 42, kUntouched},
    {" \t\n\v\f\r-7", 10, -7, kUntouched},
    {"2147483647", 10, INT_MAX, kUntouched},
    {"2147483648", 10, INT_MAX, ERANGE},
    {"4294967297", 10, INT_MAX, ERANGE},
    {"99999999999", 10, INT_MAX, ERANGE},
    {"18446744073709551617", 10, INT_MAX, ERANGE},
    {"-2147483648", 10, INT_MIN, kUntouched},
    {"-2147483649", 10, INT_MIN, ERANGE},
    {"0xffffffff", 0, INT_MAX, ERANGE},
    {"0x7fffffff", 0, INT_MAX, kUntouched},
    {"020", 0, 16, kUntouched},
    {"\xA0"
     "5",
     10, 0, EINVAL},          // a blank in Latin-1 only
    {"\xB2", 10, 0, EINVAL},  // a digit in Latin-1 only
    {"", 10, 0, EINVAL},
};

void CheckIntegers() {
    for (const IntegerCase& test : kIntegers) {
        errno = kUntouched;
        const std::int32_t number = paramgen::ParseInteger(test.text, test.base);
        const int error = errno;
        Check(number == test.number, "ParseInteger: number", test.text);
        Check(error == test.error, "ParseInteger: errno", test.text);
    }
}

struct DoubleCase {
    const char* text;
    std::uint64_t bits;
    int error;
};

constexpr DoubleCase kDoubles[] = {
    {"0x1p1024", 0x7FF0000000000000U, kUntouched},
    {"0x1p1102", 0x7FF0000000000000U, kUntouched},
    {"0x1p1103", 0x7FF0000000000000U, ERANGE},
    {"0x10p1098", 0x7FF0000000000000U, kUntouched},
    {"0x10p1099", 0x7FF0000000000000U, ERANGE},
    {"0x0010.01p1098", 0x7FF0000000000000U, kUntouched},
    {"0x.1p1106", 0x7FF0000000000000U, kUntouched},
    {"0x.1p1107", 0x7FF0000000000000U, ERANGE},
    {"0x.001p1114", 0x7FF0000000000000U, kUntouched},
    {"0x.001p1115", 0x7FF0000000000000U, ERANGE},
    {"0x1p99999999999999999999", 0x7FF0000000000000U, ERANGE},
    {"0x1.8p-1074", 2, kUntouched},
    {"0x1.8p-1075", 1, kUntouched},
    {"0x1p-1075", 0, ERANGE},
    {"0x0p99999", 0, kUntouched},
    {"0", 0, kUntouched},
    {"-0", 0x8000000000000000U, kUntouched},
    {"0.1", 0x3FB999999999999AU, kUntouched},
    {"29.97", 0x403DF851EB851EB8U, kUntouched},
    {"1e23", 0x44B52D02C7E14AF6U, kUntouched},
    {"9007199254740993", 0x4340000000000000U, kUntouched},  // a tie: to even
    {"0.30000000000000004", 0x3FD3333333333334U, kUntouched},
    {"1.7976931348623157e308", 0x7FEFFFFFFFFFFFFFU, kUntouched},
    {"1.7976931348623159e308", 0x7FF0000000000000U, ERANGE},
    {"2.2250738585072014e-308", 0x0010000000000000U, kUntouched},
    {"2.2250738585072011e-308", 0x000FFFFFFFFFFFFFU, ERANGE},
    {"7e-324", 1, ERANGE},
    {"1e-400", 0, ERANGE},
    {"1e400", 0x7FF0000000000000U, ERANGE},
    {"0x1.8p1", 0x4008000000000000U, kUntouched},
    {"0x", 0, kUntouched},
    {"1e+", 0x3FF0000000000000U, kUntouched},
    {"-inf", 0xFFF0000000000000U, kUntouched},
    {"-nan", 0x7FF8000000000000U, kUntouched},
    {"nan(123)", 0x7FF8000000000000U, kUntouched},
    {"\xA0"
     "1",
     0, EINVAL},
};

void CheckDoubles() {
    for (const DoubleCase& test : kDoubles) {
        errno = kUntouched;
        const double number = paramgen::ParseDouble(test.text);
        const int error = errno;
        Check(std::bit_cast<std::uint64_t>(number) == test.bits, "ParseDouble: bits", test.text);
        Check(error == test.error, "ParseDouble: errno", test.text);
    }
    const float stored = static_cast<float>(paramgen::ParseDouble("29.97"));
    Check(std::bit_cast<std::uint32_t>(stored) == 0x41EFC28FU, "float bits", "29.97");
}

// Arguments of 8 bytes after an odd number of words: 32-bit ARM passes them in aligned pairs of
// registers.
void CheckFormats() {
    Key key;
    Check(key.Format("%lu", ULONG_MAX) > 0, "length", "%lu");
    CheckText(key.c_str(), sizeof(long) == 4 ? "4294967295" : "18446744073709551615", "%lu");
    Check(key.Format("%u %llu %d", 1U, 18446744073709551615ULL, -2) > 0, "length", "%llu");
    CheckText(key.c_str(), "1 18446744073709551615 -2", "%u %llu %d");
    Check(key.Format("[%d][%f][%f]", 7, 29.97, static_cast<double>(0.1F)) > 0, "length", "%f");
    CheckText(key.c_str(), "[7][29.970000][0.100000]", "%d %f %f");
    Check(key.Format("%f %f", paramgen::ParseDouble("-inf"), paramgen::ParseDouble("nan")) > 0,
          "length", "%f");
    CheckText(key.c_str(), "-inf nan", "%f");
    Check(key.Format("%02d:%03lld %04lld.", 5, 42LL, 7LL) > 0, "length", "%04lld");
    CheckText(key.c_str(), "05:042 0007.", "%02d:%03lld %04lld");
    Check(key.Format("0x%08X %s", 0xA1418046U, "\xE9") > 0, "length", "%08X");
    CheckText(key.c_str(), "0xA1418046 \xE9", "%08X %s");
}

void CheckScan() {
    int number = 0;
    unsigned char small = 0;
    long long large = 0;
    Check(paramgen::sscanf_s("7,200,99999999999", "%d,%hhu,%lld", &number, &small, &large) == 3 &&
              number == 7 && small == 200 && large == 99999999999LL,
          "sscanf_s", "%d,%hhu,%lld");
}

/// A line with `byte` before and after its name, and before and after its value.
void CheckByteInLine(unsigned byte) {
    const char c = static_cast<char>(byte);
    const char line[] = {c, 'K', c, '=', c, 'V', c};
    const char name[] = {c, 'K', c};
    const char value[] = {c, 'V', c};
    char subject[] = "byte 0x??";
    paramgen::sprintf_s(subject, sizeof subject, "byte 0x%02X", byte);
    const IniLine parsed = paramgen::ParseIniLine({line, sizeof line});
    const bool isBlank = byte == ' ' || (byte >= '\t' && byte <= '\r');
    Check(parsed.kind == IniLineKind::kValue, "kind of line", subject);
    Check(parsed.name == (isBlank ? "K" : std::string_view(name, sizeof name)), "name in line",
          subject);
    Check(parsed.value == (isBlank ? "V" : std::string_view(value, sizeof value)), "value in line",
          subject);
}

// Bytes above 127 are ordinary characters: neither white space nor letters.
void CheckBytesInLines() {
    for (unsigned byte = 0x80; byte <= 0xFF; ++byte) {
        CheckByteInLine(byte);
    }
    for (const unsigned byte : {0x01U, 0x08U, 0x09U, 0x0BU, 0x0CU, 0x0DU, 0x0EU, 0x20U, 0x7FU}) {
        CheckByteInLine(byte);
    }
    const char letters[] = "AZ\xC0\xDE\xC3\x89[@`{";
    const char folded[] = "az\xC0\xDE\xC3\x89[@`{";
    const char others[] = "az\xE0\xFE\xE3\xA9{`@[";
    Check(paramgen::SameInAnyCase(letters, folded, sizeof letters), "SameInAnyCase", "letters");
    for (std::size_t at = 2; at < sizeof letters - 1; ++at) {
        Check(!paramgen::SameInAnyCase(letters + at, others + at, 1), "SameInAnyCase",
              "bytes above 127, and beside the letters");
    }
    Check(paramgen::HashInAnyCase(letters) == paramgen::HashInAnyCase(folded), "HashInAnyCase",
          "letters");
}

void CheckDictionary() {
    const char key[] =
        "CAF\xE9:gr\xF6\xDF"
        "E";
    paramgen::Arena arena;
    Dictionary dictionary;
    Check(dictionary.Create("caf\xE9\nGR\xF6\xDF"
                            "e=\xFE\xFF\n",
                            &arena),
          "Dictionary", "Create");
    dictionary.AddSection("caf\xE9");
    dictionary.AddValue(
        "GR\xF6\xDF"
        "e",
        "\xFE\xFF");
    Check(dictionary.Finish(&arena), "Dictionary", "Finish");
    CheckText(dictionary.FindText(key, nullptr), "\xFE\xFF", "Dictionary");
    Check(dictionary.FindText("caf\xC9:gr\xF6\xDF"
                              "e",
                              nullptr) == nullptr,
          "Dictionary", "another key");
}

void CheckClock() {
    const std::time_t late = 0x80000000LL;
    std::tm utc = {};
    Check(gmtime_r(&late, &utc) != nullptr && utc.tm_year == 138 && utc.tm_mon == 0 &&
              utc.tm_mday == 19 && utc.tm_hour == 3 && utc.tm_min == 14 && utc.tm_sec == 8,
          "gmtime_r", "2038-01-19 03:14:08");
}

/// The bytes of one word of the image, as the file has them.
void CheckByteOrder() {
    static paramgen::ParamImage image;
    paramgen::BuildFrame(&image);
    Check(std::memcmp(&image, "\x61\x72\x61\x70\xE8\x74\0\0", 8) == 0, "byte order", "header");
}

}  // namespace

int main() {
    CheckIntegers();
    CheckDoubles();
    CheckFormats();
    CheckScan();
    CheckBytesInLines();
    CheckDictionary();
    CheckClock();
    CheckByteOrder();
    std::printf("%d checks, %d wrong\n", g_checks, g_failures);
    return g_failures == 0 ? 0 : 1;
}
