/// Field tables: what every byte of the image is, and where it comes from.
///
/// The table of a record lists its rows in reading order. A row binds a member to its key, its
/// default and, where that is not the key, the label of its failures; offset, width and reader
/// follow from the member and its type. Members without a key have rows too: constants, copies,
/// reserved bytes and nested records. A table whose rows do not cover every byte of its record
/// exactly once does not compile.
///
/// Rows are written with the macros at the end of this file, each of which may be followed by:
/// - `.At(node)`: the key is looked up under `node`, not under the loader's node; its label is then
///   "node:key";
/// - `.Label(text)`: the label is `text`; `.FullLabel()`: the label is "node:key";
/// - `.Under(node)`: the loader reads the row under this node template, not under the record's; a
///   nested record gets it as its prefix;
/// - `.From(module)`: the loader reads the row, or the nested record, from this module;
/// - `.FromMatching(search)`: the same, from the module that `search` finds; the search gives the
///   numbers in the module's name;
/// - `.About(text)`, `.Unit(text)`, `.Numbers(text)`: what the value is, in one line; its unit; and
///   what its numbers mean;
/// - `.CountedBy(offset, beyond)`: the member at `offset` holds the number of elements; `beyond`
///   says what happens when it is larger than the array;
/// - `.WhileExists(key, offset)`: an element is read only when all elements before it have `key`;
///   the member at `offset` holds the number of elements that have it;
/// - `.Optional()`: the product may lack the row's module;
/// - `.WantedBy(search)`: `search`, which a nested record uses, looks for the module that names the
///   value of this row;
/// - `.Times(factor)`: numbers in arrays of the nested record are multiplied before they are
/// stored;
/// - `.CountsUpTo(max)`: a larger count in the nested record is an error, even when the section has
///   room for the elements;
/// - `.EmptyByQuotes()`: two double quotes stand for the empty text.
///
/// From `.About` on, these are notes for the companion (`field_notes.h`); the program's compilation
/// drops them.
///
/// In the templates of keys, nodes and modules, "%d" and "%u" stand for the indices of the array
/// elements around the value, the innermost last. "%s" stands for the record's prefix in a table's
/// node, and for the record's own node in `.Under`.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <type_traits>

#include "param/common/field_notes.h"
#include "param/common/field_traits.h"

namespace paramgen {

/// Where a member's value comes from.
enum class FieldSource : std::uint8_t {
    kReader,    ///< a typed reader: both it and the loader log a failure, the loader with the label
    kQuery,     ///< a query of the configuration: only the loader logs a failure, with the full key
    kLoader,    ///< code of its own in the loader
    kConstant,  ///< always the row's default
    kCopy,      ///< another member
    kTable,     ///< the nested record's table
    kNobody,    ///< nothing: reserved bytes, which stay zero
};

struct RecordTable;

namespace field_detail {

// Not constexpr and never defined: a mistake in a table makes the compiler evaluate a call of one,
// which it refuses; its message then names the mistake.
void ARowOverlapsAnother();
void TheRowsLeaveBytesOut();
void NoSuchRowsInThisOrder();
void TheKeyTakesMoreThanOneNumber();
void TheKeyIsTooLong();
void ThisKindHasNoDefault();
void NoReaderStoresThisKind();
void NoQueryStoresThisKind();
void ARowHasOneExtraAtMost();

}  // namespace field_detail

/// Which member of its union a row uses. No row needs two of them.
enum class FieldExtra : std::uint8_t {
    kNumber,          ///< a number, see `Number`; rows with another extra have the number 0
    kLabel,           ///< the label of its failures
    kModule,          ///< the module it is read from, instead of the record's
    kSearchedModule,  ///< the same, found by a search
    kLookup,          ///< kName: the function that looks names up
};

// Body of a function that adds a note: returns a copy of the row with the note. The program's
// compilation drops the note.
#if defined(PARAMGEN_DESCRIBED)
#define NOTE_(note, value)    \
    Field row = *this;        \
    row.notes.note = (value); \
    return row
#else
#define NOTE_(note, value)      \
    static_cast<void>((value)); \
    return *this
#endif

/// One row. The program holds hundreds of them; unions and narrow members keep it small.
struct Field {
    union {
        const char* key;           ///< item name or its template; null when there is none
        const RecordTable* table;  ///< kTable
    };
    const char* node;  ///< node template when it is not the record's, else null; see `ownNode`
    union {
        std::int32_t number;
        const char* label;
        const char* module;
        NameLookup lookup;
    };                       ///< see `extra`
    std::uint16_t offset;    ///< of the first element, in bytes from the record's start
    std::uint16_t size;      ///< of one element, in bytes
    std::uint8_t count;      ///< number of elements, 1 when the member is no array
    std::uint8_t keyLength;  ///< of `key`, in characters: saves measuring it in every run
    FieldKind kind : 4;
    FieldSource source : 4;
    FieldExtra extra : 4;
    bool isArray : 1;     ///< the member is an array: templates take the element's index
    bool isNumbered : 1;  ///< `key` is a template that takes a number
    bool ownNode : 1;     ///< `node` is a node, not a template; the loader's node does not matter
    bool fullLabel : 1;   ///< the label of its failures is "node:key", not the key alone
#if defined(PARAMGEN_DESCRIBED)
    FieldNotes notes;
#endif

