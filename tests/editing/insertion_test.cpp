// SPDX-License-Identifier: GPL-3.0-or-later
#include "editing/insertion.h"

#include "tests/kit/selection_fixture.h"

namespace kelvor {
namespace {

using Insertion = SelectionTest;

TEST_F(Insertion, WrapsTheSelection) {
    using Optional = std::optional<std::string_view>;
    for (const auto& [before, openText, closeText, result] : {
             std::tuple{"one [two]", "<B>", Optional("</B>"), "one [<B>two</B>] Text1"},
             {"one[] two", "<B>", "</B>", "one<B></B>[] two "},
             {"one [two]", "<BR>", {}, "one [<BR>two] Text1"},
             {"a\r\n[Üb]\r\n", "é<", ">", "a\r\n[é<Üb>]\r\n Text1"},
         })
        EXPECT_EQ(after([&, &open = openText, &close = closeText] { insertAtSelection(open, close); }, before), result);
    setActiveFormName("frmTableWiz");
    EXPECT_EQ(after([] { insertAtSelection("<I>", "</I>"); }), "a[<I>b</I>]c ");
    text->undo();
    EXPECT_EQ(text->text(), "abc");
}

}  // namespace
}  // namespace kelvor
