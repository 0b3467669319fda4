#include "param/valueset/value_items.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "confaccess/watch.h"
#include "param/common/propagate.h"
#include "param/common/readers.h"

namespace paramgen {
namespace {

constexpr char kCountKey[] = "num";

template <typename Item>
constexpr Field kItemFields[] = {
    LOADED(Item, description, "description%u").FullLabel().About("What the menu calls the choice"),
    QUERY(Item, value, "value%u", 0).About("What the choice stands for"),
};

}  // namespace

constexpr TableOf<NumberItem> kNumberItemTable{nullptr, kItemFields<NumberItem>};
constexpr TableOf<MediaModeItem> kMediaModeItemTable{nullptr, kItemFields<MediaModeItem>};

constexpr Field kNumberSetFields[] = {
    QUERY(NumberSet, count, kCountKey, 0).About("Number of choices"),
    RECORD(NumberSet, items, kNumberItemTable)
        .CountedBy(offsetof(NumberSet, count), CountBeyond::kSpilling),
};

constexpr Field kMediaModeSetFields[] = {
    QUERY(MediaModeSet, count, kCountKey, 0).About("Number of choices"),
    RECORD(MediaModeSet, items, kMediaModeItemTable)
        .CountedBy(offsetof(MediaModeSet, count), CountBeyond::kSpilling),
};

constexpr std::size_t kItemSize = sizeof(NumberItem);

constexpr TableOf<NumberSet> kNumberSetTable{nullptr, kNumberSetFields};
constexpr TableOf<MediaModeSet> kMediaModeSetTable{nullptr, kMediaModeSetFields};

ValueSetView::ValueSetView(std::span<std::byte> bytes)
    : bytes_(bytes),
      maxCount_(
          static_cast<std::uint32_t>((bytes.size() - offsetof(NumberSet, items)) / kItemSize)) {}

ValueSetView ValueSetView::LimitedTo(std::uint32_t max) const {
    ValueSetView set = *this;
    set.maxCount_ = std::min(maxCount_, max);
    return set;
}

std::uint32_t ValueSetView::Count() const {
    std::uint32_t count = 0;
    std::memcpy(&count, bytes_.subspan(offsetof(NumberSet, count), sizeof count).data(),
                sizeof count);
    return count;
}

std::span<std::byte> ValueSetView::Item(std::uint32_t index) const {
    return bytes_.subspan(offsetof(NumberSet, items) + index * kItemSize, kItemSize);
}

std::span<char> ValueSetView::Description(std::uint32_t index) const {
    const std::span<std::byte> bytes = bytes_.subspan(
        offsetof(NumberSet, items) + index * kItemSize + offsetof(NumberItem, description));
    return {reinterpret_cast<char*>(bytes.data()), bytes.size()};
}

std::uint32_t ValueSetView::Value(std::uint32_t index) const {
    std::uint32_t value = 0;
    std::memcpy(&value, Item(index).subspan(offsetof(NumberItem, value), sizeof value).data(),
                sizeof value);
    return value;
}

void ValueSetView::SetValue(std::uint32_t index, std::uint32_t value) const {
    std::memcpy(Item(index).subspan(offsetof(NumberItem, value), sizeof value).data(), &value,
                sizeof value);
}

namespace {

/// A kind of value set: its rows, and the format of its records.
struct ItemKind {
    const Field& count;
    const Field& description;
    const Field& value;
    bool isMediaMode;
};

constexpr ItemKind kNumbers = {.count = ROW(kNumberSetTable, count),
                               .description = ROW(kNumberItemTable, description),
                               .value = ROW(kNumberItemTable, value),
                               .isMediaMode = false};
constexpr ItemKind kMediaModes = {.count = ROW(kMediaModeSetTable, count),
                                  .description = ROW(kMediaModeItemTable, description),
                                  .value = ROW(kMediaModeItemTable, value),
                                  .isMediaMode = true};

/// Loads choice `k` of a set. Logs under the loader's name and line, `site`.
Status LoadChoice(CallSite site, const char* module, std::string_view item, const ItemKind& kind,
                  ValueSetView set, std::uint32_t k) {
    const std::span<char> text = set.Description(k);
    Key key;
    FORMAT_KEY_FOR_OR_RETURN(site, key, item, kind.description, k);
    WATCH_DESTINATION(text.data(), kind.description.size);
    CALL_FOR_OR_RETURN(
        site, PDT_INIPARAM_LoadStringValue(module, key.c_str(), text, kind.description.size),
        key.c_str());
    LOAD_FOR_OR_RETURN(site, module, item, kind.value, k, set.Item(k).data());
    LogDebug(site.function, site.line,
             kind.isMediaMode ? "      [%u] Description[%.*s] Value[%d]\n"
                              : "      [%u] Description[%.*s] Value[%u]\n",
             k, static_cast<int>(text.size()), text.data(), set.Value(k));
    return kOk;
}

/// Logs that a set has more choices than its section has room for. Returns -1.
Status LogTooMany(CallSite site, const char* item, const ItemKind& kind, ValueSetView set) {
    Key key;
    FORMAT_KEY_FOR_OR_RETURN(site, key, item, kind.count, 0);
    LogError(site.function, site.line, kCountBeyondSection, key.c_str(), set.Count());
    return kFailed;
}

/// Loads a set. Logs under the loader's name and line, `site`.
Status LoadSet(CallSite site, const char* module, const char* item, const ItemKind& kind,
               ValueSetView set) {
    const std::string_view node = item;
    LOAD_FOR_OR_RETURN(site, module, node, kind.count, 0, set.Record());
    if (set.Count() > set.MaxCount()) {
        return LogTooMany(site, item, kind, set);
    }
    LogDebug(site.function, site.line,
             kind.isMediaMode ? "MediaModeItem[%s] Support ValueCnt[%u]\n"
                              : "CommItem[%s] Support ValueCnt[%u]\n",
             item, set.Count());
    for (std::uint32_t k = 0; k < set.Count(); ++k) {
        const Status status = LoadChoice(site, module, node, kind, set, k);
        if (status != kOk) {
            return status;
        }
    }
    LogDebug(site.function, site.line, "\n\n");
    return kOk;
}

}  // namespace

Status PDT_INIPARAM_LoadCommItemValues(const char* module, const char* item, ValueSetView set) {
    return LoadSet({__func__, __LINE__}, module, item, kNumbers, set);
}

Status PDT_INIPARAM_LoadMediaModeItemValues(const char* module, const char* item,
                                            ValueSetView set) {
    return LoadSet({__func__, __LINE__}, module, item, kMediaModes, set);
}

}  // namespace paramgen
