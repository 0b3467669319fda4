#include <cerrno>
#include <cstring>
#include <limits>

#include "confaccess/argument_checks.h"
#include "confaccess/confaccess.h"
#include "confaccess/number.h"
#include "confaccess/registry.h"
#include "log/library_log.h"
#include "safestr/short_text.h"

namespace paramgen {
namespace {

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

std::string_view MeasuredName(const char* name) {
    return Measured(name, QX_CONFACCESS_NAME_MAX_LEN);
}

ItemName MeasuredItem(const char* cfgName, const char* module, const char* confItem) {
    return {.cfgName = MeasuredName(cfgName),
            .module = MeasuredName(module),
            .confItem = Measured(confItem, QX_CONFACCESS_KEY_MAX_LEN)};
}

/// Lines that the checks of `ZV_CONFACCESS_GetString` name.
constexpr QueryLines kGetStringLines = {377, 378, 379, 380, 381, 383, 385};

bool HasNullArgument(const ItemName& item, const void* value, const char* function,
                     const QueryLines& lines) {
    return IsNullArgument(item.cfgName.data(), function, lines.noConfigName, "cfgName") ||
           IsNullArgument(item.module.data(), function, lines.noModule, "module") ||
           IsNullArgument(item.confItem.data(), function, lines.noKey, "confItem") ||
           IsNullArgument(value, function, lines.noValue, "value");
}

bool HasLongArgument(const ItemName& item, const char* function, const QueryLines& lines) {
    return IsLongConfigName(item.cfgName, function, lines.longConfigName) ||
           IsLongModuleName(item.module, function, lines.longModule) ||
           IsLongKey(item.confItem, function, lines.longKey);
}

/// Checks the arguments of a query and finds the value that it asks for. It keeps the lock of its
/// configuration, since the text is the dictionary's own.
class Lookup {
public:
    Lookup(const ItemName& item, const void* value, const char* function, const QueryLines& lines,
           const char* defaultValue) {
        if (HasNullArgument(item, value, function, lines)) {
            status_ = kBadArgument;
            return;
        }
        // Looked at last, and only when something is amiss: names that are registered are short
        // enough, and so are nearly all that are asked for.
        if (!Find(item, defaultValue) && HasLongArgument(item, function, lines)) {
            status_ = kBadArgument;
        }
    }
    ~Lookup() {
        if (config_ != nullptr) {
            pthread_mutex_unlock(&config_->lock);
        }
    }
    Lookup(const Lookup&) = delete;
    Lookup& operator=(const Lookup&) = delete;

    Status status() const { return status_; }

    /// The value, or the default when there is no such key; null for a section.
    const char* text() const { return text_; }

    /// The status. One that is not about the arguments is told, with its code, under the asking
    /// function's name.
    Status TellStatus(const char* function, CheckLine line) const {
        if (status_ != kOk && status_ != kBadArgument) {
            TellErrorCode(function, line, status_);
        }
        return status_;
    }

private:
    /// Returns false when the configuration or the module is not registered, or the key is too
    /// long.
    bool Find(const ItemName& item, const char* defaultValue) {
        config_ = FindConfig(item.cfgName);
        if (config_ == nullptr) {
            status_ = kNoConfiguration;
            return false;
        }
        pthread_mutex_lock(&config_->lock);
        const ModuleEntry* module = FindModule(config_, item.module);
        if (module == nullptr) {
            status_ = kNoModule;
            return false;
        }
        text_ = FindText(*module->dictionary, item.confItem, defaultValue);
        return item.confItem.size() < QX_CONFACCESS_KEY_MAX_LEN;
    }

