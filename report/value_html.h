/// How one value is written in the page's tables.
#pragma once

#include <string>

#include "report/page.h"

namespace paramgen::report {

/// A value with its unit and the name that its number stands for.
std::string ValueHtml(const std::string& value, const std::string& name, const std::string& unit);

/// Where a value comes from: the place that sets it, or a word.
std::string OriginHtml(const Value& value);

/// What a value is, below its key; empty when that is not known.
std::string AboutHtml(const Value& value);

/// "module/section:" of a value with a key; empty for others.
std::string PathOf(const Value& value);

/// What a value is called: its key with its path, or else its member.
std::string TitleOf(const Value& value);

}  // namespace paramgen::report
