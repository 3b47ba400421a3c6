#include "authoring/links.h"

#include <tuple>

#include "authoring/common.h"
#include "authoring/name_anchor_file.h"
#include "authoring/name_anchors.h"
#include "authoring/named_links.h"
#include "authoring/relative_path.h"
#include "core/file_open.h"
#include "support/settings.h"
#include "tests/kelvor_fixture.h"

namespace kelvor {
namespace {

class Links : public KelvorTest {
protected:
    Links() {
        start();
        text = &open("page.htm", "my word").SourceRTB();
    }

    /// Runs `command` with "word" selected in "my word".
    std::string resultOf(void (*command)()) {
        text->setText("my word");
        text->Find("word");
        platform.focused.clear();
        command();
        return text->text();
    }
    static void set(const char* setting, const char* value) { SaveSetting(application, "User", setting, value); }

    EditControl* text = nullptr;
};

TEST_F(Links, PromptsMakeAnchorsOfWhatIsEntered) {
    using Row = std::tuple<void (*)(), const char*, const char*, const char*, const char*, const char*>;
    constexpr auto mail =
        "Enter the link code.\r\n\r\nLink type: mailto:\r\n\r\nYou need only enter the actual internet link link. "
        "Example: someone@example.com";
    constexpr auto address = "Enter the fully qualified URL for this anchor.";
    constexpr auto name = "Enter the name for this name anchor.\r\n\r\n<A NAME=\"your text here\">";
    const Row rows[] = {
        {linkToScheme<LinkScheme::mailto>, mail, "Enter Link Code", "\"a\"@b", "<A HREF=\"mailto:\"a\"@b\">word</A>",
         "Text1"},
        {linkToScheme<LinkScheme::mailto>, mail, "Enter Link Code", "", "word", "Text1"},
        {blankAnchor, address, "Make anchor", "/a", "<A HREF=\"/a\">word</A>", "Text1"},
        {blankAnchor, address, "Make anchor", "", "word", "Text1"},
        {nameAnchor, name, "Make named anchor", "top", "<A NAME=\"top\">word</A>", "Text1"},
        {nameAnchor, name, "Make named anchor", "", "word", ""},
    };
    for (const auto& [command, prompt, title, answer, result, focused] : rows) {
        platform.expectInput(prompt, title, answer);
        EXPECT_EQ(resultOf(command), "my " + std::string(result));
        EXPECT_EQ(platform.focused, focused) << result;
    }
}

TEST_F(Links, AFileIsWrittenAsTheSettingsWantIt) {
    const std::string picture = files.path("Pics/A.gif");
    const auto link = [&] {
        lastDir = "/other";
        platform.expectOpen({picture}, [](const FileRequest& request) {
            EXPECT_EQ(request.title, "Link to file on this system.");
            EXPECT_EQ(request.directory, "/other");
            EXPECT_EQ(request.filterIndex, 4);
        });
        return resultOf(linkFileSys);
    };
    set("DFilter", "3");
    EXPECT_EQ(link(), "my <A HREF=\"Pics/A.gif\">word</A>");
    EXPECT_EQ(lastDir, files.path("Pics"));
    set("LCase", "True");
    EXPECT_EQ(link(), "my <A HREF=\"pics/a.gif\">word</A>");
    set("LCase", "true");
    set("relPath", "False");
    EXPECT_EQ(link(), "my <A HREF=\"" + picture + "\">word</A>");
    platform.expectOpen({});
    EXPECT_EQ(resultOf(linkFileSys), "my word");

    EXPECT_EQ(makeRelativePath("C:\\a\\x.htm", "C:\\b\\y.htm"), "..\\b\\y.htm");
    set("Slash", "True");
    EXPECT_EQ(makeRelativePath("C:\\a\\x.htm", "C:\\b\\y.htm"), "../b/y.htm");
    fileOpen(files.path("page.htm"), true);
    EXPECT_EQ(makeRelativePath("C:\\a\\x.htm", "C:\\b\\y.htm"), "C:\\b\\y.htm");
}

TEST_F(Links, NamesAreScannedBehindTheFirstCharacter) {
    using Rows = std::vector<std::string>;
    const std::pair<const char*, Rows> cases[] = {
        {"<A NAME=first><A NAME=x> <a name=\"x\"> <a name='x'>\r\n<A NAME=\"y\" ID=z>", {"x", "x", "'x'", "y\" ID=z"}},
        {" <A NAME=a<A NAME=b> <A NAME=\"><A NAME=\"\">", {"a<A NAME=b", "b", "", ""}},
        {"<A NAME=first>", {}},
    };
    Form form("test", "");
    for (const auto& [html, names] : cases) {
        ListBox list(form, "list");
        scanNameAnchors(nameAnchorStart, nameAnchorEnd, html, list);
        EXPECT_EQ(list.rows(), names);
        EXPECT_EQ(list.selectedRow(), names.empty() ? -1 : 0);
    }
    std::string nested = " ";
    for (int anchor = 0; anchor < 1'000'000; ++anchor) nested += nameAnchorStart;
    for (const char* end : {"", ">"}) {
        ListBox list(form, "list");
        EXPECT_THROW(scanNameAnchors(nameAnchorStart, nameAnchorEnd, nested + end, list), Error);
        EXPECT_LT(list.count(), 20U);
    }
}

TEST_F(Links, ANameOfThisDocumentIsLinkedWithoutStayingSelected) {
    platform.expectMessage({.text = "There are no name anchors to link with in this document.",
                            .title = "Name anchor error",
                            .icon = MessageIcon::exclamation});
    resultOf(mnuRClick_Link_linkToName_Click);
    text->setText("my word <a name=top> <A NAME=\"End\"> <A NAME=open");
    text->Find("word");
    int told = 0;
    setErrorSink([&](const Error& error) { told = error.number(); });
    platform.expectModal([](Form& form) { dynamic_cast<NamedLinks&>(form).nameAnchors.doubleClick(1); });
    mnuRClick_Link_linkToName_Click();
    EXPECT_EQ(told, error_number::invalidProcedureCall);
    EXPECT_TRUE(text->text().starts_with("my <A HREF=\"#End\">word</A> <a")) << text->text();
    EXPECT_EQ(text->selLength(), 0);
    EXPECT_EQ(platform.focused, "Text1");
}

class LinksToNames : public Links {
protected:
    /// Expects that a file without anchors is chosen and the question answered.
    void chooseEmpty(Answer answer) {
        platform.expectOpen({files.write("empty.htm", "<P>")});
        platform.expectMessage(
            {.text = "There are no name anchors to link with in the selected file. Select from another file?",
             .title = "Name anchor error",
             .icon = MessageIcon::question,
             .buttons = MessageButtons::yesNo},
            answer);
    }
    void chooseNamed() { platform.expectOpen({files.write("Named.htm", "<P><A NAME=One><A NAME=\"Two\">")}); }
    /// Runs the command, and `steps` while its dialog is shown; they close it.
    std::string resultOfDialog(const std::function<void(NameAnchorFile&)>& steps) {
        platform.expectModal([&](Form& form) {
            steps(dynamic_cast<NameAnchorFile&>(form));
            EXPECT_FALSE(form.isLoaded());
        });
        return resultOf(mnuRClick_Link_linkToNameFile_Click);
    }
};

TEST_F(LinksToNames, TheFileIsChosenFirstAndOnlyItIsLowered) {
    set("LCase", "True");
    chooseEmpty(Answer::yes);
    chooseNamed();
    const std::string result = resultOfDialog([this](NameAnchorFile& form) {
        EXPECT_EQ(form.lblNameLinkFile.caption(), files.path("Named.htm"));
        EXPECT_EQ(activeFormName, "nameAnchorFile");
        platform.expectOpen({});
        form.cmdCommonD.click();
        EXPECT_EQ(form.nameAnchors.rows(), (std::vector<std::string>{"One", "Two"}));
        form.nameAnchors.setSelectedRow(1);
        form.cmdMakeLink.click();
    });
    EXPECT_EQ(result, "my <A HREF=\"named.htm#Two\">word</A>");
}

TEST_F(LinksToNames, NoEndsTheDialogBeforeAndAfterItIsShown) {
    chooseEmpty(Answer::no);
    EXPECT_EQ(resultOf(mnuRClick_Link_linkToNameFile_Click), "my word");
    platform.expectOpen({});
    resultOfDialog([this](NameAnchorFile& form) {
        platform.expectMessage(
            {.text = "Make a selection first.", .title = "No name anchor selected", .icon = MessageIcon::exclamation});
        form.cmdMakeLink.click();
        chooseNamed();
        form.cmdCommonD.click();
        chooseEmpty(Answer::yes);
        platform.expectOpen({});
        form.cmdCommonD.click();
        EXPECT_FALSE(form.nameAnchors.enabled() || form.cmdMakeLink.enabled());
        EXPECT_EQ(form.lblNameLinkFile.foreColor(), 255);
        EXPECT_EQ(form.nameAnchors.count(), 0U);
        chooseEmpty(Answer::no);
        form.cmdCommonD.click();
    });
    EXPECT_FALSE(formLoadFailed);
    EXPECT_TRUE(mainForm().enabled());
    EXPECT_EQ(activeFormName, "editWindow");
}

}  // namespace
}  // namespace kelvor
