#include "manual/records.h"

#include <algorithm>
#include <map>
#include <memory>
#include <string_view>

#include "generator/image.h"

namespace paramgen::manual {
namespace {

/// "ValueItem<MediaMode>" of "paramgen::ValueItem<paramgen::MediaMode>".
std::string WithoutNamespaces(std::string_view type) {
    std::string name;
    for (const char c : type) {
        name += c;
        if (name.ends_with("::")) {
            const std::size_t begin = name.find_last_of("<, ");
            name.erase(begin == std::string::npos ? 0 : begin + 1);
        }
    }
    return name;
}

/// Makes each type once, though several tables may describe records of it.
class Types {
public:
    const Record* Add(const RecordTable& table) {
        const std::string name = WithoutNamespaces(table.type);
        const auto known = byName_.find(name);
        if (known != byName_.end()) {
            return known->second.get();
        }
        auto record = std::make_unique<Record>();
        record->name = name;
        record->size = table.size;
        for (const Field& field : table.fields) {
            const bool isRecord = field.source == FieldSource::kTable;
            record->members.push_back({field.notes.member, field.offset, field.size, field.count,
                                       field.isArray, &field,
                                       isRecord ? Add(*field.table) : nullptr});
        }
        std::sort(record->members.begin(), record->members.end(),
                  [](const Member& a, const Member& b) { return a.offset < b.offset; });
        const Record* added = record.get();
        byName_.emplace(name, std::move(record));
        inOrder_.push_back(added);
        return added;
    }

    const std::vector<const Record*>& InOrder() const { return inOrder_; }

private:
    std::map<std::string, std::unique_ptr<Record>> byName_;
    std::vector<const Record*> inOrder_;
};

}  // namespace

std::span<const Record* const> Records() {
    static const Types kTypes = [] {
        Types types;
        types.Add(kImageTable);
        return types;
    }();
    return kTypes.InOrder();
}

const Record& ImageRecord() {
    return *Records().back();
}

}  // namespace paramgen::manual
