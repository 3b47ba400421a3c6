#pragma once

#include "bench/answers.h"
#include "platform/platform.h"

namespace kelvor::bench {

/// Ends a time in which waiting events were not let run, and begins the next one.
/// @return seconds of the longest one so far
double endPause();

/// Forgets the times so far.
void forgetPauses();

/// Surroundings without a window or a user, in force while they live: edit controls are in memory, dialogs are
/// answered at once (messages are shown on standard error), waiting events do not come.
class HeadlessPlatform : private Answers,
                         private Screen,
                         private Shell,
                         private Clock,
                         private Clipboard,
                         private HelpViewer,
                         private Windows {
public:
    HeadlessPlatform() { setPlatform(&platform_); }
    ~HeadlessPlatform() override { setPlatform(nullptr); }
    HeadlessPlatform(const HeadlessPlatform&) = delete;
    HeadlessPlatform& operator=(const HeadlessPlatform&) = delete;

private:
    Answer message(const Message& message) override;

    void beep() override {}
    void setMousePointer(MousePointer /*pointer*/) override {}
    std::vector<std::string> fonts() override { return {}; }
    void processEvents() override { endPause(); }

    bool open(const std::string& /*target*/) override { return false; }
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

    void create(Form& /*form*/) override {}
    void destroy(Form& /*form*/) override {}
    void showModal(Form& /*form*/) override {}
    void showModeless(Form& /*form*/, bool /*owned*/) override {}
    void hide(Form& /*form*/) override {}
    bool isBlocked(const Form& /*form*/) const override { return false; }
    void popupMenu(MenuItem& /*menu*/, const Control* /*below*/) override {}
    std::unique_ptr<EditControl> createEditControl(Form& form, const std::string& name) override;

    Platform platform_{*this, *this, *this, *this, *this, *this, *this};
};

}  // namespace kelvor::bench
