// SPDX-License-Identifier: GPL-3.0-or-later
#include "assistants/format_document.h"

#include "tests/kit/selection_fixture.h"

namespace kelvor {
namespace {

class FormatDocumentDialog : public SelectionTest {
protected:
    FormatDocumentDialog() { SaveSetting(application, "User", "prefillProgram", "False"); }

    using Steps = std::function<void(FormatDocument&)>;

    /// The text after `steps` in the dialog and a press of `end`; behind a blank the control focused last.
    std::string after(const std::string& before, const Steps& steps, Button FormatDocument::*end) {
        const auto act = inDialog<FormatDocument>(mnuTools_Format_Click, [&steps, end](FormatDocument& form) {
            if (steps) steps(form);
            (form.*end).click();
        });
        return SelectionTest::after(act, before);
    }
    std::string finished(const std::string& before, const Steps& steps = {}) {
        return after(before, steps, &FormatDocument::cmdFinished);
    }
    void cancelled(const std::string& page, const Steps& steps) {
        after("[]" + page, steps, &FormatDocument::cmdCancel);
        EXPECT_EQ(text->text(), page);
    }
};

TEST_F(FormatDocumentDialog, AnEmptyPageGetsAllTagsInOneStepAndTheyAreReadAndWrittenAlike) {
    const auto fill = [](FormatDocument& form) {
        for (std::size_t i = 0; i < form.txtColor.size(); ++i) form.txtColor[i].type(std::to_string(i));
        TextBox* const fields[] = {&form.txtTitle, &form.txtBgGraphic, &form.txtOnLoad, &form.txtMetaK, &form.txtMetaA,
                                   &form.txtMetaG, &form.txtMetaD,     &form.txtDelay,  &form.txtTarget};
        const char* values[] = {"t", "b", "f()", "k", "a \"q\"", "g", "d", "5", "u"};
        for (std::size_t i = 0; i < std::size(fields); ++i) fields[i]->type(values[i]);
        form.cboBaseFont.type("F");
        form.chkCache.click();
    };
    EXPECT_EQ(
        finished("[]", fill),
        "<META HTTP-EQUIV=\"Pragma\" CONTENT=\"no-cache\">\r\n[]<TITLE>t</TITLE>\r\n"
        "<BODY BACKGROUND=\"b\" TEXT=\"0\" LINK=\"1\" VLINK=\"2\" ALINK=\"3\" BGCOLOR=\"4\" onLoad=\"f()\">\r\n"
        "<BASEFONT FACE=\"F\">\r\n<META HTTP-EQUIV=\"Refresh\" CONTENT=\"5; URL=u\">\r\n"
        "<META HTTP-EQUIV=\"Keywords\" CONTENT=\"k\">\r\n<META NAME=\"Generator\" CONTENT=\"g\">\r\n"
        "<META HTTP-EQUIV=\"Description\" CONTENT=\"d\">\r\n<META NAME=\"Author\" CONTENT=\"a \"q\"\">\r\n Text1");
    const std::string page = text->text();
    text->undo();
    EXPECT_EQ(text->text(), "");
    finished("[]" + page);
    EXPECT_EQ(text->text(), page);
}

TEST_F(FormatDocumentDialog, FinishedWritesTheBodyAndTheTitleAsTheyWereRead) {
    for (const auto& [before, after] : {
             std::pair{"[]<body><title>t</title>", "<BODY><TITLE>t</TITLE>[]"},
             {"a[<body bgcolor=\"#FF0000\" ID=x>]<TITLE></TITLE>", "a<BODY BGCOLOR=\"#FF0000\"><TITLE></TITLE>[]"},
             {"[a]<BODY TEXT=\"#FF0000\">", "<TITLE></TITLE>\r\n[]a<BODY>"},
             {"[]<BODY BGCOLOR=\"#FFFFFF\"", "<TITLE></TITLE>\r\n[]<BODY>\r\n<BODY BGCOLOR=\"#FFFFFF\""},
             {"[]<BODY><BASEFONT FACE=\"Z\">", "<TITLE></TITLE>\r\n<BODY><BASEFONT FACE=\"Z\">[]"},
         })
        EXPECT_EQ(finished(before), after + std::string(" Text1")) << before;
    platform.expectBox("Formatting error encountered");
    EXPECT_EQ(finished("[]<title>error</title>"), "<BODY>\r\n<TITLE></TITLE>[] Text1");
}

TEST_F(FormatDocumentDialog, AnUnclosedTagOrARedirectWithoutADelayKeepsItAway) {
    for (const std::string token : {"<META NAME=\"Author\" CONTENT=\"", "onLoad=\"", "<TITLE>"})
        platform.expectMessage(exclamation(token + " is not closed properly. Operation aborted", "Tag not closed"));
    platform.expectMessage(critical("An error occurred while loading the form", "Load error"));
    for (const std::string page : {"<TITLE>x<META NAME=\"Author\" CONTENT=\"a\" ><BODY onLoad=\"a<b\">",
                                   "<META HTTP-EQUIV=\"Refresh\" CONTENT=\"5\">"}) {
        SelectionTest::after(mnuTools_Format_Click, "[]" + page);
        EXPECT_TRUE(text->text() == page && !toolForm<FormatDocument>().isLoaded() && !formLoadFailed);
    }
}

TEST_F(FormatDocumentDialog, ShowsWhatItReadsAndWhatTheUserWantsFilledInOrAsksFor) {
    for (const auto& [key, value] : {std::pair{"prefillAuthor", "True"}, {"prefillProgram", "True"}, {"name", "Ann"}})
        SaveSetting(application, "User", key, value);
    for (const auto& [page, shown, color] :
         {std::tuple{"<BODY>", "Ann, Kelvor 32-bit HTML Editor, (n/a)", -1},
          {"<body vlink=\"#0000ff\" LINK=\"silver\">", "Ann, Kelvor 32-bit HTML Editor, #0000ff", 0xFF0000},
          {"<META NAME=\"Generator\" CONTENT=\"g\"><META NAME=\"Author\" CONTENT=\"a\">", "a, g, (n/a)", -1}})
        cancelled(page, [&, shown = shown, color = color](FormatDocument& form) {
            EXPECT_EQ(form.txtMetaA.text() + ", " + form.txtMetaG.text() + ", " + form.txtColor[2].text(), shown);
            EXPECT_EQ(form.txtColor[2].backColor(), color);
        });
    const std::string picture = files.path("A.gif");
    cancelled("", [&](FormatDocument& form) {
        platform.expectColor(0x0080FF);
        form.txtColor[4].doubleClick();
        EXPECT_EQ(form.txtColor[4].text(), "#FF8000");
        const auto browse = [&] {
            platform.expectOpen("Select and image file", {picture});
            form.txtBgGraphic.doubleClick();
        };
        EXPECT_EQ(reportedBy(browse), "9 A path has no separator;");
        SaveSetting(application, "User", "relPath", "");
        browse();
        EXPECT_EQ(form.txtBgGraphic.text(), picture);
        for (const auto& [delay, target, missing] : {std::tuple{"5", "", "txtTarget"}, {"", "u", "txtDelay"}}) {
            form.txtDelay.setText(delay);
            form.txtTarget.setText(target);
            form.SSTab1.choose(0);
            platform.expectBox("Incomplete values");
            form.cmdFinished.click();
            EXPECT_EQ(platform.focused + std::to_string(form.SSTab1.tab()), missing + std::string("1"));
        }
    });
}

TEST_F(FormatDocumentDialog, WhatWasWrittenBeforeAnErrorIsOneStepBackAndNoActInTheMiddleEndsIt) {
    const std::string page = "<HEAD><BODY><TITLE>t</TITLE>";
    cancelled(page, [&](FormatDocument& form) {
        // With this the BODY tag is within what the title takes the place of.
        form.txtMetaA.type("<TITLE>");
        form.cboBaseFont.type("F");
        const WaitingEvents events([&] {
            form.cmdCancel.click();
            form.cmdFinished.click();
        });
        EXPECT_EQ(reportedBy([&] { form.cmdFinished.click(); }), "5 There is no BODY tag;");
        EXPECT_TRUE(events.haveRun() && form.isLoaded());
        EXPECT_NE(text->text(), page);
        text->undo();
    });
}

}  // namespace
}  // namespace kelvor
