#pragma once

#include <gtest/gtest.h>

#include <string>

#include "core/document_manager.h"
#include "frame/main_frame.h"
#include "tests/kit/fake_platform.h"
#include "tests/kit/fresh_state.h"

namespace kelvor {

/// The whole logic, started over the fake platform in a directory of its own.
class KelvorTest : public testing::Test {
protected:
    ~KelvorTest() override;

    /// Runs the start as a user who has applied the options once.
    void start();
    /// Writes a file into the test's directory, opens it and gives its document.
    CDocument& open(const std::string& name, const std::string& bytes);
    /// The typing of the user, at the selection of the document in front.
    void type(const std::string& text);
    MenuItem& menu(const std::string& name) { return mainForm().menu(name); }
    std::string panelText(int number) { return mainForm().StatusBar1.panelText(number); }
    /// The close question for a name.
    static Message saveQuestion(const std::string& name);

    TestDirectory files;
    FreshState state{files.path("settings")};
    FakePlatform platform;
};

}  // namespace kelvor
