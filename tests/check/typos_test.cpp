// One-letter typos in the keys of a good product: each is reported at its line, and the first
// suggestion is nearly always the right key. PARAMGEN_TYPOS is the number of typos.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "check/check.h"
#include "diagnostics/places.h"
#include "diagnostics/report.h"
#include "golden/random_product.h"
#include "golden/random_values.h"
#include "layout/layout.h"
#include "support/temp_dir.h"
#include "tree/product.h"

namespace paramgen::check {
namespace {

using diagnostics::Finding;
using diagnostics::RuleId;
using paramgen::testing::Random;
using paramgen::testing::TempDir;

/// A key of a module's file.
struct Place {
    std::string module;
    std::string path;  ///< from the product's directory
    std::uint32_t line;
    std::uint32_t offset;  ///< of its name, in bytes
    std::string section;
    std::string key;
};

/// The lines, by file, that something is found at before there is a typo.
using Lines = std::set<std::pair<std::string, std::uint32_t>>;

Lines LinesWithFindings(const std::string& directory) {
    Lines lines;
    for (const Finding& finding : Check(directory, {}).findings) {
        lines.emplace(finding.place.path, finding.place.line);
        for (const diagnostics::Note& note : finding.notes) {
            lines.emplace(note.place.path, note.place.line);
        }
    }
    return lines;
}

bool IsKey(const std::string& module, const std::string& section, const std::string& key) {
    return layout::FindKey(module, section, key) != nullptr;
}

/// The keys of one module that a table knows and nothing is to be said about.
void AddPlaces(const tree::Module& module, const Lines& spoilt, std::vector<Place>* places) {
    const tree::IniFile& ini = *module.file->ini;
    const std::string path = diagnostics::PlaceOf(*module.file).path;
    for (const tree::Line& line : ini.lines()) {
        const Place place = {.module = module.name,
                             .path = path,
                             .line = line.number,
                             .offset = line.name.begin,
                             .section = std::string(ini.SectionOf(line)),
                             .key = std::string(ini.TextOf(line.name))};
        // In a file none of whose keys is read, there is one finding for all of them.
        const bool isFine = line.kind == tree::LineKind::kValue && !spoilt.contains({path, 0}) &&
                            !spoilt.contains({path, line.number}) &&
                            IsKey(place.module, place.section, place.key);
        if (isFine) {
            places->push_back(place);
        }
    }
}

std::vector<Place> PlacesOf(const std::string& directory) {
    const Lines spoilt = LinesWithFindings(directory);
    std::vector<Place> places;
    const tree::Product product(directory);
    for (const tree::Module& module : product.modules()) {
        const bool isInTree =
            module.fate == tree::ModuleFate::kRead && module.file->inTree[0] != '/';
        if (isInTree && !module.file->isDirectory) {
            AddPlaces(module, spoilt, &places);
        }
    }
    return places;
}

/// A name with one letter dropped, doubled, replaced, or swapped with the one before it.
std::string Mistyped(Random& random, std::string name) {
    const std::size_t at = random.Below(name.size());
    switch (random.Below(4)) {
        case 0:
            name.erase(at, 1);
            break;
        case 1:
            name.insert(at, 1, name[at]);
            break;
        case 2:
            name[at] = static_cast<char>('a' + random.Below(26));
            break;
        default:
            std::swap(name[at], name[at == 0 ? 0 : at - 1]);
            break;
    }
    return name;
}

/// Whether the typo is reported at its line, and whether the right key is the first suggestion.
struct Outcome {
    bool isReported = false;
    bool isRight = false;
    std::string report;  ///< everything that is found
};

Outcome OutcomeOf(const Place& place, const std::string& directory) {
    Outcome outcome;
    const std::vector<Finding> findings = Check(directory, {}).findings;
    outcome.report = diagnostics::TextReport(findings, false);
    for (const Finding& finding : findings) {
        const bool isHere = finding.place.line == place.line && finding.place.path == place.path;
        if (isHere && (finding.id == RuleId::kUnknownKey || finding.id == RuleId::kUnreadKey)) {
            outcome.isReported = true;
            outcome.isRight = tree::LowerCase(finding.suggestion) == tree::LowerCase(place.key);
        }
    }
    return outcome;
}

/// How many typos were tried, and for how many the right key came first.
struct Tally {
    std::size_t tried = 0;
    std::size_t right = 0;
};

/// Makes one typo in a product, and takes it back. Returns false when it made another known key.
bool TryTypo(Random& random, const TempDir& directory, const Place& place, Tally* tally) {
    const std::string typo = Mistyped(random, place.key);
    const bool isSame = tree::LowerCase(typo) == tree::LowerCase(place.key);
    if (typo.empty() || isSame || IsKey(place.module, place.section, typo)) {
        return false;
    }
    const std::string bytes = paramgen::testing::ReadFile(directory.path() / place.path);
    std::string spoilt = bytes;
    spoilt.replace(place.offset, place.key.size(), typo);
    directory.Write(place.path, spoilt);
    const Outcome outcome = OutcomeOf(place, directory.path().string());
    directory.Write(place.path, bytes);
    EXPECT_TRUE(outcome.isReported) << place.path << ":" << place.line << ": " << typo << "\n"
                                    << outcome.report;
    if (!outcome.isRight) {
        std::printf("%s:%u: '%s' for '%s' in [%s]\n", place.path.c_str(), place.line, typo.c_str(),
                    place.key.c_str(), place.section.c_str());
    }
    ++tally->tried;
    tally->right += outcome.isRight ? 1 : 0;
    return true;
}

/// Makes `most` typos in a product.
void TryTypos(Random& random, const TempDir& directory, std::size_t most, Tally* tally) {
    const std::vector<Place> places = PlacesOf(directory.path().string());
    for (std::size_t tried = 0; tried < most && !places.empty();) {
        const Place& place = places[random.Below(places.size())];
        tried += TryTypo(random, directory, place, tally) ? 1 : 0;
    }
}

void ExpectRight(const Tally& tally) {
    std::printf("%zu of %zu right\n", tally.right, tally.tried);
    EXPECT_GE(100 * tally.right, 97 * tally.tried);
}

std::uint64_t FromEnvironment(const char* name, std::uint64_t otherwise) {
    const char* text = std::getenv(name);
    return text == nullptr ? otherwise : std::strtoull(text, nullptr, 10);
}

TEST(Typos, InTheExampleAreReportedAndTheRightKeyIsSuggested) {
    const TempDir directory;
    std::filesystem::copy(std::string(PARAMGEN_EXAMPLES) + "/dashcam", directory.path(),
                          std::filesystem::copy_options::recursive);
    Random random(20240611);
    Tally tally;
    TryTypos(random, directory, FromEnvironment("PARAMGEN_TYPOS", 20), &tally);
    ExpectRight(tally);
}

TEST(Typos, InRandomProductsAreReportedAndTheRightKeyIsSuggested) {
    constexpr std::size_t kOfOneProduct = 5;
    const std::uint64_t first = FromEnvironment("PARAMGEN_SEED", 20240611);
    const std::uint64_t most = FromEnvironment("PARAMGEN_TYPOS", 20);
    const auto keys = paramgen::testing::AllKeys();
    Random random(first);
    Tally tally;
    for (std::uint64_t number = first; tally.tried < most; ++number) {
        SCOPED_TRACE(number);
        const TempDir directory;
        WriteRandomProduct(directory, keys, number, paramgen::testing::Health::kGood);
        TryTypos(random, directory, std::min<std::size_t>(kOfOneProduct, most - tally.tried),
                 &tally);
    }
    ExpectRight(tally);
}

}  // namespace
}  // namespace paramgen::check
