#include "image/diff.h"
#include "image/dump.h"
#include "output/shown_text.h"

namespace paramgen::image {
namespace {

constexpr std::size_t kCommentMax = 65000;  ///< characters of a review comment

/// A value on one side, for people.
std::string SideText(const Side& side) {
    const Entry& entry = side.entry;
    const layout::Value& value = *entry.value;
    if (!entry.name.empty()) {
        return output::Shown(entry.name);
    }
    if (value.Kind() == FieldKind::kText) {
        return "\"" + output::Shown(entry.text) + "\"";
    }
    return value.Kind() == FieldKind::kBytes ? entry.raw : output::Shown(entry.text);
}

/// Remarks on a side: whether it is the default or unread, and the place of its key.
std::string SideRemark(const Side& side, const PlaceOfKey& placeOf) {
    const layout::Value& value = *side.entry.value;
    if (!value.HasKey()) {
        return "";
    }
    std::string remark;
    if (!side.isRead) {
        remark = "unread";
    } else if (side.isSet && placeOf != nullptr) {
        remark = placeOf(value);
    } else if (side.isDefault) {
        remark = "default";
    }
    return remark.empty() ? "" : " (" + output::Shown(remark) + ")";
}

std::string Name(const Difference& difference) {
    const layout::Value& value = *difference.places.front();
    return value.HasKey() ? KeyOf(value) : value.Member();
}

std::string PlacesText(const Difference& difference, bool offsets) {
    if (offsets) {
        std::string text = " @";
        for (const layout::Value* place : difference.places) {
            text += (place == difference.places.front() ? "" : ",") + std::to_string(place->offset);
        }
        return text;
    }
    const std::size_t count = difference.places.size();
    return count == 1 ? "" : " (" + std::to_string(count) + " places)";
}

/// A text in a cell of a Markdown table: nothing in it is markup.
std::string Cell(const std::string& text) {
    std::string cell;
    for (const char c : text) {
        const bool isMarkup =
            std::string_view("\\`*_{}[]<>()#+!|~&@$^:=-").find(c) != std::string_view::npos;
        cell += isMarkup ? "\\" + std::string(1, c) : std::string(1, c);
    }
    return cell;
}

}  // namespace

std::string TextDiff(const std::vector<Difference>& differences, const DiffStyle& style) {
    const char* const red = style.colors ? "\033[31m" : "";
    const char* const green = style.colors ? "\033[32m" : "";
    const char* const plain = style.colors ? "\033[m" : "";
    std::string text;
    for (const Difference& difference : differences) {
        text += Name(difference) + ": " + red + SideText(difference.before) + plain +
                SideRemark(difference.before, style.placeBefore) + " -> " + green +
                SideText(difference.after) + plain +
                SideRemark(difference.after, style.placeAfter) +
                PlacesText(difference, style.offsets) + "\n";
    }
    return text;
}

std::string MarkdownDiff(const std::vector<Difference>& differences, const DiffStyle& style) {
    constexpr std::size_t kRoomForRest = 100;
    std::string text = "| key | old | new |\n|---|---|---|\n";
    std::size_t shown = 0;
    for (const Difference& difference : differences) {
        const std::string row =
            "| " + Cell(Name(difference) + PlacesText(difference, style.offsets)) + " | " +
            Cell(SideText(difference.before) + SideRemark(difference.before, style.placeBefore)) +
            " | " +
            Cell(SideText(difference.after) + SideRemark(difference.after, style.placeAfter)) +
            " |\n";
        if (text.size() + row.size() > kCommentMax - kRoomForRest) {
            break;
        }
        text += row;
        ++shown;
    }
    if (shown < differences.size()) {
        text += "\n" + std::to_string(differences.size() - shown) + " of " +
                std::to_string(differences.size()) + " differences are left out.\n";
    }
    return text;
}

}  // namespace paramgen::image
