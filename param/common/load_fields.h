/// How the rows of field tables are loaded. Loaders do it by the macros of
/// `param/common/propagate.h`, which hand a failure on.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "confaccess/status.h"
#include "param/common/field.h"
#include "param/common/key.h"

namespace paramgen {

/// Rows to load, and the template of the node that they stand under.
struct NodeRows {
    const char* node;
    std::span<const Field> fields;
};

/// Where a record of the log comes from.
struct CallSite {
    const char* function;
    std::uint32_t line;
};

/// Gives the member of `field` in `record` its value: from its key under `node` in `module`, or as
/// the row says. `index` is the number that the key's template takes and, for an array, the element
/// that is filled. A failure has been logged when this returns, under `site` as the loader's, and
/// its code is returned. Rows of nested records, of reserved bytes and those that the loader reads
/// itself are passed over. Returns -1, logging so, when `record` is null.
[[nodiscard]] Status LoadField(CallSite site, const char* module, const char* node,
                               const Field& field, std::uint32_t index, void* record);
[[nodiscard]] Status LoadField(CallSite site, const char* module, std::string_view node,
                               const Field& field, std::uint32_t index, void* record);

/// Loads each of `fields` in turn, up to the first failure; of arrays the element 0. `node` may be
/// null when every row has its own. Returns -1, logging so, when `record` is null.
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

/// The same under the node of `rows`, of whose two numbers the template takes as many as it has
/// places for. When it does not fit, logs "sprintf_s" and returns -1.
[[nodiscard]] Status LoadFieldsAt(CallSite site, const char* module, NodeRows rows,
                                  std::uint32_t first, std::uint32_t second, void* record);

/// Formats the full key, "node:item", of `field` for element `index`. Returns the number of
/// characters, or -1 when they do not fit.
[[nodiscard]] int FormatFullKey(Key* key, std::string_view node, const Field& field,
                                std::uint32_t index);

}  // namespace paramgen
