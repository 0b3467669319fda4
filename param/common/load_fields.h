/// Loading rows of field tables. Loaders call these functions by the macros of
/// `param/common/propagate.h`, which return a failure's code.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/common/key.h"

namespace paramgen {

/// Rows to load, and the template of the node that they are looked up under.
struct NodeRows {
    const char* node;
    std::span<const Field> fields;
};

/// The function and source line that a record of the log names.
struct CallSite {
    const char* function;
    std::uint32_t line;
};

/// Stores the value of the row `field` in `record`: that of its key under `node` in `module`, its
/// constant, or a copy. `index` is the number that the key's template takes and, for an array, the
/// element to fill. Does nothing for rows of nested records, for reserved bytes and for rows that
/// the loader reads itself. Returns 0, or the code of what failed, having logged it with the
/// function and line of `site`; -1 when `record` is null.
[[nodiscard]] Status LoadField(CallSite site, const char* module, const char* node,
                               const Field& field, std::uint32_t index, void* record);
[[nodiscard]] Status LoadField(CallSite site, const char* module, std::string_view node,
                               const Field& field, std::uint32_t index, void* record);

/// Loads each of `fields` in turn, up to the first failure; of an array only element 0. `node` may
/// be null when every row has its own. Returns what `LoadField` does.
[[nodiscard]] Status LoadFields(CallSite site, const char* module, const char* node,
                                std::span<const Field> fields, void* record);
[[nodiscard]] Status LoadFields(CallSite site, const char* module, std::string_view node,
                                std::span<const Field> fields, void* record);

/// The same for one row, for rows that stand side by side, and for all rows of a table.
template <typename Node>
[[nodiscard]] Status LoadFields(CallSite site, const char* module, const Node& node,
                                const Field& field, void* record) {
    return LoadField(site, module, node, field, 0, record);
}
template <typename Node>
[[nodiscard]] Status LoadFields(CallSite site, const char* module, const Node& node,
                                const TableRows& rows, void* record) {
    return LoadFields(site, module, node, rows.fields, record);
}
template <typename Node>
[[nodiscard]] Status LoadFields(CallSite site, const char* module, const Node& node,
                                const RecordTable& table, void* record) {
    return LoadFields(site, module, node, table.fields, record);
}

/// The same under the node of `rows`. Its template takes `first`, both numbers or none of them.
/// When the node does not fit, logs "sprintf_s" and returns -1.
[[nodiscard]] Status LoadFieldsAt(CallSite site, const char* module, NodeRows rows,
                                  std::uint32_t first, std::uint32_t second, void* record);

/// Formats the full key, "node:item", of `field` for element `index`. Returns the number of
/// characters, or -1 when they do not fit.
[[nodiscard]] int FormatFullKey(Key* key, std::string_view node, const Field& field,
                                std::uint32_t index);

}  // namespace paramgen
