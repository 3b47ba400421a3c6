#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "authoring/common.h"
#include "core/command_table.h"
#include "core/enablement.h"
#include "core/file_close.h"
#include "core/menu_table.h"
#include "core/toolbar_commands.h"
#include "support/desktop_tools.h"
#include "support/settings.h"
#include "tests/core/told_surface.h"
#include "tests/kelvor_fixture.h"

namespace kelvor {
namespace {

using Names = std::set<std::string>;

const Names buttonsOfSource = {"Image",         "Table",        "Save",      "Save As", "Format", "Find",
                               "Bold",          "Italics",      "Underline", "Cut",     "Copy",   "Paste",
                               "Undo",          "Delete",       "Center",    "Right",   "Tags",   "findReplace",
                               "Special Chars", "Quick Format", "Scripts",   "para",    "color",  "BR"};
const Names menusOfSource = {"mnuInsert_Image",
                             "mnuFile_SaveAll",
                             "mnuFile_CloseAll",
                             "mnuInsert_TableWiz",
                             "mnuTools_CreateTemplate",
                             "mnuTools_Format",
                             "mnuTools_FormatText",
                             "mnuEdit",
                             "mnuFile_Save",
                             "mnuFile_SaveAs",
                             "mnuTools_ConvertSpec",
                             "mnuInsert_SpecialChars",
                             "mnuView_dropDown",
                             "mnuInsert_Tags",
                             "mnuInsert_Scripts",
                             "mnuFile_Close",
                             "mnuInsert_Link"};

class CommandSurface : public KelvorTest {
protected:
    CommandSurface() { start(); }

    Names enabledButtons(const ToolBar& bar) {
        Names keys;
        for (const auto& button : bar.buttons())
            if (button.enabled && !button.key.empty()) keys.emplace(button.key);
        return keys;
    }
    Names disabledMenus() {
        Names names;
        for (const auto& item : mainForm().menus())
            if (!item->enabled()) names.insert(item->name());
        return names;
    }
    std::string bar() {
        std::string captions;
        for (const auto& item : mainForm().menus())
            if (!item->parent() && item->visible()) captions += item->caption() + " ";
        return captions;
    }
    /// All four insert lists are in the same state; which.
    bool listsEnabled() {
        const MDIForm1& frame = mainForm();
        const bool first = frame.Combo1.enabled();
        for (const ComboBox* list : {&frame.Combo2, &frame.Combo3, &frame.Combo4}) EXPECT_EQ(list->enabled(), first);
        return first;
    }
};

class DesignState : public testing::Test {
protected:
    template <std::size_t count>
    void expectButtons(const ToolBar& bar, const ToldButton (&told)[count]) {
        ASSERT_EQ(bar.buttons().size(), count) << bar.name();
        for (std::size_t index = 0; index < count; ++index) {
            EXPECT_EQ(bar.buttons()[index].key, told[index].key);
            EXPECT_EQ(bar.buttons()[index].toolTip, told[index].toolTip) << told[index].key;
        }
    }

