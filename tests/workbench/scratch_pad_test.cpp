// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/scratch_pad.h"

#include "frame/file_dialogs.h"
#include "frame/main_frame.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

struct Pad : FrameTest {
    Pad() { showScratchPad(); }

    ScratchPad& pad = toolForm<ScratchPad>();
};

TEST_F(Pad, WhatIsSentStandsBelowWhatIsThere) {
    EditControl& text = openText("a.htm", "one two").Text1;
    for (const int start : {0, 4}) {
        text.setSelStart(start);
        text.setSelLength(3);
        mnuRClick_SendSP_Click();
    }
    EXPECT_EQ(pad.spRTF1.text(), "\r\n\r\none\r\n\r\ntwo");
    platform.expectBox("Text Changed", Answer::no);
    EXPECT_TRUE(pad.unload());
    EXPECT_EQ(platform.focused, "Text1");
}

TEST_F(Pad, TheMenuActsOnThePadAndSavesOnlyAText) {
    platform.clipboardText = "é\r\nb";
    platform.expectPopup([this](MenuItem&) {
        EXPECT_FALSE(pad.mnusp_save.reachable());
        pad.mnusp_paste.click();
        pad.mnusp_selAll.click();
        pad.mnusp_cut.click();
        pad.append("x");
        pad.mnusp_clear.click();
        pad.mnusp_paste.click();
    });
    pad.cmdEdit.click();
    lastDir = "/before";
    mainForm().CommonD1.fileName = "other.htm";
    platform.expectPopup([this](MenuItem&) { pad.mnusp_save.click(); });
    platform.expectSave(files.path("pad.txt"));
    pad.spRTF1.mouseDown.raise({.button = MousePress::right});
    EXPECT_EQ(files.read("pad.txt"), "é\r\nb");
    EXPECT_EQ(lastDir + "/", files.path(""));
    EXPECT_TRUE(pad.unload()) << "no question once it is saved";
}

TEST_F(Pad, ClosingItOrTheProgramAsksForATextThatWasNotSaved) {
    pad.append("x");
    platform.expectBox("Text Changed", Answer::cancel);
    EXPECT_FALSE(mainForm().unload());
    platform.expectBox("Text Changed", Answer::yes);
    const std::string nowhere = files.path("no/such/pad.txt");
    platform.expectSave(nowhere);
    expectError(76, "The folder does not exist: " + nowhere);
    EXPECT_FALSE(pad.unload()) << "a save that failed keeps the text";
    platform.expectBox("Text Changed", Answer::yes);
    platform.expectSave("");
    const EventScope scope;
    EXPECT_TRUE(mainForm().unload()) << "a save dialog that was cancelled does not";
    EXPECT_FALSE(pad.isLoaded()) << "the question has been answered";
}

}  // namespace
}  // namespace kelvor
