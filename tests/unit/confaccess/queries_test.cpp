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

/// The text of a key; "(null)" when the query stores null.
std::string TextOf(const char* key, const char* defaultValue = nullptr) {
    char* value = nullptr;
    EXPECT_EQ(ZV_CONFACCESS_GetString("cfg", "mod", key, defaultValue, &value), 0);
    const std::string text = value == nullptr ? "(null)" : value;
    std::free(value);
    return text;
}

TEST_F(Queries, TextIsACopyOfTheValue) {
    EXPECT_EQ(TextOf("section:key"), "Value of Key");
    EXPECT_EQ(TextOf("section:quoted"), "  two words ");
    EXPECT_EQ(TextOf("section:empty", "default"), "");
    EXPECT_EQ(TextOf(":top"), "of no section");
}

TEST_F(Queries, TextIsACopyOfTheDefault) {
    const char kDefault[] = "default";
    char* value = nullptr;
    ASSERT_EQ(ZV_CONFACCESS_GetString("cfg", "mod", "section:no", kDefault, &value), 0);
    EXPECT_STREQ(value, kDefault);
    EXPECT_NE(value, kDefault);
    std::free(value);
    EXPECT_EQ(TextOf("section:no", ""), "");
}

TEST_F(Queries, TextIsNullWithoutValueAndDefault) {
    EXPECT_EQ(TextOf("section:no"), "(null)");
}

TEST_F(Queries, KeysAreFoldedToLowerCase) {
    EXPECT_EQ(TextOf("SECTION:KEY"), "Value of Key");
    EXPECT_EQ(TextOf("sEcTiOn:kEy"), "Value of Key");
    EXPECT_EQ(TextOf("section:key "), "(null)");
    EXPECT_EQ(TextOf(" section:key"), "(null)");
}

TEST_F(Queries, SectionMarkerHasNoValueWhateverTheDefault) {
    EXPECT_EQ(TextOf("section", "default"), "(null)");
    EXPECT_EQ(TextOf("a:b", "default"), "(null)");
    EXPECT_EQ(TextOf("none", "default"), "default");
    EXPECT_EQ(TextOf("", "default"), "default");
}

std::int32_t IntegerOf(const char* key, std::int32_t defaultValue = 5) {
    std::int32_t value = 4711;
    EXPECT_EQ(ZV_CONFACCESS_GetInt("cfg", "mod", key, defaultValue, &value), 0) << key;
    return value;
}

TEST_F(Queries, IntegersAreDecimal) {
    EXPECT_EQ(IntegerOf("num:answer"), 42);
    EXPECT_EQ(IntegerOf("num:negative"), -7);
    EXPECT_EQ(IntegerOf("num:trailing"), 12);
    EXPECT_EQ(IntegerOf("num:hex"), 0);
    EXPECT_EQ(IntegerOf("num:octal"), 10);
    EXPECT_EQ(IntegerOf("num:half"), 0);
    EXPECT_EQ(IntegerOf("section:key"), 0);
    EXPECT_EQ(IntegerOf("section:empty"), 0);
}

TEST_F(Queries, IntegerWithoutValueIsTheDefault) {
    EXPECT_EQ(IntegerOf("num:no", -1), -1);
    EXPECT_EQ(IntegerOf("num"), 5);
    EXPECT_EQ(IntegerOf("a:b"), 5);
    errno = ERANGE;
    EXPECT_EQ(IntegerOf("num:no", 2147483647), 2147483647);
}

/// The status of an integer query, which must not change its out argument.
Status RefusedInt(const char* key) {
    return Observe([&] { return CallGetInt("cfg", "mod", key, true); }).status;
}

TEST_F(Queries, IntegersBeyondTheLimitsAreRefused) {
    for (const char* key : {"num:above", "num:below", "num:huge", "num:max"}) {
        // The last one is refused because the others have left ERANGE in errno.
        EXPECT_EQ(Observe([&] { return CallGetInt("cfg", "mod", key, true); }),
                  (Outcome{-1,
                           "[time][ERR][QXCONFACCE] ZV_CONFACCESS_GetInt:444 config value is out "
                           "of range\n"}))
            << key;
    }
}

TEST_F(Queries, IntegersAtTheLimitsAreTakenUnlessErrnoHeldERANGE) {
    EXPECT_EQ(IntegerOf("num:max"), 2147483647);
    EXPECT_EQ(IntegerOf("num:min"), -2147483647 - 1);
    errno = ERANGE;
    EXPECT_EQ(RefusedInt("num:max"), -1);
    EXPECT_EQ(RefusedInt("num:min"), -1);
    EXPECT_EQ(errno, ERANGE);
    EXPECT_EQ(IntegerOf("num:answer"), 42);
    EXPECT_EQ(errno, ERANGE);
}

