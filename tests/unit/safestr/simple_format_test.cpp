#include "safestr/simple_format.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

namespace paramgen::testing {
namespace {

using Argument = SimpleFormat::Argument;

/// What is written into a buffer of `size` characters.
std::string Written(const SimpleFormat& format, const std::vector<Argument>& arguments,
                    std::size_t size = 400) {
    std::string text(size + 1, '#');
    const char* end = format.Write(text.data(), text.data() + size, arguments.data());
    EXPECT_EQ(text.back(), '#');
    return end == nullptr ? "does not fit"
                          : text.substr(0, static_cast<std::size_t>(end - text.data()));
}

TEST(SimpleFormat, KnowsWhatIsSimple) {
    EXPECT_TRUE(SimpleFormat("").IsSimple());
    EXPECT_TRUE(SimpleFormat("text\n").IsSimple());
    EXPECT_TRUE(SimpleFormat("%d").IsSimple());
    EXPECT_TRUE(SimpleFormat("a[%d], b[%u]%s\n").IsSimple());
    EXPECT_FALSE(SimpleFormat("%").IsSimple());
    EXPECT_FALSE(SimpleFormat("%%").IsSimple());
    EXPECT_FALSE(SimpleFormat("%d%f").IsSimple());
    EXPECT_FALSE(SimpleFormat("%lu").IsSimple());
    EXPECT_FALSE(SimpleFormat("%.*s").IsSimple());
    EXPECT_FALSE(SimpleFormat("%02d").IsSimple());
    EXPECT_TRUE(SimpleFormat("%d%d%d%d%d%d%d%d%d%d%d%d%d%d%d").IsSimple());
    EXPECT_FALSE(SimpleFormat("%d%d%d%d%d%d%d%d%d%d%d%d%d%d%d%d").IsSimple());
}

TEST(SimpleFormat, WritesTextsAndNumbers) {
    EXPECT_EQ(Written(SimpleFormat(""), {}), "");
    EXPECT_EQ(Written(SimpleFormat("text\n"), {}), "text\n");
    EXPECT_EQ(Written(SimpleFormat("%s"), {Argument("")}), "");
    EXPECT_EQ(
        Written(SimpleFormat("a[%d], b[%u] %s\n"), {Argument(7), Argument(10U), Argument("c")}),
        "a[7], b[10] c\n");
    EXPECT_EQ(Written(SimpleFormat("%d%d%d"), {Argument(0), Argument(9), Argument(-1)}), "09-1");
    EXPECT_EQ(Written(SimpleFormat("%d %d"), {Argument(INT_MIN), Argument(INT_MAX)}),
              "-2147483648 2147483647");
    EXPECT_EQ(Written(SimpleFormat("%u %d"), {Argument(UINT_MAX), Argument(UINT_MAX)}),
              "4294967295 -1");
    EXPECT_EQ(Written(SimpleFormat("%u"), {Argument(-1)}), "4294967295");
}

TEST(SimpleFormat, RefusesATextThatIsNull) {
    const char* nothing = nullptr;
    EXPECT_EQ(Written(SimpleFormat("[%s]"), {Argument(nothing)}), "does not fit");
}

TEST(SimpleFormat, StaysInsideItsBuffer) {
    constexpr SimpleFormat kFormat("0123456789 %d %s!");
    const std::string text(50, 'x');
    const std::vector<Argument> arguments = {Argument(INT_MIN), Argument(text.c_str())};
    const std::string all = "0123456789 -2147483648 " + text + "!";
    for (std::size_t size = 0; size < 120; ++size) {
        const std::string written = Written(kFormat, arguments, size);
        EXPECT_TRUE(written == all || written == "does not fit") << size;
        // There may be room for a number more than is needed.
        EXPECT_EQ(written == all, size >= all.size() + 11) << size;
    }
}

}  // namespace
}  // namespace paramgen::testing
