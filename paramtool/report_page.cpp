#include "paramtool/report_page.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "check/reference_list.h"
#include "diagnostics/report.h"
#include "image/entry.h"
#include "layout/layout.h"
#include "output/shown_text.h"
#include "paramtool/key_argument.h"
#include "paramtool/read_back.h"
#include "report/sha256.h"

namespace paramgen::paramtool {
namespace {

using image::Entry;
using layout::Value;

/// The part of the image that a member lies in: "work modes".
std::string PartOf(const std::string& member) {
    static const std::map<std::string, std::string> kNames = {
        {"workMode", "work modes"},     {"mediaComm", "media settings"}, {"cam", "cameras"},
        {"fileMng", "file management"}, {"devMng", "device management"}, {"valueSet", "value sets"},
    };
    const std::string part = member.substr(0, member.find_first_of(".["));
    const auto name = kNames.find(part);
    return name == kNames.end() ? part : name->second;
}

std::string ConditionOf(const Value& value) {
    std::string text;
    for (const layout::Condition& condition : value.conditions) {
        text += (text.empty() ? "" : ", ") + layout::Words(condition);
    }
    return text;
}

/// What the loaders of a tree got for the value at each offset.
using Answers = std::map<std::uint32_t, const compile::Answer*>;

Answers AnswersOf(const image::Input& input) {
    Answers answers;
    if (input.compilation.has_value()) {
        for (const compile::Answer& answer : input.compilation->answers) {
            if (answer.place.has_value()) {
                answers[answer.place->offset] = &answer;
            }
        }
    }
    return answers;
}

/// The values of an image or a tree, one after the other.
class ValueMaker {
public:
    explicit ValueMaker(const ReportInput& given)
        : given_(given), answers_(AnswersOf(given.input)), place_(PlacesIn(given.input)) {
        if (given.against.has_value()) {
            oldPlace_ = PlacesIn(*given.against);
        }
    }

    report::Value Make(const Entry& entry) const {
        const Value& value = *entry.value;
        report::Value made;
        made.offset = value.offset;
        made.size = value.size;
        made.part = PartOf(value.Member());
        made.member = value.Member();
        made.module = value.module;
        made.section = value.section;
        made.key = value.key;
        made.type = layout::KindName(value.Kind());
        made.raw = entry.raw;
        made.value = entry.text;
        made.name = entry.name;
        made.initial = value.HasKey() ? image::DefaultText(value) : "";
        made.about = value.About();
        made.unit = value.Unit();
        made.numbers = value.Numbers();
        made.condition = ConditionOf(value);
        for (const image::Flag flag : entry.flags) {
            made.flags.emplace_back(image::NameOf(flag));
        }
        SetOrigin(value, &made);
        SetOld(value, &made);
        return made;
    }

private:
    void SetOrigin(const Value& value, report::Value* made) const {
        if (!value.HasKey()) {
            made->state = value.Source() == FieldSource::kNobody ? report::State::kReserved
                                                                 : report::State::kConstant;
            return;
        }
        if (!given_.input.isTree) {
            made->state = image::IsRead(given_.input.image, value) ? report::State::kStored
                                                                   : report::State::kUnread;
            return;
        }
        const auto answer = answers_.find(value.offset);
        if (answer == answers_.end()) {
            made->state = report::State::kUnread;
        } else if (!answer->second->text.has_value()) {
            made->state = report::State::kDefault;
        } else {
            made->state = report::State::kSet;
            made->given = *answer->second->text;
            made->place = place_ == nullptr ? "" : WithinTree(place_(value));
        }
    }

    void SetOld(const Value& value, report::Value* made) const {
        if (!given_.against.has_value()) {
            return;
        }
        const auto now = image::BytesOf(given_.input.image, value);
        const auto before = image::BytesOf(given_.against->image, value);
        if (std::equal(now.begin(), now.end(), before.begin())) {
            return;
        }
        const Entry old = image::EntryOf(given_.against->image, value);
        made->changed = true;
        made->old = old.text.empty() ? old.raw : old.text;
        made->oldName = old.name;
        made->oldPlace = oldPlace_ == nullptr || !value.HasKey() ? "" : oldPlace_(value);
    }

    /// A place without the tree's directory, which the page says once.
    std::string WithinTree(const std::string& place) const {
        const std::string& argument = given_.input.argument;
        const std::string directory = argument.ends_with('/') ? argument : argument + "/";
        return place.starts_with(directory) ? place.substr(directory.size()) : place;
    }

