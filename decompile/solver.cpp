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
    const auto isNoLonger = [&](const auto& count) {
        return std::find(overwritten.begin(), overwritten.end(), count.first) == overwritten.end();
    };
    const auto count = std::find_if(decisions->counts.begin(), decisions->counts.end(), isNoLonger);
    if (count != decisions->counts.end()) {
        decisions->counts.erase(count);
        return true;
    }
    const auto open = std::find_if(overwritten.rbegin(), overwritten.rend(), [&](std::uint32_t at) {
        return !decisions->counts.contains(at);
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

/// The smallest number from `count` on that has `byte` at `place`, from the lowest byte on.
std::uint64_t WithByte(std::uint64_t count, std::uint32_t place, std::byte byte) {
    const std::uint64_t unit = std::uint64_t{1} << (8 * place);
    const std::uint64_t above = count / (256 * unit) * (256 * unit);
    const std::uint64_t wanted = std::to_integer<std::uint64_t>(byte) * unit;
    const std::uint64_t current = (count - above) / unit * unit;
    if (wanted == current) {
        return count;
    }
    return above + wanted + (wanted < current ? 256 * unit : 0);
}

/// The smallest number from `count` on that reaches an element with a byte at `offset`, or 0.
std::uint64_t Reaching(const std::vector<CountedElement>& elements, std::uint32_t offset,
                       std::uint32_t count) {
    for (const CountedElement& element : elements) {
        if (element.offset <= offset && offset < element.offset + element.size &&
            element.number >= count) {
            return std::uint64_t{element.number} + 1;
        }
    }
    return 0;
}

/// Increases a count that is overwritten, so that its elements reach a lost byte, or that a lost
/// byte of its own is right: it may be overwritten in part. Returns whether there is such a count.
bool GrowCount(const image::Image& image, std::uint32_t lost, Decisions* decisions) {
    for (auto& [at, count] : decisions->counts) {
        const std::vector<CountedElement>& elements = CountedElements().at(at);
        const bool isOwn = at <= lost && lost < at + sizeof count;
        const std::uint64_t number =
            isOwn ? WithByte(count, lost - at, image[lost]) : Reaching(elements, lost, count);
        const bool isPossible =
            std::any_of(elements.begin(), elements.end(), [&](const CountedElement& element) {
                return element.number + std::uint64_t{1} >= number;
            });
        if (number > count && isPossible) {
            count = static_cast<std::uint32_t>(number);
            return true;
        }
    }
    return false;
}

/// Tries to find less that is lost by letting counts that are overwritten reach further.
void Improve(const image::Image& image, const Wish& wish, Decisions decisions, Solution* best) {
    for (int round = 0; round < kRoundsMax && !best->lost.empty(); ++round) {
        const bool grown =
            std::any_of(best->lost.rbegin(), best->lost.rend(),
                        [&](std::uint32_t lost) { return GrowCount(image, lost, &decisions); });
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