TEST_F(Queries, TextWithoutDigitsTakesERANGEAway) {
    errno = ERANGE;
    EXPECT_EQ(IntegerOf("section:key"), 0);
    EXPECT_EQ(errno, EINVAL);
    EXPECT_EQ(IntegerOf("num:max"), 2147483647);
}

double NumberOf(const char* key) {
    double value = 47.11;
    EXPECT_EQ(ZV_CONFACCESS_GetDouble("cfg", "mod", key, 2.5, &value), 0) << key;
    return value;
}

TEST_F(Queries, FloatingPointIsDecimalOrHexadecimal) {
    EXPECT_EQ(NumberOf("num:half"), 0.5);
    EXPECT_EQ(NumberOf("num:hexhalf"), 0.5);
    EXPECT_EQ(NumberOf("num:hex"), 16.0);
    EXPECT_EQ(NumberOf("num:negative"), -7.0);
    EXPECT_EQ(NumberOf("num:trailing"), 12.0);
    EXPECT_EQ(NumberOf("section:key"), 0.0);
    EXPECT_EQ(NumberOf("section:empty"), 0.0);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(NumberOf("num:nan")), 0x7FF8000000000000U);
}

TEST_F(Queries, FloatingPointWithoutValueIsTheDefault) {
    EXPECT_EQ(NumberOf("num:no"), 2.5);
    EXPECT_EQ(NumberOf("num"), 2.5);
}

TEST_F(Queries, FloatingPointHasNoLimitsButLeavesERANGEBehind) {
    for (const char* key : {"num:overflow", "num:underflow"}) {
        errno = 0;
        EXPECT_EQ(Observe([&] { return CallGetDouble("cfg", "mod", key, true); }),
                  (Outcome{kTouched, ""}));
        EXPECT_EQ(RefusedInt("num:max"), -1);
    }
}

TEST_F(Queries, BooleansAreToldByTheirFirstCharacter) {
    const std::pair<const char*, std::int32_t> kValues[] = {
        {"1", 1}, {"y", 1},  {"Y", 1},   {"t", 1},  {"T", 1}, {"yes", 1},  {"True", 1},  {"10", 1},
        {"0", 0}, {"n", 0},  {"N", 0},   {"f", 0},  {"F", 0}, {"no", 0},   {"false", 0}, {"01", 0},
        {"2", 7}, {"On", 7}, {"Off", 7}, {"-1", 7}, {"", 7},  {"' 1'", 7}, {"\"1\"", 1}, {"x", 7}};
    std::string lines = "[b]\n";
    for (std::size_t number = 0; number < std::size(kValues); ++number) {
        lines += "k" + std::to_string(number) + " = " + kValues[number].first + "\n";
    }
    directory_.Write("bool.ini", lines);
    const std::string entry = directory_.Write(
        "bool_entry.ini", "[module]\nmodule_num = 1\nmodule1 = b\n[b]\ncfg_filename = bool.ini\n");
    ASSERT_EQ(ZV_CONFACCESS_Init("bool", entry.c_str()), 0);
    for (std::size_t number = 0; number < std::size(kValues); ++number) {
        std::int32_t value = 4711;
        const std::string key = "b:k" + std::to_string(number);
        EXPECT_EQ(ZV_CONFACCESS_GetBool("bool", "b", key.c_str(), 7, &value), 0);
        EXPECT_EQ(value, kValues[number].second) << '"' << kValues[number].first << '"';
    }
    EXPECT_EQ(ZV_CONFACCESS_Deinit("bool"), 0);
}

TEST_F(Queries, BooleanWithoutValueIsTheDefaultAsItIs) {
    std::int32_t value = 0;
    EXPECT_EQ(ZV_CONFACCESS_GetBool("cfg", "mod", "num:no", -9, &value), 0);
    EXPECT_EQ(value, -9);
    EXPECT_EQ(ZV_CONFACCESS_GetBool("cfg", "mod", "section", 3, &value), 0);
    EXPECT_EQ(value, 3);
}

Outcome ModuleExists(const char* cfgName, const char* module, std::int32_t* isExist) {
    return Observe([&] { return ZV_CONFACCESS_IsMoudleExist(cfgName, module, isExist); });
}

