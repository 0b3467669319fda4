#include "check/reference_list.h"

#include "check/references.h"

namespace paramgen::check {
namespace {

constexpr char kCalibrated[] = "a calibration is for one media mode";
constexpr char kBurstKind[] = "what the product starts with is one of the mode's kinds of bursts";

layout::KeyName NameOf(const Given& given) {
    return {std::string(given.module), std::string(given.section), std::string(given.key)};
}

/// Collects the references of one product.
class Collector {
public:
    explicit Collector(const compile::Compilation& run) : references_(run) {}

    std::vector<Reference> Collect() {
        AddHandles();
        AddModes();
        AddMenus();
        AddBursts();
        AddLimits();
        return std::move(found_);
    }

private:
    void Add(const Given& from, const Given& to, const char* reason) {
        found_.push_back({.from = NameOf(from), .to = NameOf(to), .reason = reason});
    }

    void AddHandles() {
        for (const HandleRule& rule : HandleRules()) {
            for (const Given* given : references_.Find(rule.module, rule.section, rule.key)) {
                AddHandle(rule, *given);
            }
        }
    }

    void AddHandle(const HandleRule& rule, const Given& given) {
        const std::optional<std::int64_t> handle = References::NumberOf(given);
        if (!handle.has_value() || *handle == -1 || !references_.Counts(rule, given)) {
            return;
        }
        for (const Target* target : references_.TargetsOf(rule, given)) {
            if (target->isEnabled && target->handle == *handle) {
                Add(given, *target->given, rule.reason);
            }
        }
    }

    void AddServed(const Given& given, const std::vector<const Given*>& served,
                   const char* reason) {
        for (const Given* mode : served) {
            if (mode->text == given.text) {
                Add(given, *mode, reason);
            }
        }
    }

    void AddModes() {
        const auto served = references_.Find(kModeModules, "common", "mediamode");
        for (const ModeRule& rule : ModeRules()) {
            for (const Given* given : references_.Find(rule.module, rule.section, rule.key)) {
                AddServed(*given, served, rule.reason);
            }
        }
        for (const Given* given : references_.Find(kLensModules, "common", "mediamode")) {
            AddServed(*given, served, kCalibrated);
        }
    }

    /// The value of a menu that a key has.
    void AddOffered(const Given& given, const std::string& menu, const char* reason) {
        for (const Given* value : references_.Find(kMenuModule, menu.c_str(), "value*")) {
            if (IsSame(given, *value)) {
                Add(given, *value, reason);
                return;
            }
        }
    }

    void AddMenus() {
        for (const MenuRule& rule : MenuRules()) {
            for (const Given* given : references_.Find(rule.module, rule.section, rule.key)) {
                AddOffered(*given, rule.menu, rule.reason);
            }
        }
    }

    /// The kinds of bursts are offered for each media mode.
    void AddBursts() {
        const auto modes = references_.Find(kMenuModule, "cam.0.burst.mediamode", "value*");
        for (const Given* type :
             references_.Find("workmode_photo", "phototype.?.burst", "burst_type")) {
            const Given* mode = references_.Beside(*type, "mediamode");
            for (const Given* offered : modes) {
                if (mode != nullptr && offered->text == mode->text) {
                    AddOffered(*type, "cam.0.burst.type" + std::string(offered->key.substr(5)),
                               kBurstKind);
                }
            }
        }
    }

    void AddLimits() {
        for (const LimitRule& rule : LimitRules()) {
            for (const Given* low : references_.Find(rule.module, rule.section, rule.low)) {
                const Given* high = references_.Beside(*low, rule.high);
                if (high != nullptr) {
                    Add(*low, *high, rule.reason);
                }
            }
        }
    }

    References references_;
    std::vector<Reference> found_;
};

}  // namespace

std::vector<Reference> ReferencesOf(const compile::Compilation& run) {
    return Collector(run).Collect();
}

}  // namespace paramgen::check
