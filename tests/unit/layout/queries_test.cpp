// The keys that loaders query in real runs are exactly those that the layout says are read.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "confaccess/confaccess.h"
#include "confaccess/locked_module.h"
#include "confaccess/number.h"
#include "confaccess/watch.h"
#include "generator/image.h"
#include "generator/load.h"
#include "golden/random_product.h"
#include "layout/layout.h"
#include "log/console_log.h"
#include "support/product_tree.h"
#include "support/temp_dir.h"

namespace paramgen::layout {
namespace {

using testing::Health;
using testing::TempDir;

/// Records which keys a run queries, their values, and which modules exist.
class Notes : public Watcher {
public:
    Notes() { g_watcher = this; }
    ~Notes() override { g_watcher = nullptr; }

    bool KeepsConfigs() const noexcept override { return false; }
    std::optional<ReadResult> KnownText(const char*, paramgen::Text*) noexcept override {
        return std::nullopt;
    }
    void FileRead(const ModuleEntry&) noexcept override {}
    ModuleEntry* Module(std::string_view name, ModuleEntry* found) noexcept override {
        if (found != nullptr) {
            modules_.insert(std::string(name));
        }
        return found;
    }
    void Destination(const void*, std::size_t) noexcept override {}
    const char* Answer(const LockedModule& module, std::string_view key, const char* text,
                       const char* absent) noexcept override {
        const std::string name = std::string(module.module()) + "/" + std::string(key);
        asked_.insert(name);
        if (text != absent) {
            texts_[name] = text == nullptr ? "" : text;
        }
        return text;
    }

    bool HasModule(const std::string& module) const { return modules_.count(module) != 0; }
    const std::set<std::string>& Asked() const { return asked_; }

    /// The text of a key that was queried; null when it is absent.
    const std::string* TextOf(const std::string& name) const {
        const auto text = texts_.find(name);
        return text == texts_.end() ? nullptr : &text->second;
    }

private:
    std::set<std::string> modules_;
    std::set<std::string> asked_;
    std::map<std::string, std::string> texts_;
};

/// The keys that the layout expects a run to query.
class Expected {
public:
    explicit Expected(const Notes& notes) : notes_(notes) {
        for (const std::span<const Key> keys : {Keys(), SpilledKeys()}) {
            for (const Key& key : keys) {
                AddIfRead(key);
            }
        }
    }

    const std::set<std::string>& Names() const { return keys_; }

private:
    void AddIfRead(const Key& key) {
        for (const Value* value : key.values) {
            if (IsRead(*value, key.name.module)) {
                keys_.insert(Text(key.name));
                return;
            }
        }
    }

    bool IsRead(const Value& value, const std::string& module) {
        for (const Condition& condition : value.conditions) {
            if (!Holds(condition, value, module)) {
                return false;
            }
        }
        return true;
    }

    bool Holds(const Condition& condition, const Value& value, const std::string& module) {
        switch (condition.kind) {
            case ConditionKind::kCounted:
                return CountAt(condition.count) > condition.number;
            case ConditionKind::kLeading:
                for (const KeyView& key : condition.keys) {
                    if (notes_.TextOf(Text(key)) == nullptr) {
                        return false;
                    }
                }
                return true;
            case ConditionKind::kOptionalModule:
                return notes_.HasModule(condition.module);
            case ConditionKind::kSearchedModule:
                return Found(condition, value) == module;
        }
        return false;
    }

    /// The count as its key gives it: in the image, other values may have overwritten it.
    std::uint32_t CountAt(std::uint32_t offset) {
        const auto [count, isNew] = counts_.try_emplace(offset, 0);
        if (isNew) {
            const Value& value = *ValueAt(offset);
            const std::string* text = notes_.TextOf(Text({value.module, value.section, value.key}));
            count->second = static_cast<std::uint32_t>(
                text == nullptr ? value.Default() : ParseInteger(text->c_str(), 10));
        }
        return count->second;
    }

    /// The module that a search finds; empty when it finds none. The keys that the search queries
    /// are expected, too.
    const std::string& Found(const Condition& condition, const Value& value) {
        const auto [found, isNew] = found_.try_emplace(condition.wanted);
        if (!isNew) {
            return found->second;
        }
        std::int32_t wanted = 0;
        std::memcpy(&wanted, reinterpret_cast<const char*>(&g_image) + condition.wanted,
                    sizeof wanted);
        std::int32_t served = kMediaModeNone;
        for (const Name module : value.modules) {
            if (!notes_.HasModule(module)) {
                continue;
            }
            const std::string key = module + "/" + condition.search->key;
            keys_.insert(key);
            const std::string* name = notes_.TextOf(key);
            if (name != nullptr) {
                served = NumberOf(kMediaModeNames, *name).value_or(-1);
            }
            if (served == wanted) {
                found->second = module;
                break;
            }
        }
        return found->second;
    }

