#include "manual/layout_compare.h"

#include <map>
#include <optional>
#include <set>

#include "output/result.h"

namespace paramgen::manual {
namespace {

using output::Json;

/// What of a value matters to a reader.
struct Place {
    std::string member;
    std::string type;
    std::string key;
    std::uint32_t offset;
    std::uint32_t size;
};

std::string TextOf(const Json& value, const char* member) {
    return value.value(member, std::string());
}

Place PlaceOf(const Json& value) {
    std::string key = TextOf(value, "key");
    if (!key.empty()) {
        key = TextOf(value, "module") + "/" + TextOf(value, "section") + ":" + key;
    }
    return {value.at("member"), value.at("type"), key, value.at("offset"), value.at("size")};
}

/// Whether a value is reserved bytes.
bool IsReserved(const Place& place) {
    return place.type == "bytes";
}

/// A layout, to be looked up by members and by offsets.
struct Layout {
    std::vector<Place> places;
    std::map<std::string, const Place*> byMember;
    std::map<std::uint32_t, const Place*> byOffset;
    std::uint32_t size = 0;
};

Layout Read(const Json& json) {
    try {
        Layout layout;
        if (json.at("schema") != 1) {
            throw output::UserError("a layout of another schema");
        }
        layout.size = json.at("size");
        for (const Json& value : json.at("values")) {
            layout.places.push_back(PlaceOf(value));
        }
        for (const Place& place : layout.places) {
            layout.byMember[place.member] = &place;
            layout.byOffset[place.offset] = &place;
        }
        return layout;
    } catch (const nlohmann::json::exception&) {
        throw output::UserError("not a layout as 'paramtool layout --format=json' writes it");
    }
}

std::string FromTo(const std::string& from, const std::string& to) {
    return "from " + from + " to " + to;
}

/// The value of `after` that corresponds to `old`: the one of the same member, else the one at the
/// same offset.
const Place* Counterpart(const Place& old, const Layout& before, const Layout& after) {
    if (const auto same = after.byMember.find(old.member); same != after.byMember.end()) {
        return same->second;
    }
    const auto there = after.byOffset.find(old.offset);
    const bool isRenamed = there != after.byOffset.end() && there->second->size == old.size &&
                           there->second->type == old.type &&
                           !before.byMember.contains(there->second->member);
    return isRenamed ? there->second : nullptr;
}

void CompareValues(const Place& old, const Place& now, std::vector<LayoutChange>* changes) {
    const auto add = [&](const char* kind, const std::string& text, bool misreads) {
        changes->push_back({kind, old.member, text, misreads});
    };
    if (now.member != old.member) {
        add("renamed", FromTo(old.member, now.member), false);
    }
    if (now.offset != old.offset) {
        add("moved", FromTo(std::to_string(old.offset), std::to_string(now.offset)), true);
    }
    if (now.type != old.type) {
        add("retyped", FromTo(old.type, now.type), true);
    }
    if (now.size != old.size) {
        add("resized", FromTo(std::to_string(old.size), std::to_string(now.size)) + " bytes", true);
    }
    if (now.key != old.key) {
        add("rekeyed",
            FromTo(old.key.empty() ? "none" : old.key, now.key.empty() ? "none" : now.key), false);
    }
}

}  // namespace

std::vector<LayoutChange> CompareLayouts(const Json& before, const Json& after) {
    const Layout old = Read(before);
    const Layout now = Read(after);
    std::vector<LayoutChange> changes;
    if (old.size != now.size) {
        changes.push_back({"resized", "image",
                           FromTo(std::to_string(old.size), std::to_string(now.size)) + " bytes",
                           true});
    }
    std::set<const Place*> met;
    for (const Place& place : old.places) {
        const Place* other = Counterpart(place, old, now);
        met.insert(other);
        if (IsReserved(place)) {
            continue;
        }
        if (other == nullptr) {
            changes.push_back(
                {"vanished", place.member, "was at " + std::to_string(place.offset), true});
        } else {
            CompareValues(place, *other, &changes);
        }
    }
    for (const Place& place : now.places) {
        if (!met.contains(&place) && !IsReserved(place)) {
            changes.push_back({"added", place.member, "at " + std::to_string(place.offset), false});
        }
    }
    return changes;
}

}  // namespace paramgen::manual
