/// Filling in the templates of nodes and modules that tables hold. The compiler checks that the
/// arguments that a loader gives are those that the template takes.
#pragma once

#include <concepts>
#include <cstdint>
#include <span>
#include <string_view>
#include <type_traits>

#include "param/common/field.h"
#include "param/common/key.h"
#include "param/common/load_fields.h"

namespace paramgen {

namespace field_detail {

// Never defined: a mistake in a loader makes the compiler refuse a call of one, and name it.
void TheRowsStandUnderDifferentNodes();
void TheTemplateTakesOtherArguments();
void TheRowHasNoNodeOfItsOwn();

consteval const char* NodeOf(const char* pattern) {
    return pattern;
}
consteval const char* NodeOf(const RecordTable& table) {
    return table.node;
}
consteval const char* NodeOf(const Field& row) {
    const bool isRecord = row.node == nullptr && row.source == FieldSource::kTable;
    const char* node = isRecord ? row.table->node : row.node;
    if (node == nullptr) {
        TheRowHasNoNodeOfItsOwn();
    }
    return node;
}
consteval const char* NodeOf(const TableRows& rows) {
    const char* node = rows.table->NodeOf(rows.fields.front());
    for (const Field& row : rows.fields) {
        if (std::string_view(rows.table->NodeOf(row)) != node) {
            TheRowsStandUnderDifferentNodes();
        }
    }
    return node;
}

consteval std::span<const Field> FieldsOf(const RecordTable& table) {
    return table.fields;
}
consteval std::span<const Field> FieldsOf(const Field& row) {
    return {&row, 1};
}
consteval std::span<const Field> FieldsOf(const TableRows& rows) {
    return rows.fields;
}

/// Returns `pattern`. The compiler refuses a pattern that does not take arguments of these types.
template <typename... Args>
constexpr const char* Taking(const char* pattern) {
    const int texts = (0 + ... + (std::is_integral_v<Args> ? 0 : 1));
    int missing = static_cast<int>(sizeof...(Args)) - texts;
    int missingTexts = texts;
    for (const char* at = pattern; *at != '\0'; ++at) {
        if (at[0] == '%') {
            --(at[1] == 's' ? missingTexts : missing);
        }
    }
    if (missing != 0 || missingTexts != 0) {
        TheTemplateTakesOtherArguments();
    }
    return pattern;
}

}  // namespace field_detail

/// A template that is chosen at run time. Its arguments are not checked: that is up to its user.
struct ChosenTemplate {
    const char* pattern;
};

/// A template that takes arguments of these types. It is made from a table or rows of one, whose
/// node template it is, or from a template itself.
template <typename... Args>
struct TemplateTaking {
    const char* pattern;

    constexpr TemplateTaking(ChosenTemplate chosen) : pattern(chosen.pattern) {}
    consteval TemplateTaking(const auto& where)
        : pattern(field_detail::Taking<Args...>(field_detail::NodeOf(where))) {}
};

/// Fills in a template that has been checked against these arguments. Returns what `Key::Format`
/// does.
template <typename... Args>
[[nodiscard]] int FillChecked(Key* key, const char* pattern, Args... args) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
    return key->Format(pattern, args...);
#pragma GCC diagnostic pop
}

/// Fills in a template. Returns what `Key::Format` does.
template <typename... Args>
[[nodiscard]] int FillTemplate(Key* key, TemplateTaking<std::type_identity_t<Args>...> where,
                               Args... args) {
    return FillChecked(key, where.pattern, args...);
}

/// Rows to load whose node takes arguments of these types.
template <typename... Numbers>
struct RowsTaking {
    NodeRows rows;

    consteval RowsTaking(const auto& where)
        : rows{.node = field_detail::Taking<Numbers...>(field_detail::NodeOf(where)),
               .fields = field_detail::FieldsOf(where)} {}
};

/// Loads rows under their node, as `LoadFieldsAt` does.
template <std::integral... Numbers>
[[nodiscard]] Status LoadRowsAt(CallSite site, const char* module,
                                RowsTaking<std::type_identity_t<Numbers>...> where, void* record,
                                Numbers... numbers) {
    const std::uint32_t given[] = {static_cast<std::uint32_t>(numbers)..., 0, 0};
    return LoadFieldsAt(site, module, where.rows, given[0], given[1], record);
}

}  // namespace paramgen
