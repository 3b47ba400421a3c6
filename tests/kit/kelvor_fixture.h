// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/document_manager.h"
#include "frame/edit_window.h"
#include "frame/main_frame.h"
#include "tests/kit/fake_platform.h"
#include "tests/kit/fresh_state.h"

namespace kelvor {

/// The logic over scripted surroundings, in a directory of its own: as a whole, or the frame alone. Shared state is
/// fresh before and after.
class KelvorTest : public testing::Test {
protected:
    ~KelvorTest() override;

    /// Runs the start as a user who has applied the options once. An error of a handler fails the test.
    void start();
    /// Loads the frame and nothing else. Errors of handlers come as the message "Application Error", which fails the
    /// test unless it is expected.
    void startFrame();

    /// Writes a file into the test's directory, opens it and gives its document.
    CDocument& open(const std::string& name, const std::string& bytes);
    /// Beside a frame alone: shows another document window in front, with this text and the caret at its start.
    EditWindow& openText(const std::string& name, const std::string& text);
    /// The typing of the user, at the selection of the document in front.
    void type(const std::string& text);
    MenuItem& menu(const std::string& name) { return mainForm().menu(name); }
    std::string panelText(int number) { return mainForm().StatusBar1.panelText(number); }
    /// Writes a file into the test's directory and opens it as the user does, by the dialog.
    void openByDialog(const std::string& name);
    /// The names in the menu's rows of recent files, a blank behind each.
    std::string recentMenu();
    /// The close question for a name.
    static Message saveQuestion(const std::string& name);
    /// Expects the message of an error.
    void expectError(int number, const std::string& description);

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