    constexpr Field At(const char* veryNode) const {
        Field row = *this;
        row.node = veryNode;
        row.ownNode = true;
        row.fullLabel = true;
        return row;
    }
    constexpr Field Label(const char* text) const {
        Field row = With(FieldExtra::kLabel);
        row.label = text;
        return row;
    }
    constexpr Field FullLabel() const {
        Field row = *this;
        row.fullLabel = true;
        return row;
    }
    constexpr Field Under(const char* nodeTemplate) const {
        Field row = *this;
        row.node = nodeTemplate;
        return row;
    }
    constexpr Field From(const char* moduleTemplate) const {
        Field row = With(FieldExtra::kModule);
        row.module = moduleTemplate;
        return row;
    }
    consteval Field FromMatching(const ModuleSearch& search) const {
        Field row = With(FieldExtra::kSearchedModule).Searched(search);
        row.module = search.modules;
        return row;
    }
    constexpr Field NamesFrom(NameLookup names, [[maybe_unused]] const NameTable* all) const {
        Field row = With(FieldExtra::kLookup);
        row.lookup = names;
#if defined(PARAMGEN_DESCRIBED)
        row.notes.names = all;
#endif
        return row;
    }

    // Notes. The program's compilation drops them.
    consteval Field Member(const char* name) const {
        NOTE_(member, name);
    }
    consteval Field About(const char* text) const {
        NOTE_(about, text);
    }
    consteval Field Unit(const char* text) const {
        NOTE_(unit, text);
    }
    consteval Field Numbers(const char* text) const {
        NOTE_(numbers, text);
    }
    consteval Field CountedBy(std::size_t countOffset, CountBeyond more) const {
        return CountAt(countOffset).Beyond(more);
    }
    consteval Field WhileExists(const char* itemKey, std::size_t countOffset) const {
        return CountAt(countOffset).WhileKey(itemKey);
    }
    consteval Field Optional() const {
        NOTE_(optionalModule, true);
    }
    consteval Field WantedBy(const ModuleSearch& search) const {
        NOTE_(wanted, &search);
    }
    consteval Field Times(std::uint16_t factor) const {
        NOTE_(times, factor);
    }
    consteval Field CountsUpTo(std::uint16_t max) const {
        NOTE_(countMax, max);
    }
    consteval Field EmptyByQuotes() const {
        NOTE_(emptyByQuotes, true);
    }

    /// The value when the key is absent; kConstant: the value; kCopy: the offset of the member that
    /// is copied.
    constexpr std::int32_t Number() const {
        return extra == FieldExtra::kNumber ? number : 0;
    }

    constexpr std::string_view KeyView() const {
        return {key, keyLength};
    }

    bool HasModule() const {
        return extra == FieldExtra::kModule || extra == FieldExtra::kSearchedModule;
    }

private:
    consteval Field CountAt(std::size_t countOffset) const {
        NOTE_(countOffset, static_cast<std::uint16_t>(countOffset));
    }
    consteval Field Beyond(CountBeyond more) const {
        NOTE_(beyond, more);
    }
    consteval Field WhileKey(const char* itemKey) const {
        NOTE_(whileKey, itemKey);
    }
    consteval Field Searched(const ModuleSearch& by) const {
        NOTE_(search, &by);
    }
    constexpr Field With(FieldExtra what) const {
        if (extra != FieldExtra::kNumber || number != 0) {
            field_detail::ARowHasOneExtraAtMost();
        }
        Field row = *this;
        row.extra = what;
        return row;
    }
};
#if !defined(PARAMGEN_DESCRIBED)
static_assert(sizeof(void*) != 4 || sizeof(Field) == 20, "on the target");
#endif
#undef NOTE_

/// The rows of one record.
struct RecordTable {
    const char* node;               ///< template of the record's node; null: the prefix it is given
    std::span<const Field> fields;  ///< in reading order
    std::uint32_t size;             ///< of the record, in bytes
#if defined(PARAMGEN_DESCRIBED)
    std::string_view type;  ///< "GsensorCfg"
    const char* ownModule;  ///< module that it is read from; null: that of the enclosing record
#endif

