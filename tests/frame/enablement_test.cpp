// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/enablement.h"

#include <sys/stat.h>

#include <set>

#include "core/file_close.h"
#include "core/file_open.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

class Commands : public StartedTest {
protected:
    /// Checks what is shown and enabled beside a source in front, beside a preview, and without any document.
    void expectCommands(bool source, bool document) {
        SCOPED_TRACE(source ? "beside a source" : document ? "beside a preview" : "without a document");
        MDIForm1& frame = mainForm();
        std::string bar;
        std::set<std::string> disabled;
        for (const auto& item : frame.menus()) {
            if (!item->parent() && item->visible()) bar += item->caption() + " ";
            if (!item->enabled()) disabled.insert(item->name());
        }
        EXPECT_EQ(bar, source     ? "&File &Edit &Link &Tools For&mat Text Tool&bars &View &Window &Help "
                       : document ? "&File &Tools Tool&bars &View &Window &Help "
                                  : "&File &Tools Tool&bars &View &Help ");
        // The row of versions is for the opening menu to say.
        std::set<std::string> wanted = {"mnuFile_Print", "mnuFile_Versions"};
        if (!source)
            wanted.insert({"mnuEdit", "mnuFile_Close", "mnuFile_CloseAll", "mnuFile_Save", "mnuFile_SaveAll",
                           "mnuFile_SaveAs", "mnuInsert_Image", "mnuInsert_Link", "mnuInsert_Scripts",
                           "mnuInsert_SpecialChars", "mnuInsert_TableWiz", "mnuInsert_Tags", "mnuToolBars_forms",
                           "mnuTools_ConvertSpec", "mnuTools_CreateTemplate", "mnuTools_Format", "mnuTools_FormatText",
                           "mnuView_dropDown"});
        if (!document) wanted.insert({"mnuView_Source", "mnuView_Preview"});
        EXPECT_EQ(disabled, wanted);
        const std::set<std::string> always = {"New", "Open", "Print", "Links", "About", "Exit"};
        for (const auto& button : frame.Toolbar1.buttons())
            EXPECT_EQ(button.enabled, source || always.contains(std::string(button.key))) << button.key;
        for (const char* key : {"Source", "Preview", "VDir", "NoVDir"})
            EXPECT_EQ(frame.Toolbar4.button(key).enabled, document) << key;
        for (const ComboBox* list : {&frame.Combo1, &frame.Combo2, &frame.Combo3, &frame.Combo4})
            EXPECT_EQ(list->enabled(), source) << list->name();
        EXPECT_TRUE(source || !frame.Toolbar3.enabled());
        if (!document) return;
        EXPECT_TRUE(frame.Toolbar4.button(source ? "Source" : "Preview").pressed);
        EXPECT_EQ(menu("mnuView_Source").checked() && !menu("mnuView_Preview").checked(), source);
        EXPECT_EQ(platform.focused, source ? "Text1" : "WebBrowser1") << "no key reaches a text behind a page";
    }
};

TEST_F(Commands, ADocumentTurnsEverythingOnOnceAndItsEndOff) {
    expectCommands(false, false);
    open("a.htm", "x");
    expectCommands(true, true);
    menu("mnuToolBars_forms").click();
    enableMenuItems();
    EXPECT_TRUE(menu("mnuToolBars_forms").checked()) << "a second call leaves the user's choice alone";
    mnuFile_Close_Click();
    expectCommands(false, false);
    EXPECT_FALSE(menu("mnuToolBars_forms").checked());
    EXPECT_FALSE(mainForm().Toolbar3.visible() || mainForm().Picture2.visible());
}

TEST_F(Commands, FollowTheDocumentInFrontThroughPreviewsFailedOpensAndCloses) {
    const std::string pipe = files.path("pipe.htm");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    CDocument& first = open("a.htm", "x");
    EXPECT_FALSE(fileOpen(pipe, false));
    expectCommands(false, false);
    mainForm().TabStrip1.click(first.StrUniqueID());
    expectCommands(true, true);
    menu("mnuView_Preview").click();
    expectCommands(false, true);
    CDocument& second = open("b.htm", "y");
    EXPECT_FALSE(fileOpen(pipe, false));
    for (int round = 0; round < 2; ++round) {
        expectCommands(true, true);
        EXPECT_TRUE(mainForm().Toolbar3.enabled() && mainForm().Toolbar3.button("form_submit").enabled);
        round == 0 ? menu("mnuWindow_NextWindow").click() : mainForm().TabStrip1.click(first.StrUniqueID());
        expectCommands(false, true);
        EXPECT_FALSE(mainForm().Toolbar3.button("form_submit").enabled);
        mainForm().TabStrip1.click(second.StrUniqueID());
    }
    second.SourceForm().unload();
    expectCommands(false, true);
    mainForm().Toolbar4.click("Source");
    EXPECT_EQ(first.ViewMode(), view_mode::source);
    expectCommands(true, true);
    mnuFile_CloseAll_Click();
    expectCommands(false, false);
}

TEST_F(Commands, RowsThatNeedASelectionFollowIt) {
    EditControl& text = open("a.htm", "one two").SourceRTB();
    for (const int length : {0, 3, 0}) {
        text.setSelStart(0);
        text.setSelLength(length);
        menu("mnuEdit").click();
        menu("mnuTools_FormatText").click();
        platform.expectPopup([&](MenuItem& popup) {
            EXPECT_EQ(popup.name(), "mnuRClick");
            for (const char* name :
                 {"mnuEdit_StripSel", "mnuTools_FormatText_Case", "mnuRClick_Cut", "mnuRClick_SendSP"})
                EXPECT_EQ(menu(name).enabled(), length > 0) << name;
        });
        text.mouseDown.raise({.button = MousePress::right});
    }
}

}  // namespace
}  // namespace kelvor
