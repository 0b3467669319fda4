/// A dictionary for tests.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "confaccess/dictionary.h"

namespace paramgen::testing {

/// A dictionary that is built from lines.
class DictionaryTest : public ::testing::Test {
protected:
    /// `Section` and `Value` add lines; `Value` begins its section first if needed. `Fill` then
    /// builds the dictionary.
    void Section(const std::string& section) {
        lines_.push_back({.name{section}, .value{}, .isSection = true});
        section_ = section;
    }
    void Value(const std::string& section, const std::string& name, const std::string& value) {
        if (section != section_) {
            Section(section);
        }
        lines_.push_back({.name{name}, .value{value}, .isSection = false});
    }

    void Fill() {
        std::string text;
        for (const Line& line : lines_) {
            text += line.name + line.value + "\n";
        }
        ASSERT_TRUE(dictionary_.Create(text, &arena_));
        for (const Line& line : lines_) {
            if (line.isSection) {
                dictionary_.AddSection(line.name);
            } else {
                dictionary_.AddValue(line.name, line.value);
            }
        }
        ASSERT_TRUE(dictionary_.Finish(&arena_));
    }

    const char* Get(std::string_view key, const char* defaultValue) const {
        return dictionary_.FindText(key, defaultValue);
    }

    std::uint32_t Count() const { return dictionary_.Count(); }

    /// Builds a dictionary with these names in the section "". Returns how many slots are probed to
    /// find each of them once.
    std::uint64_t ProbesForAll(const std::vector<std::string>& names) {
        for (const std::string& name : names) {
            Value("", name, "1");
        }
        Fill();
        std::uint64_t probes = 0;
        for (const std::string& name : names) {
            EXPECT_STREQ(Get(":" + name, nullptr), "1") << name;
            probes += dictionary_.ProbesFor(":" + name);
        }
        EXPECT_EQ(Count(), names.size());
        return probes;
    }

private:
    struct Line {
        std::string name;
        std::string value;
        bool isSection;
    };

    std::vector<Line> lines_;
    std::string section_;
    Arena arena_;
    Dictionary dictionary_;
};

}  // namespace paramgen::testing