    FakePlatform platform;
};

TEST_F(DesignState, TheMenusAreAsTold) {
    const MDIForm1 frame;
    auto next = frame.menus().begin();
    for (const ToldMenu& told : toldMenus) {
        next = std::find_if(next, frame.menus().end(), [&](const auto& item) { return item->name() == told.name; });
        ASSERT_NE(next, frame.menus().end()) << told.name << " is missing or out of its order";
        const MenuItem& item = **next;
        const std::string state = told.state;
        EXPECT_EQ(item.caption(), told.caption) << told.name;
        EXPECT_EQ(item.shortcut(), told.shortcut) << told.name;
        EXPECT_EQ(item.enabled(), state != "disabled") << told.name;
        EXPECT_EQ(item.checked(), state == "checked") << told.name;
        EXPECT_TRUE(item.visible()) << told.name;
    }
}

TEST_F(DesignState, TheToolbarsAreAsTold) {
    const MDIForm1 frame;
    expectButtons(frame.Toolbar1, toldToolbar1);
    expectButtons(frame.Toolbar2, toldToolbar2);
    expectButtons(frame.Toolbar3, toldToolbar3);
    expectButtons(frame.Toolbar4, toldToolbar4);
    const auto& entries = frame.Toolbar1.button("color").entries;
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries[0].caption, "<FONT COLOR=");
    EXPECT_EQ(entries[0].key, "fcolor");
    EXPECT_EQ(entries[1].caption, "COLOR=");
    EXPECT_EQ(entries[1].key, "color");
    EXPECT_EQ(entries[2].caption, "BGCOLOR=");
    EXPECT_EQ(entries[2].key, "bgcolor");
}

TEST_F(CommandSurface, EveryButtonHasACommandOrIsListedAsStillToCome) {
    const auto toCome = buttonsToCome();
    for (const ToolBar* bar :
         {&mainForm().Toolbar1, &mainForm().Toolbar2, &mainForm().Toolbar3, &mainForm().Toolbar4}) {
        for (const auto& button : bar->buttons()) {
            if (button.key.empty() || button.key == "Print") continue;
            const bool waits = std::find(toCome.begin(), toCome.end(), button.key) != toCome.end();
            EXPECT_NE(hasCommand(bar->name(), button.key), waits) << button.key;
        }
    }
}

TEST_F(CommandSurface, EveryRowHasACommandOrIsListedAsStillToCome) {
    const auto toCome = menuRowsToCome();
    Names parents;
    for (const MenuRow& row : menuTable()) parents.emplace(row.parent);
    for (const auto& item : mainForm().menus()) {
        if (item->isSeparator() || parents.contains(item->name()) || item->name() == "mnuFile_Print") continue;
        const bool waits = std::find(toCome.begin(), toCome.end(), item->name()) != toCome.end();
        EXPECT_NE(item->clicked.isConnected(), waits) << item->name();
    }
}

TEST_F(CommandSurface, WithoutADocumentOnlyTheFramesOwnCommandsStay) {
    EXPECT_EQ(bar(), "&File &Tools Tool&bars &View &Help ");
    EXPECT_EQ(enabledButtons(mainForm().Toolbar1), (Names{"New", "Open", "Print", "Links", "About", "Exit"}));
    Names disabled = menusOfSource;
    disabled.insert({"mnuFile_Print", "mnuToolBars_forms", "mnuView_Source", "mnuView_Preview"});
    EXPECT_EQ(disabledMenus(), disabled);
    EXPECT_EQ(enabledButtons(mainForm().Toolbar4), Names{});
    EXPECT_FALSE(listsEnabled());
    EXPECT_FALSE(mainForm().Toolbar3.visible());
    EXPECT_FALSE(mainForm().Toolbar3.enabled());
    EXPECT_FALSE(mainForm().Picture2.visible());
}

TEST_F(CommandSurface, ADocumentTurnsEverythingOnOnce) {
    open("a.htm", "x");
    EXPECT_EQ(bar(), "&File &Edit &Link &Tools For&mat Text Tool&bars &View &Window &Help ");
    EXPECT_EQ(disabledMenus(), Names{"mnuFile_Print"});
    Names all = buttonsOfSource;
    all.insert({"New", "Open", "Print", "Links", "About", "Exit"});
    EXPECT_EQ(enabledButtons(mainForm().Toolbar1), all);
    EXPECT_EQ(enabledButtons(mainForm().Toolbar4), (Names{"Source", "Preview", "NoVDir", "VDir"}));
    EXPECT_TRUE(listsEnabled());
    menu("mnuToolBars_forms").click();
    EXPECT_TRUE(mainForm().Toolbar3.visible());
    enableMenuItems();
    EXPECT_TRUE(menu("mnuToolBars_forms").checked()) << "a second call leaves the user's choice alone";
    mnuFile_Close_Click();
    EXPECT_FALSE(menu("mnuToolBars_forms").checked());
    EXPECT_FALSE(mainForm().Toolbar3.visible());
}

TEST_F(CommandSurface, SeveralFilesOpenedAtOnceTurnEverythingOnToo) {
    platform.expectOpen({files.write("a.htm", "1"), files.write("b.htm", "2"), files.write("c.htm", "3")});
    menu("mnuFile_Open").click();
    EXPECT_EQ(disabledMenus(), Names{"mnuFile_Print"});
    EXPECT_EQ(enabledButtons(mainForm().Toolbar4), (Names{"Source", "Preview", "NoVDir", "VDir"}));
}

TEST_F(CommandSurface, PreviewTurnsOffWhatNeedsTheSource) {
    CDocument& first = open("a.htm", "x");
    const std::string second = open("b.htm", "y").StrUniqueID();
    mainForm().TabStrip1.click(first.StrUniqueID());
    menu("mnuView_Preview").click();
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(bar(), "&File &Tools Tool&bars &View &Window &Help ");
        Names disabled = menusOfSource;
        disabled.insert({"mnuFile_Print", "mnuToolBars_forms"});
        EXPECT_EQ(disabledMenus(), disabled);
        EXPECT_EQ(enabledButtons(mainForm().Toolbar3), Names{});
        EXPECT_TRUE(mainForm().Toolbar4.button("Preview").pressed);
        EXPECT_FALSE(mainForm().Toolbar4.button("Source").pressed);
        EXPECT_TRUE(menu("mnuView_Preview").checked());
        EXPECT_FALSE(menu("mnuView_Source").checked());
        EXPECT_FALSE(listsEnabled());
        mainForm().TabStrip1.click(second);
        EXPECT_EQ(disabledMenus(), Names{"mnuFile_Print"});
        EXPECT_TRUE(mainForm().Toolbar4.button("Source").pressed);
        EXPECT_EQ(enabledButtons(mainForm().Toolbar3).size(), 12U);
        mainForm().TabStrip1.click(first.StrUniqueID());
    }
    mainForm().Toolbar4.click("Source");
    EXPECT_EQ(first.ViewMode(), view_mode::source);
    EXPECT_EQ(disabledMenus(), Names{"mnuFile_Print"});
    ControlFunctionForMode(3);
    EXPECT_EQ(disabledMenus(), Names{"mnuFile_Print"});
}

