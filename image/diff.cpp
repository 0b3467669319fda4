#include "image/diff.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <map>
#include <unordered_map>

#include "image/dump.h"

namespace paramgen::image {
namespace {

/// The offsets that a tree's run has read, and whether the key was there; for an image, what its
/// counts tell.
class Reading {
public:
    explicit Reading(const Input& input) : input_(input) {}

    bool IsRead(const layout::Value& value) {
        return input_.isTree ? !value.HasKey() || Answers().count(value.offset) != 0
                             : image::IsRead(input_.image, value);
    }

    bool IsSet(const layout::Value& value) {
        const auto found = Answers().find(value.offset);
        return found != Answers().end() && found->second;
    }

private:
    /// By offset, whether the key was there. Made when it is first asked for: mostly little
    /// differs.
    const std::unordered_map<std::uint32_t, bool>& Answers() {
        if (isSet_.empty() && input_.compilation) {
            for (const compile::Answer& answer : input_.compilation->answers) {
                if (answer.place) {
                    isSet_[answer.place->offset] = answer.text.has_value();
                }
            }
        }
        return isSet_;
    }

    const Input& input_;
    std::unordered_map<std::uint32_t, bool> isSet_;
};

Side SideOf(const Input& input, Reading* reading, const layout::Value& value) {
    return {.entry = EntryOf(input.image, value),
            .isRead = reading->IsRead(value),
            .isSet = reading->IsSet(value),
            .isDefault = value.HasKey() && IsDefault(input.image, value)};
}

/// What values must share to be one difference.
std::string Identity(const layout::Value& value, const Entry& before, const Entry& after) {
    return KeyOf(value) + "\n" + before.raw + "\n" + after.raw;
}

/// The first byte from `at` on that differs; the size of an image when none does.
std::size_t NextDifference(const Image& before, const Image& after, std::size_t at) {
    constexpr std::size_t kPiece = 64;  // most of two images is the same
    while (at < before.size()) {
        const std::size_t size = std::min(kPiece, before.size() - at);
        if (std::memcmp(&before[at], &after[at], size) != 0) {
            const auto begin = before.begin() + static_cast<std::ptrdiff_t>(at);
            const auto found = std::mismatch(begin, before.end(), &after[at]);
            return static_cast<std::size_t>(found.first - before.begin());
        }
        at += size;
    }
    return at;
}

}  // namespace

std::vector<Difference> Differences(const Input& before, const Input& after) {
    Reading readBefore(before);
    Reading readAfter(after);
    std::vector<Difference> differences;
    std::map<std::string, std::size_t> known;
    std::size_t at = 0;
    while ((at = NextDifference(before.image, after.image, at)) < before.image.size()) {
        const layout::Value& value = *layout::ValueAt(static_cast<std::uint32_t>(at));
        at = value.offset + value.size;
        const Entry oldEntry = EntryOf(before.image, value);
        const Entry newEntry = EntryOf(after.image, value);
        const std::string identity = Identity(value, oldEntry, newEntry);
        const auto found = known.find(identity);
        if (value.HasKey() && found != known.end()) {
            differences[found->second].places.push_back(&value);
            continue;
        }
        known[identity] = differences.size();
        differences.push_back({.places = {&value},
                               .before = SideOf(before, &readBefore, value),
                               .after = SideOf(after, &readAfter, value)});
    }
    return differences;
}

output::Json JsonDiff(const Input& before, const Input& after,
                      const std::vector<Difference>& differences) {
    output::Json list = output::Json::array();
    for (const Difference& difference : differences) {
        const layout::Value& value = *difference.places.front();
        output::Json json = output::Json::object();
        if (value.HasKey()) {
            json["module"] = value.module;
            json["section"] = value.section;
            json["key"] = value.key;
        }
        json["type"] = layout::KindName(value.Kind());
        const bool isBytes = value.Kind() == FieldKind::kBytes;
        json["old"] =
            isBytes ? output::Json(difference.before.entry.raw) : ValueJson(before.image, value);
        json["new"] =
            isBytes ? output::Json(difference.after.entry.raw) : ValueJson(after.image, value);
        json["places"] = output::Json::array();
        for (const layout::Value* place : difference.places) {
            json["places"].push_back(
                {{"offset", place->offset}, {"size", place->size}, {"member", place->Member()}});
        }
        list.push_back(std::move(json));
    }
    return {{"schema", 1}, {"differences", std::move(list)}};
}

std::string DiffStat(const std::vector<Difference>& differences) {
    std::map<std::string, std::size_t> counts;
    for (const Difference& difference : differences) {
        const layout::Value& value = *difference.places.front();
        ++counts[value.HasKey() ? value.module : "(no key)"];
    }
    std::string text;
    for (const auto& [module, count] : counts) {
        text += module + " | " + std::to_string(count) + "\n";
    }
    return text + std::to_string(differences.size()) +
           (differences.size() == 1 ? " difference\n" : " differences\n");
}

}  // namespace paramgen::image
