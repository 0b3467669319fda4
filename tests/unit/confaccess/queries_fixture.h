/// A registered configuration, for the tests of queries.
#pragma once

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

namespace paramgen::testing {

inline constexpr char kModuleText[] =
    "top = of no section\n"
    "[Section]\n"
    "Key = Value of Key\n"
    "empty =\n"
    "quoted = \"  two words \"\n"
    "[num]\n"
    "answer = 42\n"
    "negative = -7\n"
    "trailing = 12abc\n"
    "hex = 0x10\n"
    "octal = 010\n"
    "max = 2147483647\n"
    "min = -2147483648\n"
    "above = 2147483648\n"
    "below = -2147483649\n"
    "huge = 99999999999\n"
    "half = 0.5\n"
    "hexhalf = 0x1p-1\n"
    "overflow = 1e999\n"
    "underflow = 1e-999\n"
    "nan = -nan(7)\n"
    "[a]\n"
    "b = hidden\n"
    "[a:b]\n";

/// One configuration, "cfg", with one module, "mod".
class Queries : public ::testing::Test {
protected:
    Queries() {
        directory_.Write("mod.ini", kModuleText + LongKeyLines());
        const std::string entry = directory_.Write(
            "entry.ini",
            "[module]\nmodule_num = 1\nmodule1 = mod\n[mod]\ncfg_filename = mod.ini\n");
        EXPECT_EQ(ZV_CONFACCESS_Init("cfg", entry.c_str()), 0);
        errno = 0;
    }
    ~Queries() override { EXPECT_EQ(ZV_CONFACCESS_Deinit("cfg"), 0); }

    static std::string LongKey(std::size_t length) {
        return "long:" + std::string(length - 5, 'k');
    }
    static std::string LongKeyLines() {
        return "[long]\n" + std::string(122, 'k') + " = 1\n" + std::string(123, 'k') + " = 1\n";
    }

    TempDir directory_;
};

// Each of these calls a query, and returns `kTouched` when the out argument has changed.
inline constexpr Status kTouched = 77;

inline Status CallGetString(const char* cfgName, const char* module, const char* confItem,
                            bool hasValue) {
    char sentinel = 's';
    char* value = &sentinel;
    const Status status =
        ZV_CONFACCESS_GetString(cfgName, module, confItem, "default", hasValue ? &value : nullptr);
    if (value == &sentinel) {
        return status;
    }
    std::free(value);
    return kTouched;
}

inline Status CallGetInt(const char* cfgName, const char* module, const char* confItem,
                         bool hasValue) {
    std::int32_t value = 4711;
    const Status status =
        ZV_CONFACCESS_GetInt(cfgName, module, confItem, 5, hasValue ? &value : nullptr);
    return value == 4711 ? status : kTouched;
}

inline Status CallGetDouble(const char* cfgName, const char* module, const char* confItem,
                            bool hasValue) {
    double value = 47.11;
    const Status status =
        ZV_CONFACCESS_GetDouble(cfgName, module, confItem, 5, hasValue ? &value : nullptr);
    return value == 47.11 ? status : kTouched;
}

inline Status CallGetBool(const char* cfgName, const char* module, const char* confItem,
                          bool hasValue) {
    std::int32_t value = 4711;
    const Status status =
        ZV_CONFACCESS_GetBool(cfgName, module, confItem, 1, hasValue ? &value : nullptr);
    return value == 4711 ? status : kTouched;
}

/// The beginning of messages of argument checks.
inline std::string AtLine(const std::string& function, int line) {
    return "func:" + function + ",line:" + std::to_string(line) + ",";
}

inline std::string IsNull(const std::string& function, int line, const std::string& argument) {
    return AtLine(function, line) + "pointer[" + argument + "] is null\n";
}

inline std::string IsTooLong(const std::string& function, int line, const std::string& argument,
                             const std::string& limit) {
    return AtLine(function, line) + "expr[strnlen(" + argument + ", " + limit + ") < " + limit +
           "] false\n";
}

}  // namespace paramgen::testing