TEST_F(CommandSurface, ThePopupsRowsFollowTheSelection) {
    EditControl& text = open("a.htm", "one two").SourceRTB();
    const Names needSelection = {"mnuRClick_Cut",      "mnuRClick_Copy",  "mnuRClick_Center",  "mnuRClick_Right",
                                 "mnuRClick_Format",   "mnuRClick_Link",  "mnuRClick_Comment", "mnuRClick_Name",
                                 "mnuRClick_TextCase", "mnuRClick_SendSP"};
    for (const int length : {0, 3}) {
        text.setSelStart(0);
        text.setSelLength(length);
        platform.expectPopup([&](MenuItem&) {
            for (const std::string& name : needSelection) EXPECT_EQ(menu(name).enabled(), length > 0) << name;
            EXPECT_TRUE(menu("mnuRClick_Paste").reachable());
        });
        text.mouseDown.raise({.button = MousePress::right});
    }
}

TEST_F(CommandSurface, MenusThatOpenSetTheirRowsForASelection) {
    EditControl& text = open("a.htm", "one two").SourceRTB();
    for (const int length : {3, 0}) {
        text.setSelStart(0);
        text.setSelLength(length);
        menu("mnuEdit").click();
        menu("mnuTools_FormatText").click();
        EXPECT_EQ(menu("mnuEdit_StripSel").enabled(), length > 0);
        EXPECT_EQ(menu("mnuTools_FormatText_Case").enabled(), length > 0);
        EXPECT_TRUE(menu("mnuTools_FormatText_Bold").enabled());
    }
}

TEST_F(CommandSurface, WrappingCommandsAreTheSameFromEveryPlace) {
    struct Case {
        const char* formatRow;
        const char* popupRow;
        const char* button;
        const char* wrapped;
    };
    EditControl& text = open("a.htm", "").SourceRTB();
    for (const Case& row : {
             Case{"Bold", "Format_Bold", "Bold", "<B>x</B>"},
             {"Italics", "Format_Italics", "Italics", "<I>x</I>"},
             {"Underline", "Format_Underline", "Underline", "<U>x</U>"},
             {"Subscript", "Format_Subscript", nullptr, "<SUB>x</SUB>"},
             {"Center", "Center", "Center", "<CENTER>x</CENTER>"},
             {"Right", "Right", "Right", "<DIV ALIGN=\"right\">x</DIV>"},
             {"Comment", "Comment", nullptr, "<!-- x -->"},
             {"Para", nullptr, "para", "<P>x</P>"},
         }) {
        const auto wraps = [&](const auto& act) {
            text.setText("x");
            text.setSelStart(0);
            text.setSelLength(1);
            act();
            EXPECT_EQ(text.text(), row.wrapped);
            EXPECT_EQ(text.selLength(), text.textLength()) << row.wrapped;
        };
        enableRClickItems();
        wraps([&] { menu(std::string("mnuTools_FormatText_") + row.formatRow).click(); });
        wraps([&] { menu(row.popupRow ? std::string("mnuRClick_") + row.popupRow : "mnu_RClick_Para").click(); });
        if (row.button) wraps([&] { mainForm().Toolbar1.click(row.button); });
    }
    text.setText("ab");
    text.setSelStart(1);
    text.setSelLength(1);
    mainForm().Toolbar1.click("BR");
    EXPECT_EQ(text.text(), "a<BR>");
}