    /// Template of the node that `row` of this table is read under; for a nested record, of the
    /// node that its own rows are read under.
    constexpr const char* NodeOf(const Field& row) const {
        const bool isOfTable = row.source == FieldSource::kTable && row.table->node != nullptr;
        return row.node != nullptr ? row.node : isOfTable ? row.table->node : node;
    }
};

/// Consecutive rows of a table.
struct TableRows {
    const RecordTable* table;
    std::span<const Field> fields;
};

namespace field_detail {

#if defined(PARAMGEN_DESCRIBED)
/// The name of a type, with its namespaces.
template <typename Record>
consteval std::string_view NameOfType() {
    constexpr std::string_view kBefore = "Record = ";
    std::string_view name = __PRETTY_FUNCTION__;  // "...Record = paramgen::GsensorCfg]", or ";"
    name.remove_prefix(name.find(kBefore) + kBefore.size());
    return name.substr(0, name.find_first_of(";]"));
}
#endif

/// Element type and count of a member. A text, and reserved bytes, count as one element.
template <typename Member>
struct Shape {
    using Element = Member;
    static constexpr std::uint16_t kCount = 1;
    static constexpr bool kIsArray = false;
};
template <typename T, std::size_t N>
requires(!std::is_same_v<T, char> && !std::is_same_v<T, std::byte>) struct Shape<T[N]> {
    using Element = T;
    static constexpr std::uint16_t kCount = N;
    static constexpr bool kIsArray = true;
};

template <typename Member>
constexpr Field Row(std::size_t offset, FieldKind kind, FieldSource source) {
    Field row = {};
    row.offset = static_cast<std::uint16_t>(offset);
    row.size = sizeof(typename Shape<Member>::Element);
    static_assert(Shape<Member>::kCount <= UINT8_MAX);
    row.count = Shape<Member>::kCount;
    row.kind = kind;
    row.source = source;
    row.isArray = Shape<Member>::kIsArray;
    return row;
}

constexpr int CountNumbers(const char* key) {
    int count = 0;
    for (; *key != '\0'; ++key) {
        count += *key == '%' ? 1 : 0;
    }
    return count;
}

template <typename Member>
constexpr Field KeyRow(FieldSource source, std::size_t offset, const char* key,
                       std::int32_t defaultValue = 0) {
    using Traits = FieldTraits<typename Shape<Member>::Element>;
    if (CountNumbers(key) > 1) {
        TheKeyTakesMoreThanOneNumber();
    }
    if (defaultValue != 0 &&
        (Traits::kKind == FieldKind::kText || Traits::kKind == FieldKind::kName)) {
        ThisKindHasNoDefault();
    }
    if (source == FieldSource::kReader &&
        (Traits::kKind == FieldKind::kUint64 || Traits::kKind == FieldKind::kFloat ||
         Traits::kKind == FieldKind::kName)) {
        NoReaderStoresThisKind();
    }
    if (source == FieldSource::kQuery &&
        (Traits::kKind == FieldKind::kText || Traits::kKind == FieldKind::kInt16)) {
        NoQueryStoresThisKind();
    }
    Field row = Row<Member>(offset, Traits::kKind, source);
    row.key = key;
    row.keyLength = static_cast<std::uint8_t>(std::string_view(key).size());
    if (row.KeyView() != key) {
        TheKeyIsTooLong();
    }
    row.isNumbered = CountNumbers(key) != 0;
    row.number = defaultValue;
    return Traits::kKind == FieldKind::kName ? row.NamesFrom(Traits::Lookup, Traits::kNames) : row;
}

template <typename Member>
constexpr Field ConstantRow(std::size_t offset, std::int32_t value) {
    Field row = Row<Member>(offset, FieldTraits<Member>::kKind, FieldSource::kConstant);
    row.number = value;
    return row;
}

template <typename Member, typename From>
constexpr Field CopyRow(std::size_t offset, std::size_t from) {
    static_assert(std::is_same_v<Member, From>, "a copy has the type of what it copies");
    Field row = Row<Member>(offset, FieldTraits<Member>::kKind, FieldSource::kCopy);
    row.number = static_cast<std::int32_t>(from);
    return row;
}

/// The table of a record type. Its constructor refuses rows that overlap or leave bytes out.
template <typename RecordType>
struct TableOf : RecordTable {
    using Record = RecordType;

    constexpr TableOf(const char* nodeTemplate, std::span<const Field> rows) : RecordTable{} {
        node = nodeTemplate;
        fields = rows;
        size = sizeof(Record);
        static_assert(std::is_standard_layout_v<Record> && std::is_trivially_copyable_v<Record>);
#if defined(PARAMGEN_DESCRIBED)
        type = NameOfType<Record>();
#endif
        std::uint32_t covered = 0;
        for (const Field& row : rows) {
            covered += std::uint32_t{row.size} * row.count;
            for (const Field& other : rows) {
                if (&row != &other && row.offset < End(other) && other.offset < End(row)) {
                    ARowOverlapsAnother();
                }
            }
        }
        if (covered != size) {
            TheRowsLeaveBytesOut();
        }
    }

