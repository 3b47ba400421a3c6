// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/enablement.h"

#include <sys/stat.h>

#include <random>
#include <set>

#include "core/file_close.h"
#include "core/file_open.h"
#include "support/settings.h"
#include "tests/kit/kelvor_fixture.h"
#include "tests/kit/messages.h"

namespace kelvor {
namespace {

/// What a user expects of the commands after any acts: they follow the document in front, with three exceptions.
/// A failed open beside one document leaves them off, a start whose template is missing leaves them as they were
/// designed, and a preview goes on without its page when the dialog for its name is cancelled.
class Enablement : public KelvorTest, public testing::WithParamInterface<bool> {
protected:
    struct Act {
        const char* name;
        void (Enablement::*perform)();
    };
    static const std::vector<Act>& acts() {
        static const std::vector<Act> all = {
            {"open", &Enablement::openFile},         {"new", &Enablement::openUntitled},
            {"fail", &Enablement::failToOpen},       {"fail in the dialog", &Enablement::failInTheDialog},
            {"close", &Enablement::closeFront},      {"close another", &Enablement::closeAny},
            {"close all", &Enablement::closeAll},    {"click a tab", &Enablement::clickTab},
            {"next", &Enablement::nextWindow},       {"preview", &Enablement::preview},
            {"preview again", &Enablement::preview}, {"source", &Enablement::source}};
        return all;
    }

    /// The commands and marks that tell the states apart, as the user sees them.
    static std::string seen() {
        MDIForm1& frame = mainForm();
        std::string flags;
        for (const bool on :
             {frame.menu("mnuWindow").visible(), frame.menu("mnuView_Preview").enabled(),
              frame.Toolbar4.button("Source").enabled, frame.menu("mnuFile_Save").enabled(),
              frame.menu("mnuEdit").visible(), frame.Toolbar1.button("Bold").enabled, frame.Combo4.enabled(),
              frame.menu("mnuToolBars_forms").enabled(), frame.Toolbar3.enabled()})
            flags += on ? '1' : '0';
        if (frame.menu("mnuView_Preview").enabled())
            flags += frame.Toolbar4.button("Preview").pressed && frame.menu("mnuView_Preview").checked() ? " page"
                     : frame.Toolbar4.button("Source").pressed && frame.menu("mnuView_Source").checked() ? " source"
                                                                                                         : " neither";
        return flags;
    }
    std::string expected() const {
        switch (state_) {
            case State::designed:
                return designed_;
            case State::off:
                return "000000000";
            case State::follows:
                break;
        }
        return documents_.back().mode == view_mode::source ? "111111111 source" : "111000000 page";
    }

    void openFile() { open(files.write("a.htm", "x")); }
    void openUntitled() { open(files.write("a.tpl", "x"), true); }
    void open(const std::string& path, bool isUntitled = false) {
        EXPECT_TRUE(fileOpen(path, isUntitled));
        documents_.push_back({&documentManager().currentDocument(), view_mode::source});
        state_ = State::follows;
    }
    void failToOpen() {
        EXPECT_FALSE(fileOpen(pipe_, false));
        if (documents_.size() < 2) state_ = State::off;
    }
    void failInTheDialog() {
        platform.expectOpen(openTitle, {pipe_});
        platform.expectMessage(openError(pipe_, "This is a pipe, not a file."));
        menu("mnuFile_Open").click();
        state_ = documents_.empty() ? State::off : State::follows;
    }
    void closeFront() {
        if (!documents_.empty()) close(documents_.size() - 1);
    }
    void closeAny() {
        if (!documents_.empty()) close(any());
    }
    void close(std::size_t index) {
        documents_[index].document->SourceForm().unload();
        documents_.erase(documents_.begin() + static_cast<std::ptrdiff_t>(index));
        if (documents_.empty()) state_ = State::off;
    }
    void closeAll() {
        if (documents_.size() < 4) return;
        mnuFile_CloseAll_Click();
        documents_.clear();
        state_ = State::off;
    }
    void clickTab() {
        if (!documents_.empty() && mainForm().Picture2.visible()) bringForward(any());
    }
    void bringForward(std::size_t index) {
        mainForm().TabStrip1.click(documents_[index].document->StrUniqueID());
        std::rotate(documents_.begin() + static_cast<std::ptrdiff_t>(index),
                    documents_.begin() + static_cast<std::ptrdiff_t>(index) + 1, documents_.end());
        state_ = State::follows;
    }
    void nextWindow() {
        if (documents_.empty() || state_ == State::off) return;
        menu("mnuWindow_NextWindow").click();
        const auto front = std::find_if(documents_.begin(), documents_.end(), [](const auto& each) {
            return each.document == &documentManager().currentDocument();
        });
        std::rotate(front, front + 1, documents_.end());
    }
    /// The dialog for the name of an untitled one is cancelled; every other time its question is answered with No.
    void preview() {
        if (documents_.empty() || state_ == State::off) return;
        const bool isUntitled = documents_.back().document->IsUntitled();
        const bool refuses = isUntitled && random_() % 2 == 0;
        if (isUntitled) platform.expectMessage(previewQuestion, refuses ? Answer::no : Answer::yes);
        if (isUntitled && !refuses) platform.expectSave("");
        menu("mnuView_Preview").click();
        if (!refuses) documents_.back().mode = view_mode::preview;
    }
    void source() {
        if (documents_.empty() || state_ == State::off) return;
        mainForm().Toolbar4.click("Source");
        documents_.back().mode = view_mode::source;
    }
    std::size_t any() { return random_() % documents_.size(); }

