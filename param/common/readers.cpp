#include "param/common/readers.h"

#include <string_view>

#include "confaccess/confaccess.h"
#include "param/common/key.h"
#include "param/common/product_module.h"
#include "param/common/propagate.h"
#include "safestr/safestr.h"

namespace paramgen {

/// What stands for a null key in a record, as printf writes it.
constexpr char kNoKey[] = "(null)";

Status FindText(const char* module, const char* key, const char** text) {
    return FindText(ProductModule(module), key == nullptr ? std::string_view() : key, nullptr,
                    text);
}

Status PDT_INIPARAM_LoadIntValueByNodePrefix(const ProductModule& module, std::string_view prefix,
                                             std::string_view key, std::int32_t defaultValue,
                                             std::int32_t* value) {
    Key item;
    JOIN_OR_RETURN(item, prefix, key);
    CALL_OR_RETURN(ZV_CONFACCESS_GetInt(module, item.View(), defaultValue, value), item.c_str());
    return kOk;
}

Status PDT_INIPARAM_LoadIntValueByNodePrefix(const char* module, const char* prefix,
                                             const char* key, std::int32_t defaultValue,
                                             std::int32_t* value) {
    if (prefix == nullptr || key == nullptr) {
        AT_THIS_LINE_ return LogFailed(
            __func__, line_, kNoKey,
            ZV_CONFACCESS_GetInt(kProductConfig, module, nullptr, defaultValue, value));
    }
    return PDT_INIPARAM_LoadIntValueByNodePrefix(ProductModule(module), std::string_view(prefix),
                                                 std::string_view(key), defaultValue, value);
}

Status PDT_INIPARAM_LoadUintValueByNodePrefix(const ProductModule& module, std::string_view prefix,
                                              std::string_view key, std::int32_t defaultValue,
                                              std::uint32_t* value) {
    Key item;
    JOIN_OR_RETURN(item, prefix, key);
    std::int32_t number = 0;
    CALL_OR_RETURN(ZV_CONFACCESS_GetInt(module, item.View(), defaultValue,
                                        value == nullptr ? nullptr : &number),
                   item.c_str());
    *value = static_cast<std::uint32_t>(number);
    return kOk;
}

Status PDT_INIPARAM_LoadUintValueByNodePrefix(const char* module, const char* prefix,
                                              const char* key, std::int32_t defaultValue,
                                              std::uint32_t* value) {
    if (prefix == nullptr || key == nullptr) {
        AT_THIS_LINE_ return LogFailed(
            __func__, line_, kNoKey,
            ZV_CONFACCESS_GetInt(kProductConfig, module, nullptr, defaultValue, nullptr));
    }
    return PDT_INIPARAM_LoadUintValueByNodePrefix(ProductModule(module), std::string_view(prefix),
                                                  std::string_view(key), defaultValue, value);
}

Status PDT_INIPARAM_LoadBoolValueByNodePrefix(const ProductModule& module, std::string_view prefix,
                                              std::string_view key, Bool32 defaultValue,
                                              Bool32* value) {
    Key item;
    JOIN_OR_RETURN(item, prefix, key);
    std::int32_t truth = 0;
    CALL_OR_RETURN(
        ZV_CONFACCESS_GetBool(module, item.View(), static_cast<std::int32_t>(defaultValue),
                              value == nullptr ? nullptr : &truth),
        item.c_str());
    *value = static_cast<Bool32>(truth);
    return kOk;
}

Status PDT_INIPARAM_LoadBoolValueByNodePrefix(const char* module, const char* prefix,
                                              const char* key, Bool32 defaultValue, Bool32* value) {
    if (prefix == nullptr || key == nullptr) {
        AT_THIS_LINE_ return LogFailed(
            __func__, line_, kNoKey,
            ZV_CONFACCESS_GetBool(kProductConfig, module, nullptr, 0, nullptr));
    }
    return PDT_INIPARAM_LoadBoolValueByNodePrefix(ProductModule(module), std::string_view(prefix),
                                                  std::string_view(key), defaultValue, value);
}

Status PDT_INIPARAM_LoadStringValue(const ProductModule& module, const char* key,
                                    std::span<char> bytes, std::size_t size) {
    const char* value = nullptr;
    const std::string_view item = key == nullptr ? std::string_view() : key;
    CALL_OR_RETURN(FindText(module, item, nullptr, bytes.data() == nullptr ? nullptr : &value),
                   key);
    if (value != nullptr && sprintf_s(bytes.data(), size, "%s", value) == -1) {
        LOG_ERROR("[%s] failed\n", "sprintf_s");
        return kFailed;
    }
    LOG_DEBUG("%s [%.*s]\n", key, static_cast<int>(bytes.size()), bytes.data());
    return kOk;
}

Status PDT_INIPARAM_LoadStringValue(const char* module, const char* key, std::span<char> bytes,
                                    std::size_t size) {
    return PDT_INIPARAM_LoadStringValue(ProductModule(module), key, bytes, size);
}

Status PDT_INIPARAM_LoadStringValue(const char* module, const char* key, char* text,
                                    std::size_t size) {
    return PDT_INIPARAM_LoadStringValue(ProductModule(module), key, std::span<char>(text, size),
                                        size);
}

}  // namespace paramgen