TEST_F(Queries, ModuleExistenceIsNeverAnError) {
    std::int32_t isExist = 4711;
    EXPECT_EQ(ModuleExists("cfg", "mod", &isExist), (Outcome{0, ""}));
    EXPECT_EQ(isExist, 1);
    EXPECT_EQ(ModuleExists("cfg", "other", &isExist), (Outcome{0, ""}));
    EXPECT_EQ(isExist, 0);
    isExist = 4711;
    EXPECT_EQ(ModuleExists("other", "mod", &isExist), (Outcome{0, ""}));
    EXPECT_EQ(isExist, 0);
    EXPECT_EQ(ModuleExists("cfg", "MOD", &isExist), (Outcome{0, ""}));
    EXPECT_EQ(isExist, 0);
}

TEST_F(Queries, ModuleExistenceChecksItsArguments) {
    const char* function = "ZV_CONFACCESS_IsMoudleExist";
    const char* limit = "QX_CONFACCESS_NAME_MAX_LEN";
    const Status bad = Code(0xA1418041U);
    const std::string tooLong(128, 'x');
    std::int32_t isExist = 4711;
    EXPECT_EQ(ModuleExists(nullptr, nullptr, nullptr),
              (Outcome{bad, IsNull(function, 578, "cfgName")}));
    EXPECT_EQ(ModuleExists("cfg", nullptr, nullptr),
              (Outcome{bad, IsNull(function, 579, "module")}));
    EXPECT_EQ(ModuleExists(tooLong.c_str(), "mod", nullptr),
              (Outcome{bad, IsNull(function, 580, "isExist")}));
    EXPECT_EQ(ModuleExists(tooLong.c_str(), tooLong.c_str(), &isExist),
              (Outcome{bad, IsTooLong(function, 581, "cfgName", limit)}));
    EXPECT_EQ(ModuleExists("cfg", tooLong.c_str(), &isExist),
              (Outcome{bad, IsTooLong(function, 583, "module", limit)}));
    EXPECT_EQ(isExist, 4711);
}

Outcome KeyExists(const char* cfgName, const char* module, const char* key, std::int32_t* isExist) {
    return Observe([&] { return ZV_CONFACCESS_IsConfItemExist(cfgName, module, key, isExist); });
}

TEST_F(Queries, KeyExistsWhenItHasAValue) {
    const std::pair<const char*, std::int32_t> kKeys[] = {{"section:key", 1},
                                                          {"Section:KEY", 1},
                                                          {"section:empty", 1},
                                                          {"section:no", 0},
                                                          {"section", 0},
                                                          {"a:b", 0},
                                                          {"", 0}};
    for (const auto& [key, exists] : kKeys) {
        std::int32_t isExist = 4711;
        EXPECT_EQ(KeyExists("cfg", "mod", key, &isExist), (Outcome{0, ""}));
        EXPECT_EQ(isExist, exists) << key;
    }
}

TEST_F(Queries, KeyExistenceChecksItsArguments) {
    const char* function = "ZV_CONFACCESS_IsConfItemExist";
    const Status bad = Code(0xA1418041U);
    const std::string tooLong(128, 'x');
    EXPECT_EQ(KeyExists(nullptr, nullptr, nullptr, nullptr),
              (Outcome{bad, IsNull(function, 623, "cfgName")}));
    EXPECT_EQ(KeyExists("cfg", nullptr, nullptr, nullptr),
              (Outcome{bad, IsNull(function, 624, "module")}));
    EXPECT_EQ(KeyExists("cfg", "mod", nullptr, nullptr),
              (Outcome{bad, IsNull(function, 625, "confItem")}));
    EXPECT_EQ(KeyExists("cfg", "mod", tooLong.c_str(), nullptr),
              (Outcome{bad, IsNull(function, 626, "isExist")}));
}

TEST_F(Queries, KeyExistenceLeavesLengthsToTheTextQuery) {
    const std::string inner = "ZV_CONFACCESS_GetString";
    const std::string code =
        "func:ZV_CONFACCESS_IsConfItemExist,line:630,Error Code: [0xA1418041]\n\n";
    const Status bad = Code(0xA1418041U);
    const std::string tooLong(128, 'x');
    std::int32_t isExist = 4711;
    EXPECT_EQ(
        KeyExists(tooLong.c_str(), "mod", "s:k", &isExist),
        (Outcome{bad, IsTooLong(inner, 381, "cfgName", "QX_CONFACCESS_NAME_MAX_LEN") + code}));
    EXPECT_EQ(KeyExists("cfg", tooLong.c_str(), "s:k", &isExist),
              (Outcome{bad, IsTooLong(inner, 383, "module", "QX_CONFACCESS_NAME_MAX_LEN") + code}));
    EXPECT_EQ(
        KeyExists("cfg", "mod", tooLong.c_str(), &isExist),
        (Outcome{bad, IsTooLong(inner, 385, "confItem", "QX_CONFACCESS_KEY_MAX_LEN") + code}));
    EXPECT_EQ(isExist, 4711);
}