    const Notes& notes_;
    std::set<std::string> keys_;
    std::map<std::uint32_t, std::uint32_t> counts_;
    std::map<std::uint32_t, std::string> found_;
};

std::vector<std::string> Without(const std::set<std::string>& all,
                                 const std::set<std::string>& known) {
    std::vector<std::string> rest;
    for (const std::string& name : all) {
        if (known.count(name) == 0) {
            rest.push_back(name);
        }
    }
    return rest;
}

/// Loads the product in `directory` and compares. Returns how many keys were queried.
std::size_t Compare(const std::filesystem::path& directory, Status status = kOk) {
    const testing::WorkingDirectory here(directory);
    ConsoleLogSetup(0, 0, kConsoleDebug);
    BuildFrame(&g_image);
    Notes notes;
    EXPECT_EQ(PDT_INIPARAM_LoadCfg(), status);
    if (status != kOk) {
        EXPECT_EQ(ZV_CONFACCESS_Deinit("productini"), kOk);
        return notes.Asked().size();
    }
    const Expected expected(notes);
    EXPECT_THAT(Without(notes.Asked(), expected.Names()), ::testing::IsEmpty()) << "not known";
    EXPECT_THAT(Without(expected.Names(), notes.Asked()), ::testing::IsEmpty()) << "not asked for";
    return notes.Asked().size();
}

std::uint64_t FromEnvironment(const char* name, std::uint64_t otherwise) {
    const char* text = std::getenv(name);
    return text == nullptr ? otherwise : std::strtoull(text, nullptr, 10);
}

TEST(Queries, OfTheExampleAreThoseOfTheLayout) {
    EXPECT_GT(Compare(PARAMGEN_EXAMPLES "/dashcam"), 1000U);
}

// PARAMGEN_TREES=2000 takes a minute or two.
TEST(Queries, OfRandomProductsAreThoseOfTheLayout) {
    const std::vector<testing::independent::AskedKey> keys = testing::AllKeys();
    const std::uint64_t first = FromEnvironment("PARAMGEN_SEED", 20240611);
    const std::uint64_t count = FromEnvironment("PARAMGEN_TREES", 200);
    std::printf("PARAMGEN_SEED=%llu PARAMGEN_TREES=%llu\n", static_cast<unsigned long long>(first),
                static_cast<unsigned long long>(count));
    for (std::uint64_t number = first; number < first + count; ++number) {
        const TempDir directory;
        WriteRandomProduct(directory, keys, number, Health::kGood);
        Compare(directory.path());
        ASSERT_FALSE(HasFailure()) << "again: PARAMGEN_TREES=1 PARAMGEN_SEED=" << number;
    }
}

/// Sets `count` to `number`, and makes the counts of the arrays around it large enough.
void SetCount(const Value& count, std::uint32_t number, testing::ProductTree* tree) {
    tree->Set(count.module, count.section + ":" + count.key,
              std::to_string(static_cast<std::int32_t>(number)));
    for (const Condition& outer : count.conditions) {
        if (outer.kind == ConditionKind::kCounted) {
            const Value& outerCount = *ValueAt(outer.count);
            tree->Set(outerCount.module, outerCount.section + ":" + outerCount.key,
                      std::to_string(outer.number + 1));
        }
    }
}

/// The condition of the elements of an array, one for each row that is a count.
struct Counted {
    const Value* count;
    Condition condition;
};

std::vector<Counted> AllCounted() {
    std::vector<Counted> all;
    std::set<std::pair<const Field*, std::uint32_t>> known;
    for (const Value& value : Values()) {
        for (const Condition& condition : value.conditions) {
            if (condition.kind == ConditionKind::kCounted) {
                const Value* count = ValueAt(condition.count);
                const auto beyond = static_cast<std::uint32_t>(condition.beyond);
                if (known.emplace(count->field, beyond * 1000 + condition.places).second) {
                    all.push_back({count, condition});
                }
            }
        }
    }
    return all;
}

TEST(Queries, OfCountsAroundEachLimitAreThoseOfTheLayout) {
    const std::vector<Counted> all = AllCounted();
    EXPECT_EQ(all.size(), 12U);
    for (const auto& [count, condition] : all) {
        const std::uint32_t places = condition.places;
        const std::uint32_t largest = condition.largest;
        for (const std::uint32_t number : {0U, 1U, places - 1, places, places + 1, largest - 1,
                                           largest, largest + 1, UINT32_MAX}) {
            testing::ProductTree tree;
            for (const std::string& module : Modules()) {
                tree.AddModule(module);
            }
            SetCount(*count, number, &tree);
            const TempDir directory;
            tree.WriteTo(directory);
            Compare(directory.path(), number > largest ? kFailed : kOk);
            ASSERT_FALSE(HasFailure()) << count->Member() << " = " << number;
        }
    }
}

}  // namespace
}  // namespace paramgen::layout
