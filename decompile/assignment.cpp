#include "decompile/assignment.h"

#include <algorithm>

#include "decompile/image_facts.h"
#include "image/entry.h"
#include "image/key_text.h"
#include "tree/spelling.h"

namespace paramgen::decompile {
namespace {

using Text = std::optional<std::string>;

bool IsText(const layout::Value& value) {
    return value.Kind() == FieldKind::kText;
}

bool IsName(const layout::Value& value) {
    return value.Kind() == FieldKind::kName;
}

/// The text for the value of an absent key. Texts and names have none: nothing is stored.
Text DefaultText(const layout::Value& value) {
    return IsText(value) || IsName(value) ? std::nullopt : Text(image::DefaultText(value));
}

/// Number of bytes that `text` takes in the image, with its terminator.
std::size_t StoredSize(const std::string& text) {
    return text.size() + 1;
}

}  // namespace

Assignment::Assignment(const image::Image& image, const Wish& wish,
                       const std::map<std::uint32_t, std::uint32_t>& counts,
                       const std::set<KeyId>& barred)
    : image_(image), wish_(wish), counts_(counts), barred_(barred), writers_(kSize) {
    if (wish.kept != nullptr) {
        for (const compile::Answer& answer : wish.kept->answers) {
            if (answer.place) {
                keptAnswers_[{IdOf(answer), answer.place->offset}] = &answer;
            }
        }
    }
}

void Assignment::Assign(const Asked& asked) {
    const std::vector<compile::Answer>& answers = asked.answers;
    const std::vector<KeyId>& ids = asked.ids;
    for (std::size_t i = 0; i < answers.size(); ++i) {
        const compile::Answer& answer = answers[i];
        NotePresence(ids[i], answer);
        open_[ids[i]] += answer.place ? 1 : 0;
        for (std::uint32_t at = 0; answer.place && at < answer.place->size; ++at) {
            ++writers_[answer.place->offset + at];
        }
    }
    for (std::size_t i = answers.size(); i-- > 0;) {
        const compile::Answer& answer = answers[i];
        if (answer.place) {
            AssignOne(ids[i], answer);
        } else if (answer.text && ids[i] != nullptr && LeadingKeys().count(ids[i]) == 0) {
            texts_[ids[i]] = *answer.text;  // of a lens module
        }
    }
    std::reverse(overwritten_.begin(), overwritten_.end());
}

/// Notes whether a key exists that counts elements by its existence.
void Assignment::NotePresence(KeyId id, const compile::Answer& answer) {
    if (!answer.place && LeadingKeys().count(id) != 0) {
        isPresent_[id] = answer.text.has_value();
    }
}

void Assignment::AssignOne(KeyId id, const compile::Answer& answer) {
    const std::uint32_t offset = answer.place->offset;
    const bool isOnlyOneLeft = --open_[id] == 0;
    const layout::Value* value = ValueOf(id, offset);
    if (value == nullptr) {
        return;
    }
    const Target target = {.id = id, .value = value, .offset = offset, .size = value->size};
    for (std::uint32_t i = 0; i < target.size; ++i) {
        --writers_[offset + i];
    }
    const auto known = texts_.find(id);
    Text text = known != texts_.end() ? Text(known->second) : std::nullopt;
    if (IsCount(id, offset) && !IsWhole(target)) {
        overwritten_.push_back(offset);
    }
    // A place that cannot be made leaves the key to its other places.
    if (!text && absent_.count(id) == 0 && (isOnlyOneLeft || CanBeMade(target))) {
        text = Choose(target);
        if (text) {
            texts_[id] = *text;
        } else {
            absent_.insert(id);
        }
    }
    Claim(target, text);
}

/// Whether later values overwrite all of its bytes.
bool Assignment::IsFree(const Target& target) const {
    for (std::uint32_t i = 0; i < target.size; ++i) {
        if (IsWanted(target.offset + i)) {
            return false;
        }
    }
    return true;
}

/// Whether no later value overwrites a byte of it.
bool Assignment::IsWhole(const Target& target) const {
    for (std::uint32_t i = 0; i < target.size; ++i) {
        if (!IsWanted(target.offset + i)) {
            return false;
        }
    }
    return true;
}

/// Whether the wanted bytes are those of an absent key.
bool Assignment::DefaultServes(const Target& target) const {
    if (IsText(*target.value) || IsName(*target.value)) {
        // Nothing is stored: an earlier value may have been, else the bytes are zero.
        for (std::uint32_t i = 0; i < target.size; ++i) {
            const std::uint32_t at = target.offset + i;
            if (IsWanted(at) && (image_[at] != std::byte{0} || writers_[at] != 0)) {
                return false;
            }
        }
        return true;
    }
    const std::vector<std::byte> stored = image::DefaultBytes(*target.value);
    for (std::uint32_t i = 0; i < target.size; ++i) {
        const std::uint32_t at = target.offset + i;
        if (IsWanted(at) && image_[at] != stored[i]) {
            return false;
        }
    }
    return true;
}

/// Whether the tree that is to be kept gives the wanted bytes already, by a value or without one.
bool Assignment::KeptServes(const Target& target) const {
    if (wish_.kept == nullptr) {
        return false;
    }
    if (IsFree(target)) {
        return true;
    }
    const auto answer = keptAnswers_.find({target.id, target.offset});
    if (answer == keptAnswers_.end()) {
        return false;
    }
    for (std::uint32_t i = 0; i < target.size; ++i) {
        const std::uint32_t at = target.offset + i;
        if (IsWanted(at) && wish_.kept->image[at] != image_[at]) {
            return false;
        }
    }
    return true;
}

/// Whether some value of its key gives all of the wanted bytes.
bool Assignment::CanBeMade(const Target& target) const {
    if (!IsText(*target.value)) {
        return ChooseNumber(target).has_value();
    }
    const Text text = ChooseText(target);
    if (!text) {
        return false;
    }
    for (std::size_t i = StoredSize(*text); i < target.size; ++i) {
        if (image_[target.offset + i] != std::byte{0}) {
            return false;
        }
    }
    return true;
}

bool Assignment::MayBeAbsent(const Target& target) const {
    const auto present = isPresent_.find(target.id);
    return present == isPresent_.end() || !present->second;
}

Text Assignment::Choose(const Target& target) const {
    const auto count = counts_.find(target.offset);
    if (count != counts_.end() && IsCount(target.id, target.offset)) {
        return count->second == 0 && !wish_.all ? std::nullopt
                                                : Text(std::to_string(count->second));
    }
    const auto present = isPresent_.find(target.id);
    if (barred_.count(target.id) != 0 || (present != isPresent_.end() && !present->second)) {
        return std::nullopt;
    }
    if (KeptServes(target)) {
        const auto kept = wish_.kept->texts.find(target.id);
        if (kept != wish_.kept->texts.end()) {
            return kept->second;
        }
        if (MayBeAbsent(target)) {
            return std::nullopt;
        }
    }
    const bool hasKept = wish_.kept != nullptr && wish_.kept->texts.count(target.id) != 0;
    if (!wish_.all && !hasKept && MayBeAbsent(target) && DefaultServes(target)) {
        return std::nullopt;
    }
    const Text text = IsText(*target.value) ? ChooseText(target) : ChooseNumber(target);
    // A key that counts by being there has to be there even when it cannot say what is wanted.
    return text || MayBeAbsent(target) ? text : DefaultText(*target.value);
}

/// A number, or a name, that gives the wanted bytes, and 0 for the other bytes.
Text Assignment::ChooseNumber(const Target& target) const {
    if (DefaultServes(target) && !IsName(*target.value)) {
        return DefaultText(*target.value);
    }
    if (IsFree(target)) {
        return std::nullopt;
    }
    std::vector<std::byte> bytes(target.size);
    for (std::uint32_t i = 0; i < target.size; ++i) {
        const std::uint32_t at = target.offset + i;
        bytes[i] = IsWanted(at) ? image_[at] : std::byte{0};
    }
    return image::KeyText(*target.value, bytes);
}

/// The longest text that agrees with the wanted bytes. The bytes behind its terminator are those of
/// earlier values.
Text Assignment::ChooseText(const Target& target) const {
    std::string text;
    bool hasEnd = false;
    std::string ended;  // up to the last place so far where the text may end
    for (std::uint32_t i = 0; i < target.size; ++i) {
        const std::uint32_t at = target.offset + i;
        if (IsWanted(at) && image_[at] == std::byte{0}) {
            ended = text;
            hasEnd = true;
            break;
        }
        if (!IsWanted(at)) {
            ended = text;
            hasEnd = true;
        }
        text += IsWanted(at) ? std::to_integer<char>(image_[at]) : '_';
    }
    if (!hasEnd || !tree::Spelled(ended) ||
        (target.value->field->notes.emptyByQuotes && ended == "\"\"")) {
        return std::nullopt;
    }
    return ended;
}

void Assignment::Claim(const Target& target, const Text& text) {
    std::size_t size = target.size;
    if (IsText(*target.value)) {
        size = text ? std::min(StoredSize(*text), std::size_t{target.size}) : 0;
    } else if (IsName(*target.value) && !text) {
        size = 0;
    }
    for (std::size_t i = 0; i < size; ++i) {
        claimed_.set(target.offset + i);
    }
}

}  // namespace paramgen::decompile
