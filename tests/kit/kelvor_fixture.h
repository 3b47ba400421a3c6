// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "controls/text_buffer.h"
#include "core/document_manager.h"
#include "core/file_open.h"
#include "files/paths.h"
#include "frame/edit_window.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"
#include "program/startup.h"
#include "support/report_error.h"
#include "support/settings.h"
#include "tests/kit/fake_platform.h"
#include "tests/kit/fresh_state.h"
#include "tests/kit/messages.h"

namespace kelvor {

/// The logic over scripted surroundings, in a directory of its own: as a whole, or the frame alone. Shared state is
/// fresh before and after.
class KelvorTest : public testing::Test {
protected:
    ~KelvorTest() override {
        platform.verifyNothingOutstanding();
        platform.answerAllMessages(Answer::no);
        setErrorSink(failOnError);
        if (mainForm().isLoaded()) mainForm().unload();
        releaseMainForm();
    }

    /// Runs the start as a user who has applied the options once. An error of a handler fails the test.
    void start() {
        SaveSetting(application, "User", "LCase", "False");
        ASSERT_TRUE(startKelvor());
        setErrorSink(failOnError);
    }
    /// Loads the frame and nothing else. Errors of handlers come as the message "Application Error", which fails the
    /// test unless it is expected.
    void startFrame() {
        installErrorReporting();
        installLoadErrorReporting();
        mainForm().load();
    }

    /// Writes a file into the test's directory, opens it and gives its document.
    CDocument& open(const std::string& name, const std::string& bytes) {
        EXPECT_TRUE(fileOpen(files.write(name, bytes), false));
        return documentManager().currentDocument();
    }
    /// Beside a frame alone: shows another document window in front, with this text and the caret at its start.
    EditWindow& openText(const std::string& name, const std::string& text) {
        EditWindow& window = *windows_.emplace_back(std::make_unique<EditWindow>());
        window.setCaption(name);
        window.load();
        setActiveFormName(window.name());
        mainForm().mdi.show(window);
        window.Text1.setText(text);
        return window;
    }
    /// The typing of the user, at the selection of the document in front.
    void type(const std::string& text) { dynamic_cast<TextBuffer&>(mainForm().activeForm().Text1).type(text); }
    MenuItem& menu(const std::string& name) { return mainForm().menu(name); }
    std::string panelText(int number) { return mainForm().StatusBar1.panelText(number); }
    /// Writes a file into the test's directory and opens it as the user does, by the dialog.
    void openByDialog(const std::string& name) {
        platform.expectOpen(openTitle, {files.write(name, name)});
        menu("mnuFile_Open").click();
    }
    /// The names in the menu's rows of recent files, a blank behind each.
    std::string recentMenu() {
        std::string names;
        for (int index = 0; index < 5; ++index) {
            const MenuItem& row = menu("mnuFile_RecentFiles_" + std::to_string(index));
            if (row.visible()) names += fileNamePart(row.caption()) + " ";
        }
        return names;
    }
    /// The close question for a name.
    static Message saveQuestion(const std::string& name) {
        return question("The text in [" + name + "] has changed.\r\nDo you want to save the changes?", "Kelvor",
                        MessageButtons::yesNoCancel);
    }
    /// Expects the message of an error.
    void expectError(int number, const std::string& description) {
        platform.expectMessage(critical("An application error has occurred:\r\n\r\nError number: " +
                                            std::to_string(number) + "\r\nError description: " + description,
                                        "Application Error"));
    }

    TestDirectory files;
    FreshState state{files.path("settings")};
    FakePlatform platform;

private:
    std::vector<std::unique_ptr<EditWindow>> windows_;
};

/// One that begins with the frame alone.
class FrameTest : public KelvorTest {
protected:
    FrameTest() { startFrame(); }
};

/// One that begins with the whole, started.
class StartedTest : public KelvorTest {
protected:
    StartedTest() { start(); }
};

}  // namespace kelvor