    const ReportInput& given_;
    Answers answers_;
    image::PlaceOfKey place_;
    image::PlaceOfKey oldPlace_;
};

/// "devmng.ini:12:1".
std::string TextOf(const diagnostics::Place& place) {
    if (place.line == 0) {
        return place.file;
    }
    return place.file + ":" + std::to_string(place.line) + ":" + std::to_string(place.column);
}

/// The lines of a finding's text report behind the first, up to its notes: the source line and its
/// caret.
std::string ExcerptOf(diagnostics::Finding finding) {
    finding.notes.clear();
    std::string text = diagnostics::TextReport({finding}, false);
    text.erase(0, text.find('\n') + 1);
    if (!text.empty()) {
        text.pop_back();
    }
    return text;
}

/// The values that a finding is about, if it is about a key.
std::vector<std::uint32_t> OffsetsOf(const diagnostics::Finding& finding) {
    const layout::Key* key = finding.key.empty()
                                 ? nullptr
                                 : layout::FindKey(finding.module, finding.section, finding.key);
    std::vector<std::uint32_t> offsets;
    if (key != nullptr && !key->values.empty()) {
        offsets.push_back(key->values.front()->offset);
    }
    return offsets;
}

report::Finding Made(const diagnostics::Finding& finding) {
    report::Finding made;
    made.severity = diagnostics::NameOf(finding.severity);
    made.id = diagnostics::RuleOf(finding.id).name;
    made.place = TextOf(finding.place);
    made.message = diagnostics::FullMessage(finding);
    made.excerpt = ExcerptOf(finding);
    for (const diagnostics::Note& note : finding.notes) {
        made.notes.push_back(TextOf(note.place) + ": " + note.message);
    }
    made.offsets = OffsetsOf(finding);
    return made;
}

/// The value of a member; empty when there is none of this name.
const report::Value* Find(const report::Page& page, const std::string& member) {
    for (const report::Value& value : page.values) {
        if (value.member == member) {
            return &value;
        }
    }
    return nullptr;
}

/// The media modes of a camera, each titled with its number and name.
report::Comparison MediaModes(const report::Page& page, const std::string& camera) {
    report::Comparison comparison = {"Media modes", {}};
    for (int i = 0;; ++i) {
        const std::string record = camera + ".mediaModes[" + std::to_string(i) + "].";
        const report::Value* mode = Find(page, record + "mediaMode");
        if (mode == nullptr) {
            return comparison;
        }
        const std::size_t prefix = mode->name.rfind("MEDIAMODE_");
        const std::string name =
            prefix == std::string::npos ? mode->name : mode->name.substr(prefix + 10);
        comparison.columns.push_back(
            {std::to_string(i) + (name.empty() ? "" : ": " + name), record});
    }
}

void AddComparisons(report::Page* page) {
    const std::string camera = "cam[0]";
    page->comparisons.push_back(MediaModes(*page, camera));
    page->comparisons.push_back({"Recording, photo and playback",
                                 {{"recording", camera + ".record."},
                                  {"photo", camera + ".photo."},
                                  {"playback", camera + ".playback."}}});
}

/// The numbers in the page of the values that a key gives.
std::vector<std::size_t> NumbersOf(const layout::KeyName& name) {
    std::vector<std::size_t> numbers;
    const layout::Key* key = layout::FindKey(name.module, name.section, name.key);
    for (const Value* value : key == nullptr ? std::vector<const Value*>() : key->values) {
        numbers.push_back(static_cast<std::size_t>(value - layout::Values().data()));
    }
    return numbers;
}

/// Each place of a key refers to others, and the first one is referred to.
void AddReferences(const image::Image& image, report::Page* page) {
    for (const check::Reference& reference : check::ReferencesOf(ReadBack(image))) {
        const std::vector<std::size_t> targets = NumbersOf(reference.to);
        if (targets.empty()) {
            continue;
        }
        report::Value& target = page->values[targets.front()];
        for (const std::size_t number : NumbersOf(reference.from)) {
            report::Value& value = page->values[number];
            value.refersTo.push_back({.text = reference.reason, .offset = target.offset});
            target.referredBy.push_back({.text = reference.reason, .offset = value.offset});
        }
    }
}

std::string ValueOfKey(const report::Page& page, const char* section, const char* key) {
    for (const report::Value& value : page.values) {
        if (value.section == section && value.key == key) {
            return value.value;
        }
    }
    return "";
}

}  // namespace

report::Page MakePage(const ReportInput& given) {
    report::Page page;
    page.tool = PARAMGEN_VERSION;
    page.input = given.input.argument;
    page.against = given.against.has_value() ? given.against->argument : "";
    page.sha256 = report::Hexadecimal(report::Sha256(image::Characters(given.input.image)));
    const ValueMaker maker(given);
    for (const Entry& entry : image::Entries(given.input.image)) {
        page.values.push_back(maker.Make(entry));
    }
    page.model = ValueOfKey(page, "devinfo", "model");
    page.version = ValueOfKey(page, "devinfo", "software_version");
    if (given.verdict.has_value()) {
        page.checked = true;
        for (const diagnostics::Finding& finding : given.verdict->findings) {
            page.findings.push_back(Made(finding));
        }
    }
    AddComparisons(&page);
    AddReferences(given.input.image, &page);
    return page;
}

}  // namespace paramgen::paramtool
