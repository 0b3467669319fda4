/// Gives keys the values that make an image, from the last one stored to the first: what a later
/// value overwrites does not matter.
#pragma once

#include <bitset>
#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "decompile/solver.h"
#include "layout/value.h"

namespace paramgen::decompile {

/// The values of keys, and which counts others overwrite.
class Assignment {
public:
    Assignment(const image::Image& image, const Wish& wish,
               const std::map<std::uint32_t, std::uint32_t>& counts, const std::set<KeyId>& barred);

    /// Assigns a value to every key of `asked`.
    void Assign(const Asked& asked);

    const KeyTexts& texts() const { return texts_; }

    /// Offsets of counts that later values overwrite, wholly or in part, in the order of a run.
    const std::vector<std::uint32_t>& overwrittenCounts() const { return overwritten_; }

private:
    /// A key on its way to its place.
    struct Target {
        KeyId id;
        const layout::Value* value;
        std::uint32_t offset;
        std::uint32_t size;
    };

    static constexpr std::size_t kSize = std::tuple_size_v<image::Image>;

    void NotePresence(KeyId id, const compile::Answer& answer);
    void AssignOne(KeyId id, const compile::Answer& answer);
    std::optional<std::string> Choose(const Target& target) const;
    std::optional<std::string> ChooseText(const Target& target) const;
    std::optional<std::string> ChooseNumber(const Target& target) const;
    bool KeptServes(const Target& target) const;
    bool CanBeMade(const Target& target) const;
    bool IsWanted(std::uint32_t offset) const { return !claimed_[offset]; }
    bool IsFree(const Target& target) const;
    bool IsWhole(const Target& target) const;
    bool DefaultServes(const Target& target) const;
    bool MayBeAbsent(const Target& target) const;
    void Claim(const Target& target, const std::optional<std::string>& text);

    const image::Image& image_;
    const Wish& wish_;
    const std::map<std::uint32_t, std::uint32_t>& counts_;
    const std::set<KeyId>& barred_;
    std::unordered_map<KeyId, bool> isPresent_;  ///< of keys that count by being there
    std::bitset<kSize> claimed_;                 ///< bytes that a later value stores
    std::vector<std::uint16_t> writers_;  ///< values still to be assigned that may store a byte
    std::unordered_map<KeyId, std::size_t> open_;  ///< places of a key still to be assigned
    KeyTexts texts_;
    std::unordered_set<KeyId> absent_;
    std::vector<std::uint32_t> overwritten_;
    std::map<std::pair<KeyId, std::uint32_t>, const compile::Answer*> keptAnswers_;
};

}  // namespace paramgen::decompile