    ConfigEntry* config_ = nullptr;
    Status status_ = kOk;
    const char* text_ = nullptr;
};

}  // namespace

Status CONFACCESS_FindString(const ItemName& item, const char* defaultValue, const char** value) {
    const Lookup found(item, value, "ZV_CONFACCESS_GetString", kGetStringLines, defaultValue);
    if (found.status() == kOk) {
        *value = found.text();
    }
    return found.status();
}

Status ZV_CONFACCESS_GetString(const char* cfgName, const char* module, const char* confItem,
                               const char* defaultValue, char** value) {
    const Lookup found(MeasuredItem(cfgName, module, confItem), value, __func__, kGetStringLines,
                       defaultValue);
    if (found.status() != kOk) {
        return found.status();
    }
    char* copy = nullptr;
    if (found.text() != nullptr) {
        copy = strdup(found.text());
        if (copy == nullptr) {
            return kOutOfMemory;
        }
    }
    *value = copy;
    return kOk;
}

Status ZV_CONFACCESS_GetInt(const char* cfgName, const char* module, const char* confItem,
                            std::int32_t defaultValue, std::int32_t* value) {
    return ZV_CONFACCESS_GetInt(MeasuredItem(cfgName, module, confItem), defaultValue, value);
}

Status ZV_CONFACCESS_GetInt(const ItemName& item, std::int32_t defaultValue, std::int32_t* value) {
    const Lookup found(item, value, __func__, {424, 425, 426, 427, 428, 430, 432}, nullptr);
    const Status status = found.TellStatus(__func__, 437);
    if (status != kOk) {
        return status;
    }
    if (found.text() == nullptr) {
        *value = defaultValue;
        return kOk;
    }
    const std::int32_t number = ParseInteger(found.text(), 10);
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
    return ZV_CONFACCESS_GetDouble(MeasuredItem(cfgName, module, confItem), defaultValue, value);
}

Status ZV_CONFACCESS_GetDouble(const ItemName& item, double defaultValue, double* value) {
    const Lookup found(item, value, __func__, {456, 457, 458, 459, 460, 462, 464}, nullptr);
    const Status status = found.TellStatus(__func__, 469);
    if (status == kOk) {
        *value = found.text() == nullptr ? defaultValue : ParseDouble(found.text());
    }
    return status;
}

Status ZV_CONFACCESS_GetBool(const char* cfgName, const char* module, const char* confItem,
                             std::int32_t defaultValue, std::int32_t* value) {
    return ZV_CONFACCESS_GetBool(MeasuredItem(cfgName, module, confItem), defaultValue, value);
}

Status ZV_CONFACCESS_GetBool(const ItemName& item, std::int32_t defaultValue, std::int32_t* value) {
    const Lookup found(item, value, __func__, {484, 485, 486, 487, 488, 490, 492}, nullptr);
    const Status status = found.TellStatus(__func__, 497);
    if (status != kOk) {
        return status;
    }
    switch (found.text() == nullptr ? '\0' : *found.text()) {
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
    const std::string_view configName = MeasuredName(cfgName);
    const std::string_view moduleName = MeasuredName(module);
    if (IsNullArgument(cfgName, __func__, 578, "cfgName") ||
        IsNullArgument(module, __func__, 579, "module") ||
        IsNullArgument(isExist, __func__, 580, "isExist") ||
        IsLongConfigName(configName, __func__, 581) ||
        IsLongModuleName(moduleName, __func__, 583)) {
        return kBadArgument;
    }
    *isExist = 0;
    ConfigEntry* config = FindConfig(configName);
    if (config != nullptr) {
        pthread_mutex_lock(&config->lock);
        *isExist = FindModule(config, moduleName) == nullptr ? 0 : 1;
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
    const Lookup found(MeasuredItem(cfgName, module, confItem), isExist, "ZV_CONFACCESS_GetString",
                       kGetStringLines, nullptr);
    const Status status = found.status();
    if (status != kOk) {
        TellErrorCode(__func__, 630, status);
    }
    if (status == kOk) {
        *isExist = found.text() == nullptr ? 0 : 1;
    }
    return status;
}

}  // namespace paramgen