    enum class State { designed, off, follows };
    State state_ = State::off;
    std::string designed_;
    struct OpenDocument {
        CDocument* document;
        int mode;  ///< of view_mode: what it shows
    };
    /// The one in front last, before it the one that was in front before.
    std::vector<OpenDocument> documents_;
    std::string pipe_ = files.path("pipe.htm");
    std::mt19937 random_{GetParam() ? 1U : 2U};
    const Message previewQuestion =
        question("File must be saved before a preview can be executed.\r\nSave file now?", "Preview requires save.");
};

TEST_P(Enablement, FollowsTheDocumentInFrontThroughAnyActs) {
    ASSERT_EQ(mkfifo(pipe_.c_str(), 0600), 0);
    if (GetParam()) {
        SaveSetting(application, "User", "newFile", "True");
        platform.expectMessage(noSuchFile(files.program() + "/Templates/Default Template.tpl"));
        state_ = State::designed;
        designed_ = seen();
    }
    start();
    std::string road;
    for (int count = 0; count < 1000; ++count) {
        ASSERT_EQ(seen(), expected()) << "after" << road;
        ASSERT_TRUE(documents_.empty() || &mainForm().activeForm() == &documents_.back().document->SourceForm())
            << road;
        const Act& act = acts()[random_() % acts().size()];
        road = road.substr(road.size() > 200 ? road.find(',', road.size() - 200) : 0) + ", " + act.name;
        (this->*act.perform)();
    }
}

INSTANTIATE_TEST_SUITE_P(StartsWith, Enablement, testing::Values(false, true),
                         [](const auto& start) { return start.param ? "AMissingTemplate" : "AnEmptyFrame"; });

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
        std::set<std::string> wanted = {"mnuFile_Print"};
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
    EXPECT_FALSE(mainForm().Toolbar3.visible());
    EXPECT_FALSE(mainForm().Picture2.visible());
}

TEST_F(Commands, PreviewTurnsOffWhatNeedsTheSource) {
    CDocument& first = open("a.htm", "x");
    const std::string second = open("b.htm", "y").StrUniqueID();
    mainForm().TabStrip1.click(first.StrUniqueID());
    menu("mnuView_Preview").click();
    for (int round = 0; round < 2; ++round) {
        expectCommands(false, true);
        EXPECT_EQ(platform.focused, "WebBrowser1") << "no key reaches the text behind the page; round " << round;
        EXPECT_TRUE(mainForm().Toolbar4.button("Preview").pressed);
        EXPECT_FALSE(mainForm().Toolbar4.button("Source").pressed);
        EXPECT_TRUE(menu("mnuView_Preview").checked());
        EXPECT_FALSE(menu("mnuView_Source").checked());
        EXPECT_FALSE(mainForm().Toolbar3.button("form_submit").enabled);
        mainForm().TabStrip1.click(second);
        expectCommands(true, true);
        EXPECT_TRUE(mainForm().Toolbar3.enabled() && mainForm().Toolbar3.button("form_submit").enabled);
        EXPECT_EQ(platform.focused, "Text1");
        menu("mnuWindow_NextWindow").click();
        EXPECT_EQ(platform.focused, "WebBrowser1");
        mainForm().TabStrip1.click(second);
        mainForm().TabStrip1.click(first.StrUniqueID());
    }
    mainForm().Toolbar4.click("Source");
    EXPECT_EQ(first.ViewMode(), view_mode::source);
    expectCommands(true, true);
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
            for (const char* name : {"mnuEdit_StripSel", "mnuTools_FormatText_Case", "mnuRClick_Cut", "mnuRClick_Copy",
                                     "mnuRClick_Center", "mnuRClick_Right", "mnuRClick_Format", "mnuRClick_Link",
                                     "mnuRClick_Comment", "mnuRClick_Name", "mnuRClick_TextCase", "mnuRClick_SendSP"})
                EXPECT_EQ(menu(name).enabled(), length > 0) << name;
        });
        text.mouseDown.raise({.button = MousePress::right});
    }
}

}  // namespace
}  // namespace kelvor
