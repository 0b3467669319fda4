#include "param/common/load_fields.h"

#include <cstring>
#include <limits>

#include "confaccess/confaccess.h"
#include "confaccess/watch.h"
#include "param/common/key.h"
#include "param/common/node_template.h"
#include "param/common/param_log.h"
#include "param/common/product_module.h"

namespace paramgen {
namespace {

/// What it takes to load one row. `node` and `item` end in a NUL behind the view.
struct Load {
    CallSite site;
    const ProductModule& module;
    std::string_view node;  ///< the row's own, or the loader's
    std::string_view item;  ///< the row's key, with its number filled in
    const Field& field;
    std::byte* dest;
};

Status LogNotFormatted(CallSite site) {
    return LogFailed(site.function, site.line, "sprintf_s");
}

template <typename Value>
void Store(std::byte* dest, Value value) {
    std::memcpy(dest, &value, sizeof value);
}

/// Stores a number in the width of the row's member.
void StoreNumber(const Field& field, std::byte* dest, std::int32_t number) {
    switch (field.kind) {
        case FieldKind::kUint8:
            Store(dest, static_cast<std::uint8_t>(number));
            break;
        case FieldKind::kInt16:
            Store(dest, static_cast<std::int16_t>(number));
            break;
        case FieldKind::kUint64:
            Store(dest, static_cast<std::int64_t>(number));
            break;
        default:
            Store(dest, number);
            break;
    }
}

bool FitsInt16(std::int32_t number) {
    return number >= std::numeric_limits<std::int16_t>::min() &&
           number <= std::numeric_limits<std::int16_t>::max();
}

Status LogOutOfRange(CallSite site) {
    LogError(site.function, site.line, "value is out of range");
    return kFailed;
}

Status ReadBool(const Load& load) {
    Bool32 value = kFalse;
    const Status status = PDT_INIPARAM_LoadBoolValueByNodePrefix(
        load.module, load.node, load.item, static_cast<Bool32>(load.field.Number()), &value);
    if (status == kOk) {
        Store(load.dest, value);
    }
    return status;
}

Status ReadUint(const Load& load) {
    std::uint32_t value = 0;
    const Status status = PDT_INIPARAM_LoadUintValueByNodePrefix(load.module, load.node, load.item,
                                                                 load.field.Number(), &value);
    if (status == kOk) {
        Store(load.dest, value);
    }
    return status;
}

/// Reads the text of `fullKey` through its typed reader.
Status ReadText(const Load& load, const char* fullKey) {
    return PDT_INIPARAM_LoadStringValue(
        load.module, fullKey, std::span<char>(reinterpret_cast<char*>(load.dest), load.field.size),
        load.field.size);
}

/// Logs that a row's typed reader has failed, with the row's label. Returns `status`.
Status LogReaderFailed(const Load& load, Status status) {
    Key fullKey;
    const char* label = load.item.data();
    if (load.field.extra == FieldExtra::kLabel) {
        label = load.field.label;
    } else if (load.field.fullLabel) {
        // A key that is too long leaves the label empty.
        static_cast<void>(fullKey.Join(load.node, load.item));
        label = fullKey.c_str();
    }
    return LogFailed(load.site.function, load.site.line, label, status);
}

/// Reads one row through its typed reader; logs a failure with the row's label.
Status LoadThroughReader(const Load& load) {
    std::int32_t number = 0;
    Status status = kOk;
    switch (load.field.kind) {
        case FieldKind::kText: {
            Key fullKey;
            if (fullKey.Join(load.node, load.item) == -1) {
                return LogNotFormatted(load.site);
            }
            status = ReadText(load, fullKey.c_str());
            break;
        }
        case FieldKind::kBool:
            status = ReadBool(load);
            break;
        case FieldKind::kUint32:
            status = ReadUint(load);
            break;
        default:
            status = PDT_INIPARAM_LoadIntValueByNodePrefix(load.module, load.node, load.item,
                                                           load.field.Number(), &number);
            if (status == kOk && load.field.kind == FieldKind::kInt16 && !FitsInt16(number)) {
                return LogOutOfRange(load.site);
            }
            if (status == kOk) {
                StoreNumber(load.field, load.dest, number);
            }
            break;
    }
    return status == kOk ? kOk : LogReaderFailed(load, status);
}

/// Queries a name and stores its number; an absent key leaves the member as it is.
Status QueryName(const Load& load, std::string_view fullKey) {
    const char* name = nullptr;
    Status status = FindText(load.module, fullKey, nullptr, &name);
    std::int32_t number = 0;
    if (status == kOk && name != nullptr) {
        status = load.field.lookup(name, &number);
        if (status == kOk) {
            Store(load.dest, number);
        }
    }
    return status;
}

Status QueryFloat(const Load& load, std::string_view fullKey) {
    double value = 0.0;
    const Status status =
        ZV_CONFACCESS_GetDouble(load.module, fullKey, load.field.Number(), &value);
    if (status == kOk) {
        Store(load.dest, static_cast<float>(value));
    }
    return status;
}

Status QueryNumber(const Load& load, std::string_view fullKey) {
    std::int32_t number = 0;
    const Status status =
        load.field.kind == FieldKind::kBool
            ? ZV_CONFACCESS_GetBool(load.module, fullKey, load.field.Number(), &number)
            : ZV_CONFACCESS_GetInt(load.module, fullKey, load.field.Number(), &number);
    if (status == kOk) {
        StoreNumber(load.field, load.dest, number);
    }
    return status;
}

/// Queries one row from the configuration; logs a failure with the full key.
Status LoadThroughQuery(const Load& load) {
    Key fullKey;
    if (fullKey.Join(load.node, load.item) == -1) {
        return LogNotFormatted(load.site);
    }
    Status status = kOk;
    switch (load.field.kind) {
        case FieldKind::kName:
            status = QueryName(load, fullKey.View());
            break;
        case FieldKind::kFloat:
            status = QueryFloat(load, fullKey.View());
            break;
        default:
            status = QueryNumber(load, fullKey.View());
            break;
    }
    return status == kOk ? kOk
                         : LogFailed(load.site.function, load.site.line, fullKey.c_str(), status);
}

/// Loads one row, as `LoadField` does.
Status LoadRow(CallSite site, const ProductModule& module, std::string_view node,
               const Field& field, std::uint32_t index, void* record) {
    std::byte* start = static_cast<std::byte*>(record);
    std::byte* dest = start + field.offset;
    switch (field.source) {
        case FieldSource::kConstant:
            StoreNumber(field, dest, field.Number());
            return kOk;
        case FieldSource::kCopy:
            std::memcpy(dest, start + field.Number(), field.size);
            return kOk;
        case FieldSource::kReader:
        case FieldSource::kQuery:
            break;
        default:
            return kOk;
    }
    Key numbered;
    if (field.isNumbered && FillChecked(&numbered, field.key, index) == -1) {
        return LogNotFormatted(site);
    }
    const Load load = {.site = site,
                       .module = module,
                       .node = field.ownNode ? field.node : node,
                       .item = field.isNumbered ? numbered.View() : field.KeyView(),
                       .field = field,
                       .dest = field.isArray ? dest + std::size_t{index} * field.size : dest};
    WATCH_DESTINATION(load.dest, field.size);
    return field.source == FieldSource::kReader ? LoadThroughReader(load) : LoadThroughQuery(load);
}

/// `node`; empty when it is null.
std::string_view NodeView(const char* node) {
    return node == nullptr ? std::string_view() : node;
}

/// Loads each of `fields`; of an array element `index`.
Status LoadRows(CallSite site, const char* module, std::string_view node,
                std::span<const Field> fields, std::uint32_t index, void* record) {
    if (record == nullptr) {
        return LogNullRecord(site.function, site.line);
    }
    const ProductModule productModule(module);
    for (const Field& field : fields) {
        const Status status = LoadRow(site, productModule, node, field, index, record);
        if (status != kOk) {
            return status;
        }
    }
    return kOk;
}

}  // namespace

Status LoadField(CallSite site, const char* module, std::string_view node, const Field& field,
                 std::uint32_t index, void* record) {
    return LoadRows(site, module, node, std::span(&field, 1), index, record);
}

Status LoadField(CallSite site, const char* module, const char* node, const Field& field,
                 std::uint32_t index, void* record) {
    return LoadRows(site, module, NodeView(node), std::span(&field, 1), index, record);
}

Status LoadFields(CallSite site, const char* module, std::string_view node,
                  std::span<const Field> fields, void* record) {
    return LoadRows(site, module, node, fields, 0, record);
}

Status LoadFields(CallSite site, const char* module, const char* node,
                  std::span<const Field> fields, void* record) {
    return LoadRows(site, module, NodeView(node), fields, 0, record);
}

Status LoadFieldsAt(CallSite site, const char* module, NodeRows rows, std::uint32_t first,
                    std::uint32_t second, void* record) {
    Key node;
    if (FillChecked(&node, rows.node, first, second) == -1) {
        return LogNotFormatted(site);
    }
    return LoadRows(site, module, node.View(), rows.fields, 0, record);
}

int FormatFullKey(Key* key, std::string_view node, const Field& field, std::uint32_t index) {
    Key numbered;
    if (field.isNumbered && FillChecked(&numbered, field.key, index) == -1) {
        return -1;
    }
    return key->Join(field.ownNode ? field.node : node,
                     field.isNumbered ? numbered.View() : field.KeyView());
}

}  // namespace paramgen
