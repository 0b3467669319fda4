#include "param/common/readers.h"

#include "confaccess/confaccess.h"
#include "param/common/key.h"
#include "param/common/propagate.h"
#include "safestr/safestr.h"

namespace paramgen {

Status QueryText(const ProductModule& module, std::string_view key, const char** text) {
    *text = nullptr;
    return CONFACCESS_FindString(module, key, nullptr, text);
}

Status PDT_INIPARAM_LoadIntValueByNodePrefix(const ProductModule& module, std::string_view prefix,
                                             std::string_view key, std::int32_t defaultValue,
                                             std::int32_t* value) {
    Key item;
    JOIN_OR_RETURN(item, prefix, key);
    CALL_OR_RETURN(ZV_CONFACCESS_GetInt(module, item.View(), defaultValue, value), item.c_str());
    return kOk;
}

Status PDT_INIPARAM_LoadUintValueByNodePrefix(const ProductModule& module, std::string_view prefix,
                                              std::string_view key, std::int32_t defaultValue,
                                              std::uint32_t* value) {
    Key item;
    JOIN_OR_RETURN(item, prefix, key);
    std::int32_t number = 0;
    CALL_OR_RETURN(ZV_CONFACCESS_GetInt(module, item.View(), defaultValue, &number), item.c_str());
    *value = static_cast<std::uint32_t>(number);
    return kOk;
}

Status PDT_INIPARAM_LoadBoolValueByNodePrefix(const ProductModule& module, std::string_view prefix,
                                              std::string_view key, Bool32 defaultValue,
                                              Bool32* value) {
    Key item;
    JOIN_OR_RETURN(item, prefix, key);
    std::int32_t truth = static_cast<std::int32_t>(*value);
    CALL_OR_RETURN(
        ZV_CONFACCESS_GetBool(module, item.View(), static_cast<std::int32_t>(defaultValue), &truth),
        item.c_str());
    *value = truth == 0 ? kFalse : kTrue;
    return kOk;
}

Status PDT_INIPARAM_LoadStringValue(const ProductModule& module, const char* key, char* text,
                                    std::size_t size) {
    return PDT_INIPARAM_LoadStringValue(module, key, std::span<char>(text, size), size);
}

Status PDT_INIPARAM_LoadStringValue(const ProductModule& module, const char* key,
                                    std::span<char> bytes, std::size_t size) {
    const char* value = nullptr;
    CALL_OR_RETURN(QueryText(module, key, &value), key);
    if (value != nullptr && sprintf_s(bytes.data(), size, "%s", value) == -1) {
        LOG_ERROR("[%s] failed\n", "sprintf_s");
        return kFailed;
    }
    LOG_DEBUG("%s [%.*s]\n", key, static_cast<int>(bytes.size()), bytes.data());
    return kOk;
}

}  // namespace paramgen
