// One-letter typos in the keys of a good product: each is reported at its line, and the first
// suggestion is nearly always the right key. PARAMGEN_TYPOS is the number of typos.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "check/check.h"
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
    std::string path;
    std::uint32_t line;
    std::uint32_t offset;  ///< of its name, in bytes from the file's start
    std::string section;
    std::string key;
};

std::vector<Place> PlacesOf(const std::string& directory) {
    std::vector<Place> places;
    const tree::Product product(directory);
    for (const tree::Module& module : product.modules()) {
        const tree::IniFile& ini = *module.file->ini;
        for (const tree::Line& line : ini.lines()) {
            if (line.kind == tree::LineKind::kValue) {
                places.push_back({.module = module.name,
                                  .path = module.file->path,
                                  .line = line.number,
                                  .offset = line.name.begin,
                                  .section = std::string(ini.SectionOf(line)),
                                  .key = std::string(ini.TextOf(line.name))});
            }
        }
    }
    return places;
}

/// A name with one letter dropped, doubled, replaced, or swapped with the next one.
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
            std::swap(name[at], name[(at + 1) % name.size()]);
            break;
    }
    return name;
}

bool IsKey(const std::string& module, const std::string& section, const std::string& key) {
    return layout::FindKey(module, section, key) != nullptr;
}

/// Whether the typo is reported at its line, and whether the right key is the first suggestion.
struct Outcome {
    bool isReported = false;
    bool isRight = false;
};

Outcome OutcomeOf(const Place& place, const std::string& directory) {
    Outcome outcome;
    for (const Finding& finding : Check(directory, {}).findings) {
        const bool isHere = finding.place.line == place.line &&
                            directory + "/" + place.path.substr(2) == finding.place.file;
        if (isHere && (finding.id == RuleId::kUnknownKey || finding.id == RuleId::kUnreadKey)) {
            outcome.isReported = true;
            outcome.isRight = tree::LowerCase(finding.suggestion) == tree::LowerCase(place.key);
        }
    }
    return outcome;
}

TEST(Typos, AreReportedAndTheRightKeyIsSuggested) {
    const char* wanted = std::getenv("PARAMGEN_TYPOS");
    const std::size_t most = wanted == nullptr ? 20 : std::strtoul(wanted, nullptr, 10);
    const TempDir directory;
    std::filesystem::copy(std::string(PARAMGEN_EXAMPLES) + "/dashcam", directory.path(),
                          std::filesystem::copy_options::recursive);
    const std::string root = directory.path().string();
    std::vector<Place> places = PlacesOf(root);
    std::erase_if(places, [](const Place& place) { return place.path[0] != '.'; });
    Random random(20240611);
    std::size_t tried = 0;
    std::size_t right = 0;
    while (tried < most) {
        const Place& place = places[random.Below(places.size())];
        const std::string typo = Mistyped(random, place.key);
        if (typo.empty() || IsKey(place.module, place.section, typo)) {
            continue;
        }
        const std::filesystem::path file = directory.path() / place.path;
        const std::string bytes = paramgen::testing::ReadFile(file);
        std::string spoilt = bytes;
        spoilt.replace(place.offset, place.key.size(), typo);
        directory.Write(place.path, spoilt);
        const Outcome outcome = OutcomeOf(place, root);
        directory.Write(place.path, bytes);
        EXPECT_TRUE(outcome.isReported) << place.path << ":" << place.line << ": " << typo;
        if (!outcome.isRight) {
            std::printf("%s:%u: '%s' for '%s'\n", place.path.c_str(), place.line, typo.c_str(),
                        place.key.c_str());
        }
        ++tried;
        right += outcome.isRight ? 1 : 0;
    }
    std::printf("%zu of %zu right\n", right, tried);
    EXPECT_GE(100 * right, 97 * tried);
}

}  // namespace
}  // namespace paramgen::check
