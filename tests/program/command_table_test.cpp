// SPDX-License-Identifier: GPL-3.0-or-later
#include <map>
#include <set>

#include "frame/enablement.h"
#include "frame/menu_table.h"
#include "program/command_table.h"
#include "program/toolbar_commands.h"
#include "support/programs.h"
#include "support/settings.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

using Names = std::set<std::string>;

using CommandSurface = StartedTest;

TEST_F(CommandSurface, EveryRowIsUniqueAndHasACommandLikeEveryButtonButPrint) {
    Names names;
    Names shortcuts;
    std::map<MenuItem*, Names> accessKeys;
    Names parents;
    for (const MenuRow& row : menuTable()) parents.emplace(row.parent);
    for (const auto& item : mainForm().menus()) {
        SCOPED_TRACE(item->name());
        EXPECT_TRUE(item->name().empty() || names.insert(item->name()).second);
        EXPECT_TRUE(item->shortcut().empty() || shortcuts.insert(item->shortcut()).second);
        const bool acts = !item->isSeparator() && !parents.contains(item->name());
        EXPECT_TRUE(!acts || item->clicked.isConnected() != (item->name() == "mnuFile_Print"));
        const auto mark = item->caption().find('&');
        // The two companions keep the marks that their names have in the other menus.
        if (mark == std::string::npos || item->name() == "mnuTools_Mirrel") continue;
        const char key = static_cast<char>(std::tolower(item->caption()[mark + 1]));
        EXPECT_TRUE(accessKeys[item->parent()].insert({key}).second);
    }
    for (const ToolBar* bar : {&mainForm().Toolbar1, &mainForm().Toolbar2, &mainForm().Toolbar3, &mainForm().Toolbar4})
        for (const auto& button : bar->buttons())
            EXPECT_NE(hasCommand(bar->name(), button.key), button.key.empty() || button.key == "Print") << button.key;
}

TEST_F(CommandSurface, WrappingCommandsAreTheSameFromEveryPlace) {
    EditControl& text = open("a.htm", "").SourceRTB();
    for (const auto& [wrapped, places] : std::map<std::string, std::vector<std::string>>{
             {"<B>x</B>", {"mnuTools_FormatText_Bold", "mnuRClick_Format_Bold", "Bold"}},
             {"<I>x</I>", {"mnuTools_FormatText_Italics", "mnuRClick_Format_Italics", "Italics"}},
             {"<U>x</U>", {"mnuTools_FormatText_Underline", "mnuRClick_Format_Underline", "Underline"}},
             {"<SUB>x</SUB>", {"mnuTools_FormatText_Subscript", "mnuRClick_Format_Subscript"}},
             {"<CENTER>x</CENTER>", {"mnuTools_FormatText_Center", "mnuRClick_Center", "Center"}},
             {"<DIV ALIGN=\"right\">x</DIV>", {"mnuTools_FormatText_Right", "mnuRClick_Right", "Right"}},
             {"<!-- x -->", {"mnuTools_FormatText_Comment", "mnuRClick_Comment"}},
             {"<P>x</P>", {"mnuTools_FormatText_Para", "mnu_RClick_Para", "para"}},
             {"<BR>", {"BR"}},
         }) {
        for (const std::string& place : places) {
            text.setText("x");
            text.selectAll();
            enableRClickItems();
            place.starts_with("mnu") ? menu(place).click() : mainForm().Toolbar1.click(place);
            EXPECT_EQ(text.text(), wrapped) << place;
        }
    }
}

TEST_F(CommandSurface, ToolbarRowsShowAndHideTheirBars) {
    open("a.htm", "x");
    MDIForm1& frame = mainForm();
    for (const auto& [name, bar] : std::map<std::string, Control*>{{"mnuToolbars_Main", &frame.Toolbar1},
                                                                   {"mnuToolBars_helpers", &frame.Toolbar2},
                                                                   {"mnuToolBars_forms", &frame.Toolbar3},
                                                                   {"mnuView_dropDown", &frame.Picture1}}) {
        const bool shown = bar->visible();
        EXPECT_EQ(menu(name).checked(), shown) << name;
        menu(name).click();
        EXPECT_EQ(bar->visible(), !shown) << name;
        EXPECT_EQ(menu(name).checked(), !shown) << name;
    }
}

TEST_F(CommandSurface, HelperButtonsStartTheirPrograms) {
    for (const char* key : {"calc", "np", "exp", "mirrel"}) mainForm().Toolbar2.click(key);
    menu("mnuTools_Tavlok").click();
    EXPECT_EQ(platform.started, (std::vector{programFor(DesktopTool::calculator), programFor(DesktopTool::textEditor),
                                             programFor(DesktopTool::fileManager), files.path("program/mirrel"),
                                             files.path("program/tavlok")}));
}

TEST_F(CommandSurface, MappingButtonsStoreTheChoice) {
    open("a.htm", "x");
    for (const bool enforce : {true, false}) {
        mainForm().Toolbar4.click(enforce ? "VDir" : "NoVDir");
        EXPECT_EQ(vdirManager().EnforceVDirs(), enforce);
        EXPECT_TRUE(mainForm().Toolbar4.button(enforce ? "VDir" : "NoVDir").pressed);
        EXPECT_EQ(GetSetting(application, "User", "EnforceVDirs"), enforce ? "1" : "0");
    }
}

TEST_F(CommandSurface, ARightPressOffersThePopupOfTheEmptyFrameAndOfTheViewBar) {
    platform.expectPopup([](MenuItem& popup) { EXPECT_EQ(popup.name(), "mnuNoChild"); });
    mainForm().mouseDown.raise({.button = MousePress::right});
    mainForm().mouseDown.raise({.button = MousePress::left});
    platform.expectPopup([this](MenuItem& popup) {
        EXPECT_EQ(popup.name(), "mnuPreview");
        menu("mnuPreview_AlignRight").click();
    });
    mainForm().Toolbar4.mouseDown.raise({.button = MousePress::right});
    EXPECT_TRUE(menu("mnuPreview_AlignRight").checked() && !menu("mnuPreview_AlignLeft").checked());
    EXPECT_EQ(GetSetting(application, "User", "PreviewAlign"), "4");
    menu("mnuPreview_Close").click();
    EXPECT_FALSE(mainForm().CoolBar2.visible() || mainForm().Toolbar2.button("DocumentAssistant").pressed);
    mainForm().Toolbar2.click("DocumentAssistant");
    EXPECT_TRUE(mainForm().CoolBar2.visible());
    EXPECT_EQ(mainForm().CoolBar2.align(), SideBar::right);
}

}  // namespace
}  // namespace kelvor
