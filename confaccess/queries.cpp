#include <cerrno>
#include <cstring>
#include <limits>

#include "confaccess/argument_checks.h"
#include "confaccess/confaccess.h"
#include "confaccess/locked_module.h"
#include "confaccess/number.h"
#include "confaccess/registry.h"
#include "confaccess/watch.h"
#include "log/library_log.h"
#include "safestr/short_text.h"

namespace paramgen {
namespace {

/// Line number of the first argument check of the string query. All typed queries have the same
/// checks, at the same distances from the first one.
constexpr CheckLine kGetStringLine = 377;

std::string_view MeasuredName(const char* name) {
    return Measured(name, QX_CONFACCESS_NAME_MAX_LEN);
}

std::string_view MeasuredKey(const char* confItem) {
    return Measured(confItem, QX_CONFACCESS_KEY_MAX_LEN);
}

bool HasNullArgument(const LockedModule& module, std::string_view confItem, const void* value,
                     const char* function, CheckLine firstLine) {
    return IsNullArgument(module.cfgName().data(), function, firstLine, "cfgName") ||
           IsNullArgument(module.module().data(), function, firstLine + 1, "module") ||
           IsNullArgument(confItem.data(), function, firstLine + 2, "confItem") ||
           IsNullArgument(value, function, firstLine + 3, "value");
}

bool HasLongArgument(const LockedModule& module, std::string_view confItem, const char* function,
                     CheckLine firstLine) {
    return IsLongConfigName(module.cfgName(), function, firstLine + 4) ||
           IsLongModuleName(module.module(), function, firstLine + 6) ||
           IsLongKey(confItem, function, firstLine + 8);
}

/// Checks the arguments of a query and finds the value that it asks for.
class Lookup {
public:
    Lookup(const LockedModule& module, std::string_view confItem, const void* value,
           const char* function, CheckLine firstLine, const char* defaultValue)
        : status_(module.status()) {
        if (HasNullArgument(module, confItem, value, function, firstLine)) {
            status_ = kBadArgument;
            return;
        }
        // Names need no check when the module was found: registered names are short enough.
        const bool isLong = confItem.size() >= QX_CONFACCESS_KEY_MAX_LEN;
        if ((status_ != kOk || isLong) && HasLongArgument(module, confItem, function, firstLine)) {
            status_ = kBadArgument;
        }
        if (status_ == kOk) {
            text_ =
                WATCH_ANSWER(module, confItem,
                             FindText(*module.dictionary(), confItem, defaultValue), defaultValue);
        }
    }

    Status status() const { return status_; }

    /// The value, or the default when there is no such key; null for a section.
    const char* text() const { return text_; }

    /// Returns the status. If it is not about the arguments, prints it as an error code of
    /// `function`.
    Status TellStatus(const char* function, CheckLine line) const {
        if (status_ != kOk && status_ != kBadArgument) {
            TellErrorCode(function, line, status_);
        }
        return status_;
    }

private:
    Status status_;
    const char* text_ = nullptr;
};

}  // namespace

LockedModule::LockedModule(std::string_view cfgName, std::string_view module)
    : cfgName_(cfgName), module_(module), config_(FindConfig(cfgName)), status_(kNoConfiguration) {
    if (config_ == nullptr) {
        return;
    }
    pthread_mutex_lock(&config_->lock);
    const ModuleEntry* entry = WATCH_MODULE(module, FindModule(config_, module));
    status_ = entry == nullptr ? kNoModule : kOk;
    dictionary_ = entry == nullptr ? nullptr : entry->dictionary;
}

LockedModule::~LockedModule() {
    if (config_ != nullptr) {
        pthread_mutex_unlock(&config_->lock);
    }
}

Status FindText(const LockedModule& module, std::string_view confItem, const char* defaultValue,
                const char** value) {
    const Lookup found(module, confItem, value, "ZV_CONFACCESS_GetString", kGetStringLine,
                       defaultValue);
    if (found.status() == kOk) {
        *value = found.text();
    }
    return found.status();
}

Status ZV_CONFACCESS_GetString(const char* cfgName, const char* module, const char* confItem,
                               const char* defaultValue, char** value) {
    const LockedModule locked(MeasuredName(cfgName), MeasuredName(module));
    const Lookup found(locked, MeasuredKey(confItem), value, __func__, kGetStringLine,
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
    return ZV_CONFACCESS_GetInt({MeasuredName(cfgName), MeasuredName(module)},
                                MeasuredKey(confItem), defaultValue, value);
}

Status ZV_CONFACCESS_GetInt(const LockedModule& module, std::string_view confItem,
                            std::int32_t defaultValue, std::int32_t* value) {
    const Lookup found(module, confItem, value, __func__, 424, nullptr);
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
    return ZV_CONFACCESS_GetDouble({MeasuredName(cfgName), MeasuredName(module)},
                                   MeasuredKey(confItem), defaultValue, value);
}

Status ZV_CONFACCESS_GetDouble(const LockedModule& module, std::string_view confItem,
                               double defaultValue, double* value) {
    const Lookup found(module, confItem, value, __func__, 456, nullptr);
    const Status status = found.TellStatus(__func__, 469);
    if (status == kOk) {
        *value = found.text() == nullptr ? defaultValue : ParseDouble(found.text());
    }
    return status;
}

Status ZV_CONFACCESS_GetBool(const char* cfgName, const char* module, const char* confItem,
                             std::int32_t defaultValue, std::int32_t* value) {
    return ZV_CONFACCESS_GetBool({MeasuredName(cfgName), MeasuredName(module)},
                                 MeasuredKey(confItem), defaultValue, value);
}

Status ZV_CONFACCESS_GetBool(const LockedModule& module, std::string_view confItem,
                             std::int32_t defaultValue, std::int32_t* value) {
    const Lookup found(module, confItem, value, __func__, 484, nullptr);
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
    *isExist = LockedModule(configName, moduleName).status() == kOk ? 1 : 0;
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
    const char* text = nullptr;
    const Status status = FindText({MeasuredName(cfgName), MeasuredName(module)},
                                   MeasuredKey(confItem), nullptr, &text);
    if (status == kOk) {
        *isExist = text == nullptr ? 0 : 1;
    } else {
        TellErrorCode(__func__, 630, status);
    }
    return status;
}

}  // namespace paramgen
