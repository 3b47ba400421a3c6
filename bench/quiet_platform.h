// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/text_buffer.h"
#include "platform/platform.h"

namespace kelvor {

/// Dialogs that come back at once: a question is answered with Yes, and all but the messages are cancelled.
class QuietDialogs : public Dialogs {
public:
    Answer message(const Message& message) override {
        return message.buttons == MessageButtons::ok ? Answer::ok : Answer::yes;
    }
    std::string input(const InputRequest& /*request*/) override { return {}; }
    std::vector<std::string> openFiles(const FileRequest& /*request*/) override { return {}; }
    std::optional<std::string> saveFile(const FileRequest& /*request*/) override { return {}; }
    std::optional<int> color(const std::string& /*title*/, int /*start*/) override { return {}; }
    std::optional<std::string> folder(const std::string& /*title*/, const std::string& /*start*/) override {
        return {};
    }
};

/// No window at all; edit controls are in memory.
class QuietWindows : public Windows {
public:
    void create(Form& /*form*/) override {}
    void destroy(Form& /*form*/) override {}
    void showModal(Form& /*form*/) override {}
    void showModeless(Form& /*form*/, bool /*owned*/) override {}
    void hide(Form& /*form*/) override {}
    bool isBlocked(const Form& /*form*/) const override { return false; }
    void popupMenu(MenuItem& /*menu*/, const Control* /*below*/) override {}
    std::unique_ptr<EditControl> createEditControl(Form& form, const std::string& name) override {
        return std::make_unique<TextBuffer>(form, name);
    }
};

/// Surroundings without a window or a user, in force while they live. Measurements override what they watch.
class QuietPlatform : protected QuietDialogs,
                      protected Screen,
                      protected Shell,
                      protected Clock,
                      protected Clipboard,
                      protected HelpViewer,
                      protected Libraries,
                      protected QuietWindows {
public:
    QuietPlatform() { setPlatform(&platform_); }
    ~QuietPlatform() override { setPlatform(nullptr); }
    QuietPlatform(const QuietPlatform&) = delete;
    QuietPlatform& operator=(const QuietPlatform&) = delete;

protected:
    void beep() override {}
    void setMousePointer(MousePointer /*pointer*/) override {}
    std::vector<std::string> fonts() override { return {}; }
    bool showsPictures(std::string_view /*suffix*/) override { return false; }
    std::shared_ptr<const Picture> loadPicture(const std::string& /*path*/) override {
        return std::make_shared<Picture>(1, 1);
    }
    void processEvents() override {}

    bool open(const std::string& /*target*/) override { return true; }
    void start(const std::vector<std::string>& /*words*/, const std::string& /*workingDirectory*/) override {}

    DateTime now() override { return {}; }
    std::string shortDate(const Date& /*day*/) override { return {}; }
    std::string mediumDate(const Date& /*day*/) override { return {}; }
    std::string longDate(const Date& /*day*/) override { return {}; }
    std::string time(const DateTime& /*moment*/) override { return {}; }
    std::string monthName(const Date& /*day*/) override { return {}; }
    std::string dayName(const Date& /*day*/) override { return {}; }

    std::string text() override { return {}; }
    void setText(const std::string& /*text*/) override {}

    void show(const std::string& /*address*/) override {}

    std::vector<std::string> inUse() override { return {"Qt 6", "ICU 72"}; }

private:
    Platform platform_{*this, *this, *this, *this, *this, *this, *this, *this};
};

}  // namespace kelvor
