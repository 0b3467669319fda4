#include "diagnostics/suggestion.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace paramgen::diagnostics {
namespace {

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsWordCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}

/// The words of a name, in lower case.
std::vector<std::string> WordsOf(std::string_view name) {
    std::vector<std::string> words;
    bool isWithin = false;
    for (const char c : name) {
        const bool isWord = IsWordCharacter(Lower(c));
        if (isWord && !isWithin) {
            words.emplace_back();
        }
        if (isWord) {
            words.back() += Lower(c);
        }
        isWithin = isWord;
    }
    return words;
}

std::vector<std::string> SortedWords(std::string_view name) {
    std::vector<std::string> words = WordsOf(name);
    std::sort(words.begin(), words.end());
    return words;
}

/// The letters and digits of a name, in lower case.
std::string Condensed(std::string_view name) {
    std::string condensed;
    for (const std::string& word : WordsOf(name)) {
        condensed += word;
    }
    return condensed;
}

/// Whether the last words of a candidate are `condensed`.
bool EndsWith(std::string_view candidate, std::string_view condensed) {
    const std::vector<std::string> words = WordsOf(candidate);
    std::string end;
    for (auto word = words.rbegin(); word != words.rend() && end.size() < condensed.size();
         ++word) {
        end.insert(0, *word);
    }
    return end == condensed;
}

}  // namespace

std::size_t EditDistance(std::string_view a, std::string_view b, std::size_t most) {
    const std::size_t difference = a.size() > b.size() ? a.size() - b.size() : b.size() - a.size();
    if (difference > most) {
        return most + 1;
    }
    // Three rows of the table of distances between beginnings.
    std::vector<std::size_t> before(b.size() + 1);
    std::vector<std::size_t> last(b.size() + 1);
    std::vector<std::size_t> now(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) {
        now[j] = j;
    }
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::swap(before, last);
        std::swap(last, now);
        now[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const bool isSame = Lower(a[i - 1]) == Lower(b[j - 1]);
            now[j] = std::min({last[j] + 1, now[j - 1] + 1, last[j - 1] + (isSame ? 0U : 1U)});
            const bool isSwap = i > 1 && j > 1 && Lower(a[i - 1]) == Lower(b[j - 2]) &&
                                Lower(a[i - 2]) == Lower(b[j - 1]);
            if (isSwap) {
                now[j] = std::min(now[j], before[j - 2] + 1);
            }
        }
    }
    return std::min(now[b.size()], most + 1);
}

bool HaveSameWords(std::string_view a, std::string_view b) {
    const std::vector<std::string> words = SortedWords(a);
    return !words.empty() && words == SortedWords(b);
}

std::size_t Unlikeness(std::string_view name, std::string_view candidate) {
    const std::size_t longer = std::max(name.size(), candidate.size());
    const std::size_t most = std::max<std::size_t>(longer / 3, longer > 1 ? 1 : 0);
    const std::size_t distance = EditDistance(name, candidate, most);
    if (distance <= most) {
        return distance;
    }
    return HaveSameWords(name, candidate) ? most + 1 : kUnlike;
}

std::string Nearest(std::string_view name, std::span<const std::string> candidates) {
    std::size_t least = kUnlike;
    std::string nearest;
    for (const std::string& candidate : candidates) {
        const std::size_t unlikeness = Unlikeness(name, candidate);
        if (unlikeness < least) {
            least = unlikeness;
            nearest = candidate;
        }
    }
    return nearest;
}

std::string OnlyEnding(std::string_view name, std::span<const std::string> candidates) {
    const std::string condensed = Condensed(name);
    const auto ends = [&](const std::string& candidate) { return EndsWith(candidate, condensed); };
    const auto only = std::find_if(candidates.begin(), candidates.end(), ends);
    const bool isOnly = !condensed.empty() && only != candidates.end() &&
                        std::none_of(only + 1, candidates.end(), ends);
    return isOnly ? *only : "";
}

}  // namespace paramgen::diagnostics
