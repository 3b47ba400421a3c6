// SPDX-License-Identifier: GPL-3.0-or-later
#include "authoring/links.h"

#include "authoring/name_anchor_file.h"
#include "authoring/name_anchors.h"
#include "authoring/named_links.h"
#include "core/file_open.h"
#include "editing/insertion.h"
#include "frame/file_dialogs.h"
#include "tests/kit/selection_fixture.h"

namespace kelvor {
namespace {

class Links : public SelectionTest {
protected:
    std::string resultOf(void (*command)()) { return after(command, "my [word]"); }
    static void set(const char* setting, const char* value) { SaveSetting(application, "User", setting, value); }

    /// Expects that a file without anchors is chosen and the question answered.
    void chooseEmpty(Answer answer) {
        platform.expectOpen(scanTitle, {files.write("empty.htm", "<P>")});
        platform.expectBox("Name anchor error", answer);
    }
    void chooseNamed() {
        platform.expectOpen(scanTitle, {files.write("Named.htm", "<P><A NAME=One><A NAME=\"Two\">")});
    }

    static constexpr const char* scanTitle = "Select file to scan for name anchors";
};

template <int letter>
void pressCtrlShift() {
    KeyPress key{.keyCode = letter, .shift = modifier::ctrl + modifier::shift};
    activeText().keyDown.raise(key);
}

TEST_F(Links, PromptsMakeAnchorsOfWhatIsEntered) {
    using Prompt = std::pair<const char*, const char*>;
    const Prompt link = {
        "Enter the link code.\r\n\r\nLink type: mailto:\r\n\r\nYou need only enter the actual internet link link. "
        "Example: someone@example.com",
        "Enter Link Code"};
    const Prompt address = {"Enter the fully qualified URL for this anchor.", "Make anchor"};
    const Prompt name = {"Enter the name for this name anchor.\r\n\r\n<A NAME=\"your text here\">",
                         "Make named anchor"};
    for (const auto& [command, prompt, answer, result] : {
             std::tuple{+linkToScheme<LinkScheme::mailto>, link, "\"a\"@b",
                        "my [<A HREF=\"mailto:\"a\"@b\">word</A>] Text1"},
             {linkToScheme<LinkScheme::mailto>, link, "", "my [word] Text1"},
             {blankAnchor, address, "/a", "my [<A HREF=\"/a\">word</A>] Text1"},
             {blankAnchor, address, "", "my [word] Text1"},
             {pressCtrlShift<'A'>, address, "/a", "my [<A HREF=\"/a\">word</A>] Text1"},
             {nameAnchor, name, "top", "my [<A NAME=\"top\">word</A>] Text1"},
             {nameAnchor, name, "", "my [word] "},
             {pressCtrlShift<'N'>, name, "", "my [word] Text1"},
         }) {
        platform.expectInput(prompt.first, prompt.second, answer);
        EXPECT_EQ(resultOf(command), result);
    }
}

TEST_F(Links, AFileIsWrittenAsTheSettingsWantIt) {
    const std::string picture = files.path("Pics/A.gif");
    lastDir = "/other";
    set("DFilter", "3");
    platform.expectOpen("Link to file on this system.", {picture}, 4);
    EXPECT_EQ(resultOf(linkFileSys), "my [<A HREF=\"Pics/A.gif\">word</A>] Text1");
    platform.expectOpen("Link to file on this system.", {}, 4);
    EXPECT_EQ(resultOf(linkFileSys), "my [word] ");
    set("LCase", "True");
    EXPECT_EQ(linkTarget(picture), "pics/a.gif");
    set("LCase", "true");
    set("relPath", "true");
    EXPECT_EQ(linkTarget(picture), picture) << "only \"True\" counts";

    EXPECT_EQ(makeRelativePath("C:\\a\\x.htm", "C:\\b\\y.htm"), "..\\b\\y.htm");
    set("Slash", "True");
    EXPECT_EQ(makeRelativePath("C:\\a\\x.htm", "C:\\b\\y.htm"), "../b/y.htm");
    fileOpen(files.path("a.htm"), true);
    EXPECT_EQ(makeRelativePath("C:\\a\\x.htm", "C:\\b\\y.htm"), "C:\\b\\y.htm");
}

TEST_F(Links, NamesAreScannedBehindTheFirstCharacter) {
    Form form("test", "");
    using Rows = std::vector<std::string>;
    for (const auto& [html, names] :
         {std::pair{"<A NAME=first><a name=\"x\"> <a name='x'>\r\n<A NAME=\"y\" ID=z>", Rows{"x", "'x'", "y\" ID=z"}},
          {" <A NAME=a<A NAME=b> <A NAME=\"><A NAME=\"\">", {"a<A NAME=b", "b", "", ""}}}) {
        ListBox list(form, "list");
        scanNameAnchors(nameAnchorStart, nameAnchorEnd, html, list);
        EXPECT_EQ(list.selectedRow(), 0);
        EXPECT_EQ(list.rows(), names);
    }
}

TEST_F(Links, ANameOfThisDocumentIsLinkedWithoutStayingSelected) {
    platform.expectBox("Name anchor error");
    resultOf(mnuRClick_Link_linkToName_Click);
    text->setText("my word <a name=top> <A NAME=\"End\"> <A NAME=open");
    text->Find("word");
    platform.expectModal([](Form& form) { dynamic_cast<NamedLinks&>(form).nameAnchors.doubleClick(1); });
    EXPECT_EQ(reportedBy(mnuRClick_Link_linkToName_Click).substr(0, 2), "5 ");
    EXPECT_TRUE(text->text().starts_with("my <A HREF=\"#End\">word</A> <a")) << text->text();
    EXPECT_EQ(text->selLength(), 0);
    EXPECT_EQ(platform.focused, "Text1");
}

TEST_F(Links, AFileWithNamesIsChosenBeforeAndInTheDialog) {
    set("LCase", "True");
    chooseEmpty(Answer::no);
    EXPECT_EQ(resultOf(mnuRClick_Link_linkToNameFile_Click), "my [word] ");
    chooseEmpty(Answer::yes);
    chooseNamed();
    platform.expectModal([this](Form& shown) {
        auto& form = dynamic_cast<NameAnchorFile&>(shown);
        EXPECT_EQ(form.lblNameLinkFile.caption(), files.path("Named.htm"));
        chooseEmpty(Answer::yes);
        platform.expectOpen(scanTitle, {});
        form.cmdCommonD.click();
        EXPECT_FALSE(form.nameAnchors.enabled() || form.cmdMakeLink.enabled());
        EXPECT_EQ(form.lblNameLinkFile.foreColor(), 255);
        EXPECT_EQ(form.nameAnchors.count(), 0U);
        chooseNamed();
        form.cmdCommonD.click();
        EXPECT_EQ(form.nameAnchors.rows(), (std::vector<std::string>{"One", "Two"}));
        form.nameAnchors.doubleClick(1);
    });
    EXPECT_EQ(resultOf(mnuRClick_Link_linkToNameFile_Click), "my [<A HREF=\"named.htm#Two\">word</A>] Text1");
    platform.expectOpen(scanTitle, {});
    platform.expectModal([this](Form& form) {
        platform.expectMessage(exclamation("Make a selection first.", "No name anchor selected"));
        dynamic_cast<NameAnchorFile&>(form).cmdMakeLink.click();
        chooseEmpty(Answer::no);
        dynamic_cast<NameAnchorFile&>(form).cmdCommonD.click();
        EXPECT_FALSE(form.isLoaded());
    });
    mnuRClick_Link_linkToNameFile_Click();
    EXPECT_TRUE(mainForm().enabled());
}

}  // namespace
}  // namespace kelvor
