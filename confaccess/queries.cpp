#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>

#include "confaccess/argument_checks.h"
#include "confaccess/confaccess.h"
#include "confaccess/number.h"
#include "confaccess/registry.h"
#include "log/library_log.h"

namespace paramgen {
namespace {

using HeapText = std::unique_ptr<char, FreeDeleter>;

/// Lines that the checks of a typed query name, in the order in which they are made.
struct QueryLines {
    CheckLine noConfigName;
    CheckLine noModule;
    CheckLine noKey;
    CheckLine noValue;
    CheckLine longConfigName;
    CheckLine longModule;
    CheckLine longKey;
};

/// The arguments that every typed query is given.
struct QueryArguments {
    const char* cfgName;
    const char* module;
    const char* confItem;
    const void* value;
};

Status CheckArguments(const QueryArguments& query, const char* function, const QueryLines& lines) {
    if (IsNullArgument(query.cfgName, function, lines.noConfigName, "cfgName") ||
        IsNullArgument(query.module, function, lines.noModule, "module") ||
        IsNullArgument(query.confItem, function, lines.noKey, "confItem") ||
        IsNullArgument(query.value, function, lines.noValue, "value") ||
        IsLongConfigName(query.cfgName, function, lines.longConfigName) ||
        IsLongModuleName(query.module, function, lines.longModule) ||
        IsLongKey(query.confItem, function, lines.longKey)) {
        return kBadArgument;
    }
    return kOk;
}

/// Asks for a value as text; a failure is also told, with its code, under the asking function's
/// name.
Status GetText(const QueryArguments& query, const char* function, CheckLine line, HeapText* text) {
    char* found = nullptr;
    const Status status =
        ZV_CONFACCESS_GetString(query.cfgName, query.module, query.confItem, nullptr, &found);
    if (status != kOk) {
        TellErrorCode(function, line, status);
        return status;
    }
    text->reset(found);
    return kOk;
}

Status CopyValue(const char* found, char** value) {
    char* copy = nullptr;
    if (found != nullptr) {
        copy = strdup(found);
        if (copy == nullptr) {
            return kOutOfMemory;
        }
    }
    *value = copy;
    return kOk;
}

}  // namespace

Status ZV_CONFACCESS_GetString(const char* cfgName, const char* module, const char* confItem,
                               const char* defaultValue, char** value) {
    const Status checked =
        CheckArguments({.cfgName = cfgName, .module = module, .confItem = confItem, .value = value},
                       __func__, {377, 378, 379, 380, 381, 383, 385});
    if (checked != kOk) {
        return checked;
    }
    ConfigEntry* config = FindConfig(cfgName);
    if (config == nullptr) {
        return kNoConfiguration;
    }
    pthread_mutex_lock(&config->lock);
    const ModuleEntry* entry = FindModule(config, module);
    const Status status =
        entry == nullptr ? kNoModule
                         : CopyValue(FindText(*entry->dictionary, confItem, defaultValue), value);
    pthread_mutex_unlock(&config->lock);
    return status;
}

Status ZV_CONFACCESS_GetInt(const char* cfgName, const char* module, const char* confItem,
                            std::int32_t defaultValue, std::int32_t* value) {
    const QueryArguments query = {
        .cfgName = cfgName, .module = module, .confItem = confItem, .value = value};
    HeapText text;
    Status status = CheckArguments(query, __func__, {424, 425, 426, 427, 428, 430, 432});
    if (status == kOk) {
        status = GetText(query, __func__, 437, &text);
    }
    if (status != kOk) {
        return status;
    }
    if (text == nullptr) {
        *value = defaultValue;
        return kOk;
    }
    const std::int32_t number = ParseInteger(text.get(), 10);
    const bool atLimit = number == std::numeric_limits<std::int32_t>::max() ||
                         number == std::numeric_limits<std::int32_t>::min();
    // errno keeps what earlier conversions left in it.
    if (atLimit && errno == ERANGE) {
        ZV_LOG_PrintfInfo(kConfAccessTag, kLibraryErr, __func__, 444,
                          "config value is out of range\n");
        return kFailed;
    }
    *value = number;
    return kOk;
}

Status ZV_CONFACCESS_GetDouble(const char* cfgName, const char* module, const char* confItem,
                               double defaultValue, double* value) {
    const QueryArguments query = {
        .cfgName = cfgName, .module = module, .confItem = confItem, .value = value};
    HeapText text;
    Status status = CheckArguments(query, __func__, {456, 457, 458, 459, 460, 462, 464});
    if (status == kOk) {
        status = GetText(query, __func__, 469, &text);
    }
    if (status == kOk) {
        *value = text == nullptr ? defaultValue : ParseDouble(text.get());
    }
    return status;
}

Status ZV_CONFACCESS_GetBool(const char* cfgName, const char* module, const char* confItem,
                             std::int32_t defaultValue, std::int32_t* value) {
    const QueryArguments query = {
        .cfgName = cfgName, .module = module, .confItem = confItem, .value = value};
    HeapText text;
    Status status = CheckArguments(query, __func__, {484, 485, 486, 487, 488, 490, 492});
    if (status == kOk) {
        status = GetText(query, __func__, 497, &text);
    }
    if (status != kOk) {
        return status;
    }
    switch (text == nullptr ? '\0' : *text) {
        case '1':
        case 'y':
        case 'Y':
        case 't':
        case 'T':
            *value = 1;
            break;
        case '0':
        case 'n':
        case 'N':
        case 'f':
        case 'F':
            *value = 0;
            break;
        default:
            *value = defaultValue;
            break;
    }
    return kOk;
}

Status ZV_CONFACCESS_IsMoudleExist(const char* cfgName, const char* module, std::int32_t* isExist) {
    if (IsNullArgument(cfgName, __func__, 578, "cfgName") ||
        IsNullArgument(module, __func__, 579, "module") ||
        IsNullArgument(isExist, __func__, 580, "isExist") ||
        IsLongConfigName(cfgName, __func__, 581) || IsLongModuleName(module, __func__, 583)) {
        return kBadArgument;
    }
    *isExist = 0;
    ConfigEntry* config = FindConfig(cfgName);
    if (config != nullptr) {
        pthread_mutex_lock(&config->lock);
        *isExist = FindModule(config, module) == nullptr ? 0 : 1;
        pthread_mutex_unlock(&config->lock);
    }
    return kOk;
}

Status ZV_CONFACCESS_IsConfItemExist(const char* cfgName, const char* module, const char* confItem,
                                     std::int32_t* isExist) {
    if (IsNullArgument(cfgName, __func__, 623, "cfgName") ||
        IsNullArgument(module, __func__, 624, "module") ||
        IsNullArgument(confItem, __func__, 625, "confItem") ||
        IsNullArgument(isExist, __func__, 626, "isExist")) {
        return kBadArgument;
    }
    HeapText text;
    const Status status =
        GetText({.cfgName = cfgName, .module = module, .confItem = confItem, .value = isExist},
                __func__, 630, &text);
    if (status == kOk) {
        *isExist = text == nullptr ? 0 : 1;
    }
    return status;
}

}  // namespace paramgen
