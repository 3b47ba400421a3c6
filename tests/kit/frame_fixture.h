#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "frame/edit_window.h"
#include "tests/kit/fake_platform.h"
#include "tests/kit/fresh_state.h"

namespace kelvor {

/// A test with a loaded frame, private directories and scripted surroundings. Errors of handlers come as the message
/// "Application Error", which fails the test unless it is expected. Shared state is fresh before and after.
class FrameFixture : public testing::Test {
protected:
    FrameFixture();
    ~FrameFixture() override;

    /// Shows another document window in front, with this text and the caret at its start.
    EditWindow& openText(const std::string& name, const std::string& text);
    /// Expects the message of an error.
    void expectError(int number, const std::string& description);

    TestDirectory directory;
    FreshState state{directory.path("settings")};
    FakePlatform platform;

private:
    std::vector<std::unique_ptr<EditWindow>> windows_;
};

}  // namespace kelvor
