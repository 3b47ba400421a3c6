// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/head_tags.h"

#include <gtest/gtest.h>

#include "base/error.h"

namespace kelvor {
namespace {

TEST(HeadTags, GiveWhatStandsBetweenTheirTokensUnlessTheyAreNotClosed) {
    constexpr const char* notClosed = "not closed";
    for (const auto& [tag, source, value] : {
             std::tuple{head::title, "x<title>One\r\ntwo</Title><TITLE>y</TITLE>", "One\r\ntwo"},
             {head::title, "error", ""},
             {head::title, "<TITLE lang=en>x</TITLE>", ""},
             {head::title, "<TITLE><b</TITLE>", "<b"},
             {head::title, "<TITLE>a<b</TITLE>", notClosed},
             {head::title, "<TITLE>a", notClosed},
             {head::author, "<meta name=\"author\" content=\"me\">", "me"},
             {head::author, "<META NAME=\"Author\" CONTENT=\"me\" ><P ID=\"a\">", notClosed},
             {head::keywords, "<META HTTP-EQUIV=\"Keywords\" CONTENT=\"a, \"b\", ä>b\">", "a, \"b\", ä>b"},
             {head::baseFont, "<BASEFONT SIZE=\"2\" FACE=\"Arial\">", ""},
             {head::baseFont, "<baſefont face=\"Arial\">", "Arial"},
         })
        EXPECT_EQ(extractText(tag, source).value_or(notClosed), value) << source;
}

TEST(HeadTags, SplitARedirectAtItsTokensAndJoinIt) {
    for (const auto& [value, delay, target, tag] : {
             std::tuple{"5; URL=b.htm", "5", "b.htm", "<META HTTP-EQUIV=\"Refresh\" CONTENT=\"5; URL=b.htm\">"},
             {" 0;url=a;b?url=c", " 0", "a;b?url=c", "<META HTTP-EQUIV=\"Refresh\" CONTENT=\" 0; URL=a;b?url=c\">"},
             {"5; b.htm", "5", "", ""},
         }) {
        const Redirect redirect = redirectFrom(value);
        EXPECT_EQ(redirect.delay + "|" + redirect.target, delay + std::string("|") + target);
        EXPECT_EQ(redirectTag(redirect), tag);
    }
    EXPECT_THROW(redirectFrom("5 URL=b.htm"), Error);
}

TEST(HeadTags, BodyAttributesAreReadInQuotesAlone) {
    for (const auto& [tag, read] : {
             std::pair{"<body>", ",,,,,,,"},
             {"<BODY BGCOLOR=\"1\" onload=\"2\" VLINK=\"3\" ALINK=\"4\" TEXT=\"5\" LINK=\"6\" BACKGROUND=\"7\">",
              "7,5,6,3,4,1,2,"},
             {"<BODY\tBGCOLOR=\"1\"\tLINK=\"6\"\nBACKGROUND=\"7\">", ",,,,,1,,"},
             {"<BODY BGCOLOR=#FFFFFF TEXT='0' xVLINK=\"3\" ALINK=\"\">", ",,,3,,,,"},
             {"<BODY TEXT=\"a<b\" BGCOLOR=\"#>", ",,,,,,, BGCOLOR=\" TEXT=\""},
             {"<BODY LINK=\"1\"\n<P>", ",,1,,,,, <BODY"},
         }) {
        const BodyReading reading = readBodyTag(tag);
        std::string all;
        for (const std::string& value : reading.values) all += value + ",";
        for (const std::string_view token : reading.unclosed) all.append(" ").append(token);
        EXPECT_EQ(all, read) << tag;
    }
}

TEST(HeadTags, ABodyTagLeavesOutWhatItsFieldsShowAsMissing) {
    for (const auto& [values, tag] : {
             std::pair{BodyAttributes{"(none)", "(n/a)", "(n/a)", "(n/a)", "(n/a)", "(n/a)", "(none)"}, "<BODY>"},
             {BodyAttributes{"", "(n/a)", "(N/A)", "(n/a)", "", "(n/a)", ""}, "<BODY LINK=\"(N/A)\" ALINK=\"\">"},
             {BodyAttributes{"(n/a)", "(none)", "2", "3", "4", "5", "f(\"6\")"},
              "<BODY BACKGROUND=\"(n/a)\" TEXT=\"(none)\" LINK=\"2\" VLINK=\"3\" ALINK=\"4\" BGCOLOR=\"5\" "
              "onLoad=\"f(\"6\")\">"},
         })
        EXPECT_EQ(bodyTag(values), tag);
}

}  // namespace
}  // namespace kelvor
