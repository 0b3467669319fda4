#include "param/valueset/value_items.h"

#include <algorithm>
#include <cstring>

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

Status PDT_INIPARAM_LoadCommItemValues(const char* module, const char* item, ValueSetView set) {
    Key key;
    LOAD_OR_RETURN(module, item, ROW(kNumberSetTable, count), set.Record());
    FORMAT_KEY_OR_RETURN(key, item, ROW(kNumberSetTable, count), 0);
    REQUIRE_COUNT_OR_RETURN(key.c_str(), set.Count(), set.MaxCount());
    LOG_DEBUG("CommItem[%s] Support ValueCnt[%u]\n", item, set.Count());
    for (std::uint32_t k = 0; k < set.Count(); ++k) {
        const std::span<char> text = set.Description(k);
        FORMAT_KEY_OR_RETURN(key, item, ROW(kNumberItemTable, description), k);
        WATCH_DESTINATION(text.data(), sizeof(MediaModeItem::description));
        CALL_OR_RETURN(PDT_INIPARAM_LoadStringValue(module, key.c_str(), text,
                                                    sizeof(NumberItem::description)),
                       key.c_str());
        LOAD_ELEMENT_OR_RETURN(module, item, ROW(kNumberItemTable, value), k, set.Item(k).data());
        LOG_DEBUG("      [%d] Description[%.*s] Value[%u]\n", k, static_cast<int>(text.size()),
                  text.data(), set.Value(k));
    }
    LOG_DEBUG("\n\n");
    return kOk;
}

Status PDT_INIPARAM_LoadMediaModeItemValues(const char* module, const char* item,
                                            ValueSetView set) {
    Key key;
    LOAD_OR_RETURN(module, item, ROW(kMediaModeSetTable, count), set.Record());
    FORMAT_KEY_OR_RETURN(key, item, ROW(kMediaModeSetTable, count), 0);
    REQUIRE_COUNT_OR_RETURN(key.c_str(), set.Count(), set.MaxCount());
    LOG_DEBUG("MediaModeItem[%s] Support ValueCnt[%u]\n", item, set.Count());
    for (std::uint32_t k = 0; k < set.Count(); ++k) {
        const std::span<char> text = set.Description(k);
        FORMAT_KEY_OR_RETURN(key, item, ROW(kMediaModeItemTable, description), k);
        WATCH_DESTINATION(text.data(), sizeof(MediaModeItem::description));
        CALL_OR_RETURN(PDT_INIPARAM_LoadStringValue(module, key.c_str(), text,
                                                    sizeof(MediaModeItem::description)),
                       key.c_str());
        LOAD_ELEMENT_OR_RETURN(module, item, ROW(kMediaModeItemTable, value), k,
                               set.Item(k).data());
        LOG_DEBUG("      [%u] Description[%.*s] Value[%d]\n", k, static_cast<int>(text.size()),
                  text.data(), set.Value(k));
    }
    LOG_DEBUG("\n\n");
    return kOk;
}

}  // namespace paramgen