TEST_F(Queries, KeyExistenceFailsWhereThereIsNoModule) {
    const std::string head = "func:ZV_CONFACCESS_IsConfItemExist,line:630,Error Code: ";
    std::int32_t isExist = 4711;
    EXPECT_EQ(KeyExists("other", "mod", "s:k", &isExist),
              (Outcome{Code(0xA1418045U), head + "[0xA1418045]\n\n"}));
    EXPECT_EQ(KeyExists("cfg", "other", "s:k", &isExist),
              (Outcome{Code(0xA1418046U), head + "[0xA1418046]\n\n"}));
    EXPECT_EQ(isExist, 4711);
}

TEST_F(Queries, OneModuleGivesSeveralValues) {
    std::int32_t number = 0;
    std::int32_t truth = -1;
    double real = 0;
    const char* text = nullptr;
    const Outcome outcome = Observe([&] {
        const LockedModule module("cfg", "mod");
        EXPECT_EQ(module.status(), kOk);
        EXPECT_EQ(ZV_CONFACCESS_GetInt(module, "num:answer", 0, &number), kOk);
        EXPECT_EQ(ZV_CONFACCESS_GetBool(module, "section:key", 1, &truth), kOk);
        EXPECT_EQ(ZV_CONFACCESS_GetDouble(module, "num:half", 0, &real), kOk);
        EXPECT_EQ(FindText(module, "section:quoted", nullptr, &text), kOk);
        return kOk;
    });
    EXPECT_EQ(outcome, (Outcome{kOk, ""}));
    EXPECT_EQ(number, 42);
    EXPECT_EQ(truth, 1);
    EXPECT_EQ(real, 0.5);
    EXPECT_STREQ(text, "  two words ");
    // The lock was released.
    EXPECT_EQ(ZV_CONFACCESS_GetInt("cfg", "mod", "num:negative", 0, &number), kOk);
    EXPECT_EQ(number, -7);
}

TEST_F(Queries, FoundStringIsTheConfigurationsOwn) {
    const LockedModule module("cfg", "mod");
    const char* first = nullptr;
    const char* second = nullptr;
    EXPECT_EQ(FindText(module, "section:key", nullptr, &first), kOk);
    EXPECT_EQ(FindText(module, "SECTION:KEY", nullptr, &second), kOk);
    EXPECT_STREQ(first, "Value of Key");
    EXPECT_EQ(first, second);
    const char* fallback = "default";
    EXPECT_EQ(FindText(module, "section:no", fallback, &first), kOk);
    EXPECT_EQ(first, fallback);
    EXPECT_EQ(FindText(module, "section", fallback, &first), kOk);
    EXPECT_EQ(first, nullptr);
}

TEST_F(Queries, EachQueryForAModuleThatIsNotThereSaysSo) {
    std::int32_t value = 5;
    const char* sentinel = "untouched";
    const char* text = sentinel;
    const Outcome outcome = Observe([&] {
        const LockedModule module("cfg", "no");
        EXPECT_EQ(module.status(), kNoModule);
        EXPECT_EQ(FindText(module, "section:key", nullptr, &text), kNoModule);
        EXPECT_EQ(ZV_CONFACCESS_GetInt(module, "num:answer", 0, &value), kNoModule);
        return ZV_CONFACCESS_GetBool(module, "num:answer", 0, &value);
    });
    EXPECT_EQ(outcome, (Outcome{Code(0xA1418046U),
                                "func:ZV_CONFACCESS_GetInt,line:437,Error Code: [0xA1418046]\n\n"
                                "func:ZV_CONFACCESS_GetBool,line:497,Error Code: "
                                "[0xA1418046]\n\n"}));
    EXPECT_EQ(value, 5);
    EXPECT_EQ(text, sentinel);
    EXPECT_EQ(LockedModule("no", "mod").status(), kNoConfiguration);
}

}  // namespace
}  // namespace paramgen::testing
