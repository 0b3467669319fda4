#include "decompile/solver.h"

#include <algorithm>

#include "decompile/assignment.h"
#include "decompile/image_facts.h"
#include "decompile/plan.h"

namespace paramgen::decompile {
namespace {

/// More rounds than any product needs: there are fewer counts.
constexpr int kRoundsMax = 200;

/// Decides about a count that later values overwrite, or no longer overwrite. Returns whether there
/// was one: other keys may then be queried.
bool DecideCount(const std::vector<std::uint32_t>& overwritten, Decisions* decisions) {
    for (auto count = decisions->counts.begin(); count != decisions->counts.end(); ++count) {
        if (std::find(overwritten.begin(), overwritten.end(), count->first) == overwritten.end()) {
            decisions->counts.erase(count);
            return true;
        }
    }
    const auto open = std::find_if(overwritten.rbegin(), overwritten.rend(), [&](std::uint32_t at) {
        return decisions->counts.count(at) == 0;
    });
    if (open == overwritten.rend()) {
        return false;
    }
    decisions->counts[*open] = 0;
    return true;
}

/// Finds keys for what has been decided, and decides about counts on the way.
Solution SolveCounts(const image::Image& image, const Wish& wish, Decisions* decisions) {
    Solution solution;
    for (int round = 0; round < kRoundsMax; ++round) {
        solution.asked = AskedKeys(image, decisions);
        Assignment assignment(image, wish, decisions->counts, decisions->barred);
        assignment.Assign(solution.asked);
        solution.keys.modules = decisions->modules;
        solution.keys.texts = assignment.texts();
        if (!DecideCount(assignment.overwrittenCounts(), decisions)) {
            break;
        }
    }
    return solution;
}

/// A product that has been found.
class FoundProduct : public Product {
public:
    explicit FoundProduct(const Keys& keys) : Product(keys.modules), texts_(keys.texts) {}

private:
    std::optional<std::string> TextOf(KeyId id, std::string_view,
                                      const std::optional<compile::Place>&) override {
        const auto found = texts_.find(id);
        return found == texts_.end() ? std::nullopt : std::optional(found->second);
    }

    const KeyTexts& texts_;
};

/// Runs the loaders on what has been found.
void Prove(const image::Image& image, Solution* solution) {
    FoundProduct product(solution->keys);
    compile::Compilation result = compile::CompileImagined(&product, true);
    solution->image = result.image;
    solution->asked = {.answers = std::move(result.answers), .ids = product.TakeIds()};
    solution->lost.clear();
    for (std::uint32_t at = 0; at < image.size(); ++at) {
        if (solution->image[at] != image[at]) {
            solution->lost.push_back(at);
        }
    }
}

/// Increases a count that is overwritten anyway, so that its elements reach a lost byte. Returns
/// whether there is such a count.
bool GrowCount(std::uint32_t lost, Decisions* decisions) {
    for (auto& [at, count] : decisions->counts) {
        for (const CountedElement& element : CountedElements().at(at)) {
            if (element.offset <= lost && lost < element.offset + element.size &&
                element.number >= count) {
                count = element.number + 1;
                return true;
            }
        }
    }
    return false;
}

/// Tries to find less that is lost by letting counts that are overwritten reach further.
void Improve(const image::Image& image, const Wish& wish, Decisions decisions, Solution* best) {
    for (int round = 0; round < kRoundsMax && !best->lost.empty(); ++round) {
        const bool grown =
            std::any_of(best->lost.rbegin(), best->lost.rend(),
                        [&](std::uint32_t lost) { return GrowCount(lost, &decisions); });
        if (!grown) {
            return;
        }
        Solution solution = SolveCounts(image, wish, &decisions);
        Prove(image, &solution);
        if (solution.lost.size() < best->lost.size()) {
            *best = std::move(solution);
        }
    }
}

/// Finds keys with these modules, and others that the image needs.
Solution SolveWith(const image::Image& image, const Wish& wish,
                   const std::set<std::string>& modules,
                   const std::map<std::string, std::string>& servedModes) {
    Decisions decisions = DecideModules(image, modules, servedModes);
    Solution solution = SolveCounts(image, wish, &decisions);
    Prove(image, &solution);
    Improve(image, wish, std::move(decisions), &solution);
    return solution;
}

/// Tries to find less that is lost without modules that are only there to be kept: a media mode's
/// module that is there has a calibration, with what that is asked for. Those that are not in the
/// way are kept.
void LeaveOut(const image::Image& image, const Wish& wish, Solution* best) {
    const Kept& kept = *wish.kept;
    std::set<std::string> modules;
    Solution least = SolveWith(image, wish, modules, {});
    if (least.lost.size() >= best->lost.size()) {
        return;
    }
    for (const std::string& module : kept.modules) {
        modules.insert(module);
        Solution solution = SolveWith(image, wish, modules, kept.servedModes);
        if (solution.lost.size() > least.lost.size()) {
            modules.erase(module);
        } else {
            least = std::move(solution);
        }
    }
    *best = std::move(least);
}

}  // namespace

Solution Solve(const image::Image& image, const Wish& wish) {
    if (wish.kept == nullptr) {
        return SolveWith(image, wish, {}, {});
    }
    Solution solution = SolveWith(image, wish, wish.kept->modules, wish.kept->servedModes);
    if (!solution.lost.empty()) {
        LeaveOut(image, wish, &solution);
    }
    return solution;
}

}  // namespace paramgen::decompile
