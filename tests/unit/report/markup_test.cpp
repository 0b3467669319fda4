#include "report/markup.h"

#include <gtest/gtest.h>

#include "report/template.h"

namespace paramgen::report {
namespace {

TEST(Markup, ElementsAndAttributes) {
    EXPECT_EQ(EscapeHtml("<a href=\"x\">'&'</a>"),
              "&lt;a href=&quot;x&quot;&gt;&#39;&amp;&#39;&lt;/a&gt;");
}

TEST(Markup, WhatCannotBeSeenIsSpelled) {
    EXPECT_EQ(EscapeHtml("\x1b[2J\xe9"), "&lt;U+001B&gt;[2J&lt;e9&gt;");
    EXPECT_EQ(EscapeHtml("a\nb"), "a&lt;U+000A&gt;b");
    EXPECT_EQ(EscapeLines("a<\nb\n\x1b"), "a&lt;\nb\n&lt;U+001B&gt;");
}

TEST(Markup, NothingEndsADataScript) {
    EXPECT_EQ(EscapeScript({{"a", "</script><!--&"}}),
              "{\"a\":\"\\u003c/script\\u003e\\u003c!--\\u0026\"}");
    EXPECT_EQ(EscapeScript("\xe2\x80\xa8\xe2\x80\xa9\xe2\x80\xaa"),
              "\"\\u2028\\u2029\xe2\x80\xaa\"");
    EXPECT_EQ(EscapeScript("\xff"), "\"\xef\xbf\xbd\"");
}

TEST(Markup, Fragments) {
    EXPECT_EQ(EscapeFragment("cam0_ldccfg_*/LDCV1Attr:x y\"<#%"),
              "cam0_ldccfg_*/LDCV1Attr:x%20y%22%3C%23%25");
}

TEST(Template, FillsKnownNamesOnce) {
    EXPECT_EQ(Fill("@a@ b@c.d @b@@a@", {{"a", "@b@"}, {"b", "2"}}), "@b@ b@c.d 2@b@");
    EXPECT_EQ(Fill("", {}), "");
    EXPECT_EQ(Fill("@", {{"", "x"}}), "@");
}

}  // namespace
}  // namespace paramgen::report
