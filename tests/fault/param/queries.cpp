#include "fault/param/queries.h"

#include <cstdint>
#include <string_view>

#include "confaccess/locked_module.h"

namespace paramgen::testing {
namespace {

int g_boolQueriesLeft = 0;
int g_textQueriesLeft = 0;
int g_moduleQueriesLeft = 0;

bool Fails(int* left) {
    return *left != 0 && --*left == 0;
}

}  // namespace

void FailBoolQuery(int number) {
    g_boolQueriesLeft = number;
}

void FailTextQuery(int number) {
    g_textQueriesLeft = number;
}

void FailModuleQuery(int number) {
    g_moduleQueriesLeft = number;
}

extern "C" {

// Mangled names of the wrapped functions.
// NOLINTBEGIN(bugprone-reserved-identifier)

std::int32_t
__real__ZN8paramgen21ZV_CONFACCESS_GetBoolERKNS_12LockedModuleESt17basic_string_viewIcSt11char_traitsIcEEiPi(
    const LockedModule& module, std::string_view key, std::int32_t defaultValue,
    std::int32_t* value);
std::int32_t __real__ZN8paramgen8FindTextEPKcS1_PS1_(const char* module, const char* key,
                                                     const char** text);
std::int32_t __real__ZN8paramgen27ZV_CONFACCESS_IsMoudleExistEPKcS1_Pi(const char* cfgName,
                                                                       const char* module,
                                                                       std::int32_t* isExist);

std::int32_t
__wrap__ZN8paramgen21ZV_CONFACCESS_GetBoolERKNS_12LockedModuleESt17basic_string_viewIcSt11char_traitsIcEEiPi(
    const LockedModule& module, std::string_view key, std::int32_t defaultValue,
    std::int32_t* value) {
    return Fails(&g_boolQueriesLeft)
               ? -1
               : __real__ZN8paramgen21ZV_CONFACCESS_GetBoolERKNS_12LockedModuleESt17basic_string_viewIcSt11char_traitsIcEEiPi(
                     module, key, defaultValue, value);
}

std::int32_t __wrap__ZN8paramgen8FindTextEPKcS1_PS1_(const char* module, const char* key,
                                                     const char** text) {
    return Fails(&g_textQueriesLeft) ? -1
                                     : __real__ZN8paramgen8FindTextEPKcS1_PS1_(module, key, text);
}

std::int32_t __wrap__ZN8paramgen27ZV_CONFACCESS_IsMoudleExistEPKcS1_Pi(const char* cfgName,
                                                                       const char* module,
                                                                       std::int32_t* isExist) {
    return Fails(&g_moduleQueriesLeft) ? -1
                                       : __real__ZN8paramgen27ZV_CONFACCESS_IsMoudleExistEPKcS1_Pi(
                                             cfgName, module, isExist);
}

// NOLINTEND(bugprone-reserved-identifier)

}  // extern "C"

}  // namespace paramgen::testing
