/// Changes of the small product, and what check finds in it afterwards.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "check/check.h"
#include "support/temp_dir.h"
#include "unit/check/small_product.h"

namespace paramgen::check::testing {

using paramgen::testing::TempDir;

using Change = std::function<void(Files& files)>;

inline Change Nothing() {
    return [](Files&) {};
}

inline Change Set(const std::string& file, const std::string& text) {
    return [=](Files& files) { files[file] = text; };
}

inline Change Append(const std::string& file, const std::string& text) {
    return [=](Files& files) { files[file] += text; };
}

inline Change Remove(const std::string& file) {
    return [=](Files& files) { files.erase(file); };
}

inline Change Replace(const std::string& file, const std::string& from, const std::string& to) {
    return [=](Files& files) {
        const std::size_t at = files[file].find(from);
        ASSERT_NE(at, std::string::npos) << from;
        files[file].replace(at, from.size(), to);
    };
}

inline Change Add(const std::string& module, const std::string& text) {
    return [=](Files& files) { AddModule(module, text, &files); };
}

inline Change Both(const Change& first, const Change& second) {
    return [=](Files& files) {
        first(files);
        second(files);
    };
}

/// Checks the small product with a change, in `directory`. `enable` is an id to enable, or empty.
inline Verdict CheckOf(const Change& change, const TempDir& directory, const char* enable) {
    Files files = SmallProduct();
    change(files);
    Write(files, directory);
    Choice choice;
    if (*enable != '\0') {
        choice.enabled.push_back(enable);
    }
    const paramgen::testing::WorkingDirectory inside(directory.path());
    return Check(".", choice);
}

}  // namespace paramgen::check::testing
