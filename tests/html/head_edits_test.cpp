// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/head_edits.h"

#include <gtest/gtest.h>

#include "base/error.h"

namespace kelvor {
namespace {

/// The page after an edit, if there is one.
std::string after(std::string page, const std::optional<HeadEdit>& edit) {
    return edit ? page.replace(edit->position, edit->length, edit->text) : page;
}

/// "@" stands for what an author's tag starts with, "#" for the tag against caching.
std::string spelled(std::string page) {
    for (const auto& [sign, text] : {std::pair{'@', head::author.start}, {'#', head::noCache}})
        if (const auto place = page.find(sign); place != std::string::npos) page.replace(place, 1, text);
    return page;
}

TEST(HeadEdits, MetaTagsTakeThePlaceOfTheOldOnesOrStandBehindTheHead) {
    for (const auto& [page, with, without] : {
             std::tuple{"", "@me\">\r\n", ""},
             {"<HEAD profile=\"x\">", "@me\">\r\n<HEAD profile=\"x\">", "<HEAD profile=\"x\">"},
             {"<P><head>\nb", "<P><head>\r\n@me\">\nb", "<P><head>\nb"},
             {"a@you\">\r\nb<HEAD>", "a@me\">\r\nb<HEAD>", "ab<HEAD>"},
             {"a@a>b\">\n\nb", "a@me\">b\">\n\nb", "a>\n\nb"},
             {"@\">\n\nb", "@me\">\n\nb", "\nb"},
             {"@\">\r\rb", "@me\">\r\rb", "\rb"},
             {"@\">ääb", "@me\">ääb", "b"},
             {"@\">b", "@me\">b", ""},
         }) {
        const std::string before = spelled(page);
        EXPECT_EQ(after(before, metaEdit(before, head::author, tagAround(head::author, "me"))), spelled(with));
        EXPECT_EQ(after(before, metaEdit(before, head::author, "")), without);
    }
    EXPECT_THROW(metaEdit(spelled("@me\""), head::author, ""), Error);
    for (const auto& [page, with, without] : {std::tuple{"a", "#\r\na", "a"},
                                              {"a<Head>b", "a<Head>\r\n#b", "a<Head>b"},
                                              {"a#\r\nb", "a#\r\nb", "a\r\nb"}}) {
        EXPECT_EQ(after(spelled(page), noCacheEdit(spelled(page), true)), spelled(with));
        EXPECT_EQ(after(spelled(page), noCacheEdit(spelled(page), false)), without);
    }
}

TEST(HeadEdits, OtherTagsTakeThePlaceOfTheOldOnesOrStandAtTheTop) {
    for (const auto& [page, with] : {
             std::pair{"<HEAD>", "<TITLE>t</TITLE>\r\n<HEAD>"},
             {"a<title>x\n<b</title>c<TITLE>", "a<TITLE>t</TITLE>c<TITLE>"},
             {"</TITLE><TITLE>x", "<TITLE>t</TITLE>\r\n</TITLE><TITLE>x"},
         })
        EXPECT_EQ(after(page, tagEdit(page, head::title, titleTag("t"))), with);
    for (const auto& [page, with] : {
             std::pair{"a<BODY x>b", "a<BODY x>\r\n<BASEFONT FACE=\"f\">b"},
             {"a<BODY", "\r\n<BASEFONT FACE=\"f\">a<BODY"},
             {"<BODY><basefont size=2>b", "<BODY><BASEFONT FACE=\"f\">b"},
             {"<BODY><BASEFONT", "<BASEFONT FACE=\"f\">\r\n<BODY><BASEFONT"},
         })
        EXPECT_EQ(after(page, baseFontEdit(page, "f")), with);
    EXPECT_THROW(baseFontEdit("a", "f"), Error);
}

}  // namespace
}  // namespace kelvor
