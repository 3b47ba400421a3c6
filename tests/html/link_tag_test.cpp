// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/link_tag.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "text/text_order.h"

namespace kelvor {
namespace {

TEST(LinkTag, EachKindIsMadeAndSplitAndTheyAreSorted) {
    for (int type = 0; type < static_cast<int>(linkTypes.size()); ++type) {
        const std::string tag = linkTag({type, "a.example", "An \xC3\xA9"});
        const LinkParts parts = linkParts(tag);
        EXPECT_EQ(parts.type, type) << tag;
        EXPECT_EQ(parts.address + "|" + parts.description, "a.example|An \xC3\xA9");
        EXPECT_TRUE(type == 0 || compareText(linkTypes[type - 1].name, linkTypes[type].name) < 0);
    }
    EXPECT_EQ(linkTag({httpLink, "x", "y"}), R"(<A HREF="http://x">y</A>)");
}

TEST(LinkTag, IsSplitAsItsTextStands) {
    const struct {
        const char* tag;
        int icon;
        const char* parts;
    } rows[] = {
        {R"(<a href="HTTP://X/y//z">T</a>)", 1, "X/y//z|T"},
        {R"(<A HREF="mailto:a@x?u=//b">m</A>)", 4, "b|m"},
        {R"(<A HREF="news:a:b">n</A>)", 5, "a:b|n"},
        {R"(<A HREF="newsrc:f">n</A>)", 6, "f|n"},
        // A word of the description decides, and the kinds have their own order there.
        {R"(<A HREF="page.htm">see mailto:</A>)", 4, "page.htm|see mailto:"},
        {R"(<A HREF="ftp://x">of http://x</A>)", 1, "x|of http://x"},
        {R"(<A HREF="https://x">s</A>)", 10, "x|s"},
        {R"(<A HREF="c:d">r</A>)", 10, "c:d|r"},
        {R"(<A HREF="">empty</A>)", 10, "|empty"},
    };
    for (const auto& row : rows) {
        const LinkParts parts = linkParts(row.tag);
        EXPECT_EQ(iconCheck(row.tag), row.icon) << row.tag;
        EXPECT_EQ(linkTypes[static_cast<std::size_t>(parts.type)].icon, row.icon) << row.tag;
        EXPECT_EQ(parts.address + "|" + parts.description, row.parts);
    }
    EXPECT_THROW(linkParts(R"(<A HREF="x">torn)"), Error);
}

}  // namespace
}  // namespace kelvor
