// The argument checks of all typed queries, and their order.

#include <gtest/gtest.h>

#include <bit>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ostream>
#include <string>

#include "confaccess/confaccess.h"
#include "confaccess/locked_module.h"
#include "support/temp_dir.h"
#include "unit/confaccess/outcome.h"
#include "unit/confaccess/queries_fixture.h"

namespace paramgen::testing {
namespace {

/// A query, and the source lines in the messages of its argument checks.
struct CheckedQuery {
    const char* function;
    int lines[7];  ///< null cfgName, module, confItem, value; long cfgName, module, confItem
    int errorCodeLine;
    /// Calls the query; its out argument is null when `hasValue` is false.
    Status (*call)(const char* cfgName, const char* module, const char* confItem, bool hasValue);
};

void PrintTo(const CheckedQuery& query, std::ostream* stream) {
    *stream << query.function;
}

constexpr CheckedQuery kCheckedQueries[] = {
    {"ZV_CONFACCESS_GetString", {377, 378, 379, 380, 381, 383, 385}, 0, CallGetString},
    {"ZV_CONFACCESS_GetInt", {424, 425, 426, 427, 428, 430, 432}, 437, CallGetInt},
    {"ZV_CONFACCESS_GetDouble", {456, 457, 458, 459, 460, 462, 464}, 469, CallGetDouble},
    {"ZV_CONFACCESS_GetBool", {484, 485, 486, 487, 488, 490, 492}, 497, CallGetBool}};

class TypedQueries : public Queries, public ::testing::WithParamInterface<CheckedQuery> {
protected:
    static Outcome Call(const char* cfgName, const char* module, const char* confItem,
                        bool hasValue = true) {
        return Observe([&] { return GetParam().call(cfgName, module, confItem, hasValue); });
    }

    /// The outcome of a failure with `code`. All queries but that of texts print the code.
    static Outcome Failure(std::uint32_t code) {
        if (GetParam().errorCodeLine == 0) {
            return {Code(code), ""};
        }
        char hex[16];
        std::snprintf(hex, sizeof hex, "%08X", code);
        return {Code(code), AtLine(GetParam().function, GetParam().errorCodeLine) +
                                "Error Code: [0x" + hex + "]\n\n"};
    }
};

TEST_P(TypedQueries, NullArgumentsAreToldInTheirOrder) {
    const CheckedQuery& query = GetParam();
    const Status bad = Code(0xA1418041U);
    EXPECT_EQ(Call(nullptr, nullptr, nullptr, false),
              (Outcome{bad, IsNull(query.function, query.lines[0], "cfgName")}));
    EXPECT_EQ(Call("cfg", nullptr, nullptr, false),
              (Outcome{bad, IsNull(query.function, query.lines[1], "module")}));
    EXPECT_EQ(Call("cfg", "mod", nullptr, false),
              (Outcome{bad, IsNull(query.function, query.lines[2], "confItem")}));
    EXPECT_EQ(Call(std::string(128, 'c').c_str(), "mod", "s:k", false),
              (Outcome{bad, IsNull(query.function, query.lines[3], "value")}));
}

TEST_P(TypedQueries, LongArgumentsAreToldInTheirOrder) {
    const CheckedQuery& query = GetParam();
    const Status bad = Code(0xA1418041U);
    const std::string tooLong(128, 'x');
    const char* kNameLimit = "QX_CONFACCESS_NAME_MAX_LEN";
    EXPECT_EQ(Call(tooLong.c_str(), tooLong.c_str(), tooLong.c_str()),
              (Outcome{bad, IsTooLong(query.function, query.lines[4], "cfgName", kNameLimit)}));
    EXPECT_EQ(Call("cfg", tooLong.c_str(), tooLong.c_str()),
              (Outcome{bad, IsTooLong(query.function, query.lines[5], "module", kNameLimit)}));
    EXPECT_EQ(Call("cfg", "mod", tooLong.c_str()),
              (Outcome{bad, IsTooLong(query.function, query.lines[6], "confItem",
                                      "QX_CONFACCESS_KEY_MAX_LEN")}));
}

TEST_P(TypedQueries, KeyOf127CharactersIsTheLongest) {
    EXPECT_EQ(Call("cfg", "mod", LongKey(127).c_str()), (Outcome{kTouched, ""}));
    EXPECT_EQ(Call("cfg", "mod", LongKey(128).c_str()).status, Code(0xA1418041U));
}

TEST_P(TypedQueries, NamesOf127CharactersAreLookedFor) {
    const std::string longest(127, 'x');
    EXPECT_EQ(Call(longest.c_str(), "mod", "num:answer"), Failure(0xA1418045U));
    EXPECT_EQ(Call("cfg", longest.c_str(), "num:answer"), Failure(0xA1418046U));
}

TEST_P(TypedQueries, UnknownConfigurationLeavesTheValueAlone) {
    EXPECT_EQ(Call("other", "mod", "num:answer"), Failure(0xA1418045U));
    EXPECT_EQ(Call("CFG", "mod", "num:answer"), Failure(0xA1418045U));
}

TEST_P(TypedQueries, UnknownModuleLeavesTheValueAlone) {
    EXPECT_EQ(Call("cfg", "other", "num:answer"), Failure(0xA1418046U));
    EXPECT_EQ(Call("cfg", "MOD", "num:answer"), Failure(0xA1418046U));
}

TEST_P(TypedQueries, PresentKeyStoresAndSaysNothing) {
    EXPECT_EQ(Call("cfg", "mod", "num:answer"), (Outcome{kTouched, ""}));
}

TEST_P(TypedQueries, AbsentKeyStoresAndSaysNothing) {
    EXPECT_EQ(Call("cfg", "mod", "num:missing"), (Outcome{kTouched, ""}));
}

INSTANTIATE_TEST_SUITE_P(All, TypedQueries, ::testing::ValuesIn(kCheckedQueries));

TEST(QueriesOfNothing, FindNoConfiguration) {
    EXPECT_EQ(CallGetString("cfg", "mod", "s:k", true), Code(0xA1418045U));
    std::int32_t isExist = 4711;
    EXPECT_EQ(ZV_CONFACCESS_IsMoudleExist("cfg", "mod", &isExist), 0);
    EXPECT_EQ(isExist, 0);
}

}  // namespace
}  // namespace paramgen::testing