TEST_F(CommandSurface, UnderlineAndRightAlignTakeTheFocusWithoutASelectionToo) {
    open("a.htm", "");
    activeFormName = "editWindow";
    const std::map<std::string, bool> focuses = {
        {"Underline", true}, {"Right", true}, {"Bold", false}, {"Center", false}};
    for (const auto& [row, takes] : focuses) {
        platform.focused.clear();
        menu("mnuTools_FormatText_" + row).click();
        EXPECT_EQ(platform.focused == "Text1", takes) << row;
    }
}

TEST_F(CommandSurface, PrintDoesNothingAndReportsNothing) {
    open("a.htm", "x");
    mainForm().Toolbar1.click("Print");
    menu("mnuFile_Print").click();
    EXPECT_EQ(platform.beeps, 0);
}

TEST_F(CommandSurface, ToolbarRowsShowAndHideTheirBars) {
    open("a.htm", "x");
    const std::vector<std::pair<std::string, Control*>> bars = {{"mnuToolbars_Main", &mainForm().Toolbar1},
                                                                {"mnuToolBars_helpers", &mainForm().Toolbar2},
                                                                {"mnuToolBars_forms", &mainForm().Toolbar3},
                                                                {"mnuView_dropDown", &mainForm().Picture1}};
    for (const auto& [row, bar] : bars) {
        const bool shown = bar->visible();
        EXPECT_EQ(menu(row).checked(), shown) << row;
        menu(row).click();
        EXPECT_EQ(bar->visible(), !shown) << row;
        EXPECT_EQ(menu(row).checked(), !shown) << row;
    }
}

TEST_F(CommandSurface, HelperButtonsStartTheirPrograms) {
    mainForm().Toolbar2.click("calc");
    mainForm().Toolbar2.click("np");
    mainForm().Toolbar2.click("exp");
    EXPECT_EQ(platform.started,
              (std::vector<std::string>{programFor(DesktopTool::calculator), programFor(DesktopTool::textEditor),
                                        programFor(DesktopTool::fileManager)}));
    const std::string mirrel = files.program() + "/mirrel";
    platform.startFails[mirrel] = error_number::fileNotFound;
    const Message missing = {.text = "The executable file required can not be found.\r\n\r\nFile: " + mirrel,
                             .title = "File not found",
                             .icon = MessageIcon::critical};
    platform.expectMessage(missing);
    mainForm().Toolbar2.click("mirrel");
    platform.expectMessage(missing);
    menu("mnuTools_Mirrel").click();
}

TEST_F(CommandSurface, MappingButtonsStoreTheChoice) {
    open("a.htm", "x");
    mainForm().Toolbar4.click("VDir");
    EXPECT_TRUE(vdirManager()->EnforceVDirs());
    EXPECT_TRUE(mainForm().Toolbar4.button("VDir").pressed);
    EXPECT_FALSE(mainForm().Toolbar4.button("NoVDir").pressed);
    EXPECT_EQ(GetSetting(application, "User", "EnforceVDirs"), "1");
    mainForm().Toolbar4.click("NoVDir");
    EXPECT_FALSE(vdirManager()->EnforceVDirs());
    EXPECT_TRUE(mainForm().Toolbar4.button("NoVDir").pressed);
    EXPECT_EQ(GetSetting(application, "User", "EnforceVDirs"), "0");
}

TEST_F(CommandSurface, ARightPressOnTheViewBarOffersItsSides) {
    platform.expectPopup([this](MenuItem& popup) {
        EXPECT_EQ(popup.name(), "mnuPreview");
        menu("mnuPreview_AlignRight").click();
    });
    mainForm().Toolbar4.mouseDown.raise({.button = MousePress::right});
    EXPECT_EQ(mainForm().CoolBar2.align(), SideBar::right);
    EXPECT_TRUE(menu("mnuPreview_AlignRight").checked());
    EXPECT_FALSE(menu("mnuPreview_AlignLeft").checked());
    EXPECT_EQ(GetSetting(application, "User", "PreviewAlign"), "4");
    menu("mnuPreview_Close").click();
    EXPECT_FALSE(mainForm().CoolBar2.visible());
    EXPECT_FALSE(menu("mnuView_DocumentAssistant").checked());
    EXPECT_FALSE(mainForm().Toolbar2.button("DocumentAssistant").pressed);
    mainForm().Toolbar2.click("DocumentAssistant");
    EXPECT_TRUE(mainForm().CoolBar2.visible());
    EXPECT_EQ(mainForm().CoolBar2.align(), SideBar::right);
}

}  // namespace
}  // namespace kelvor
