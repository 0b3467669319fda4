#include "decompile/plan.h"

#include <algorithm>

#include "decompile/image_facts.h"
#include "image/key_text.h"

namespace paramgen::decompile {
namespace {

using image::Image;
using image::NumberAt;

/// The module that a value needs to be anything but zero: the one of its key or, for what is worked
/// out or comes from one of several modules, the optional one that it is read with. Empty: none.
std::string ModuleOf(const layout::Value& value) {
    if (value.modules.size() == 1 && (value.HasKey() || value.Source() == FieldSource::kNobody)) {
        return value.modules.front();
    }
    if (value.Source() == FieldSource::kNobody) {
        return "";
    }
    for (const layout::Condition& condition : value.conditions) {
        if (condition.kind == layout::ConditionKind::kOptionalModule) {
            return condition.module;
        }
    }
    return "";
}

/// The modules that have to be there because their values are not all zero.
std::set<std::string> ModulesInUse(const Image& image) {
    std::set<std::string> used;
    for (const layout::Value& value : layout::Values()) {
        if (!image::IsZero(image::BytesOf(image, value))) {
            used.insert(ModuleOf(value));
        }
    }
    used.erase("");
    return used;
}

/// The media modes whose lens values are not all zero, by the order of their first ones, among
/// those that modules in `used` have.
struct LensNeed {
    std::vector<std::string> modes;
    std::vector<std::string> modules;  ///< those that can serve one
};

LensNeed FindLensNeed(const Image& image) {
    LensNeed need;
    for (const layout::Value& value : layout::Values()) {
        if (value.modules.size() < 2) {
            continue;
        }
        need.modules.assign(value.modules.begin(), value.modules.end());
        if (image::IsZero(image::BytesOf(image, value))) {
            continue;
        }
        const layout::Value& mode = *layout::ValueAt(value.conditions.back().wanted);
        const std::string name =
            image::KeyText(mode, image::BytesOf(image, mode)).value_or(std::string());
        if (!name.empty() &&
            std::find(need.modes.begin(), need.modes.end(), name) == need.modes.end()) {
            need.modes.push_back(name);
        }
    }
    return need;
}

/// Gives each mode a module: the first that serves it already, or one that serves none of them. Of
/// several that serve a mode only the first is found.
void AssignLensModules(const LensNeed& need, Decisions* decisions) {
    std::vector<std::string> open;
    for (const std::string& mode : need.modes) {
        const auto serves = [&](const auto& served) { return served.second == mode; };
        if (std::none_of(decisions->servedModes.begin(), decisions->servedModes.end(), serves)) {
            open.push_back(mode);
        }
    }
    std::set<std::string> taken;
    for (const std::string& module : need.modules) {
        const auto served = decisions->servedModes.find(module);
        const bool isFree =
            served == decisions->servedModes.end() || !taken.insert(served->second).second ||
            std::find(need.modes.begin(), need.modes.end(), served->second) == need.modes.end();
        if (!open.empty() && isFree) {
            decisions->modules.insert(module);
            decisions->servedModes[module] = open.front();
            open.erase(open.begin());
        }
    }
}

/// Answers with what the image holds.
class ImageReader : public Product {
public:
    ImageReader(const Image& image, const Decisions& decisions)
        : Product(decisions.modules), image_(image), decisions_(decisions) {}

private:
    std::optional<std::string> TextOf(KeyId id, std::string_view module,
                                      const std::optional<compile::Place>& place) override {
        // A count that is overwritten is not what stopped a run: it is not the one in the image.
        const bool isDecided =
            place && decisions_.counts.contains(place->offset) && IsCount(id, place->offset);
        if (!isDecided && decisions_.barred.contains(id)) {
            return std::nullopt;
        }
        return place ? TextAt(id, place->offset) : TextWithoutPlace(module, id);
    }

    /// Of a key that only has to be there, and of the media mode of a lens module.
    std::optional<std::string> TextWithoutPlace(std::string_view module, KeyId id) const {
        const auto leading = LeadingKeys().find(id);
        if (leading != LeadingKeys().end()) {
            const bool isCounted =
                NumberAt<std::uint32_t>(image_, leading->second.count) > leading->second.number;
            return isCounted ? std::optional<std::string>("0") : std::nullopt;
        }
        const auto served = decisions_.servedModes.find(std::string(module));
        return served == decisions_.servedModes.end() ? std::nullopt
                                                      : std::optional(served->second);
    }

    std::optional<std::string> TextAt(KeyId id, std::uint32_t offset) const {
        const auto count = decisions_.counts.find(offset);
        if (count != decisions_.counts.end() && IsCount(id, offset)) {
            return std::to_string(count->second);
        }
        const layout::Value* value = ValueOf(id, offset);
        return value == nullptr
                   ? std::nullopt
                   : image::KeyText(*value, std::span(image_).subspan(offset, value->size));
    }

    const Image& image_;
    const Decisions& decisions_;
};

}  // namespace

Decisions DecideModules(const Image& image, const std::set<std::string>& kept,
                        const std::map<std::string, std::string>& keptModes) {
    Decisions decisions;
    decisions.modules.insert(NeededModules().begin(), NeededModules().end());
    decisions.modules.insert(kept.begin(), kept.end());
    for (const auto& [module, mode] : keptModes) {
        if (kept.count(module) != 0) {
            decisions.servedModes[module] = mode;
        }
    }
    for (const std::string& module : ModulesInUse(image)) {
        decisions.modules.insert(module);
    }
    AssignLensModules(FindLensNeed(image), &decisions);
    return decisions;
}

Asked AskedKeys(const Image& image, Decisions* decisions) {
    while (true) {
        ImageReader reader(image, *decisions);
        compile::Compilation result = compile::CompileImagined(&reader, true);
        const bool isNew =
            result.stop && result.stop->at == compile::Stop::At::kKey &&
            decisions->barred.insert(IdOf(result.stop->module, result.stop->key)).second;
        if (!isNew) {
            return {.answers = std::move(result.answers), .ids = reader.TakeIds()};
        }
    }
}

}  // namespace paramgen::decompile