    /// The rows from the member at offset `first` through the member at offset `last`.
    consteval TableRows Rows(std::size_t first, std::size_t last) const {
        std::size_t from = 0;
        while (from < fields.size() && fields[from].offset != first) {
            ++from;
        }
        std::size_t to = from;
        while (to < fields.size() && fields[to].offset != last) {
            ++to;
        }
        if (to == fields.size()) {
            NoSuchRowsInThisOrder();
        }
        return {.table = this, .fields = fields.subspan(from, to - from + 1)};
    }

private:
    static constexpr int End(const Field& row) {
        return row.offset + row.size * row.count;
    }
};

/// The table of a record type, with the module that the record is read from.
template <typename RecordType>
struct ModuleTableOf : TableOf<RecordType> {
    const char* module;

    constexpr ModuleTableOf(const char* name, std::span<const Field> rows)
        : TableOf<RecordType>(nullptr, rows), module(name) {
#if defined(PARAMGEN_DESCRIBED)
        this->ownModule = name;
#endif
    }
};

template <typename Member>
constexpr Field RecordRow(std::size_t offset,
                          const TableOf<typename Shape<Member>::Element>& table) {
    Field row = Row<Member>(offset, FieldKind::kRecord, FieldSource::kTable);
    row.table = &table;
    return row;
}

}  // namespace field_detail

/// The table of record type `Record`. Declared `extern const` in the record's header, and defined
/// `constexpr` beside its rows.
template <typename Record>
using TableOf = field_detail::TableOf<Record>;

/// The same for a record that is always read from the same module, which the table names. Mostly it
/// is a section. Its rows have nodes of their own.
template <typename Record>
using ModuleTableOf = field_detail::ModuleTableOf<Record>;

}  // namespace paramgen

// Slices of a table, for loaders that log between rows: the rows from member `first` through member
// `last`, in reading order, or the row of one member.

#define ROWS(table, first, last) \
    (table).Rows(offsetof(decltype(table)::Record, first), offsetof(decltype(table)::Record, last))

#define ROW(table, member) (ROWS(table, member, member).fields.front())

// Rows. `Record` is the record's type, `member` its member. A key may be followed by the value for
// an absent key, 0 unless given; texts and names take none.

/// A key that a typed reader reads.
#define FIELD(Record, member, ...)                                               \
    ::paramgen::field_detail::KeyRow<decltype(Record::member)>(                  \
        ::paramgen::FieldSource::kReader, offsetof(Record, member), __VA_ARGS__) \
        .Member(#member)

/// A key that is queried from the configuration without a typed reader.
#define QUERY(Record, member, ...)                                              \
    ::paramgen::field_detail::KeyRow<decltype(Record::member)>(                 \
        ::paramgen::FieldSource::kQuery, offsetof(Record, member), __VA_ARGS__) \
        .Member(#member)

/// A key that the loader reads in its own way, not through `LoadField`.
#define LOADED(Record, member, ...)                                              \
    ::paramgen::field_detail::KeyRow<decltype(Record::member)>(                  \
        ::paramgen::FieldSource::kLoader, offsetof(Record, member), __VA_ARGS__) \
        .Member(#member)

/// A member that always gets the same value.
#define CONSTANT(Record, member, value)                                                       \
    ::paramgen::field_detail::ConstantRow<decltype(Record::member)>(offsetof(Record, member), \
                                                                    value)                    \
        .Member(#member)

/// A member that repeats an earlier one.
#define COPY(Record, member, from)                                                       \
    ::paramgen::field_detail::CopyRow<decltype(Record::member), decltype(Record::from)>( \
        offsetof(Record, member), offsetof(Record, from))                                \
        .Member(#member)

/// Reserved bytes: nothing is stored there.
#define RESERVED(Record, member)                                                                   \
    ::paramgen::field_detail::Row<decltype(Record::member)>(                                       \
        offsetof(Record, member), ::paramgen::FieldKind::kBytes, ::paramgen::FieldSource::kNobody) \
        .Member(#member)

/// A member without a key, whose value the loader computes.
#define COMPUTED(Record, member)                                                            \
    ::paramgen::field_detail::Row<decltype(Record::member)>(                                \
        offsetof(Record, member), ::paramgen::FieldTraits<decltype(Record::member)>::kKind, \
        ::paramgen::FieldSource::kLoader)                                                   \
        .Member(#member)

/// A nested record, or an array of them, with its table.
#define RECORD(Record, member, table)                                                              \
    ::paramgen::field_detail::RecordRow<decltype(Record::member)>(offsetof(Record, member), table) \
        .Member(#member)
