// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "base/error.h"
#include "base/event.h"
#include "controls/form.h"
#include "controls/text_buffer.h"
#include "files/places.h"
#include "frame/file_dialogs.h"
#include "platform/platform.h"
#include "tests/kit/scratch_directory.h"

namespace kelvor {

/// "2026-11-5": the three numbers without leading zeros.
std::string numbersOf(const Date& day);

/// The error sink of a test that expects none.
void failOnError(const Error& error);

/// The surroundings of a test: answers what the test has scripted and records what the program asked for. A
/// dialog that the test does not expect fails it, and so does an expected one that never came.
class FakePlatform : private Dialogs,
                     private Screen,
                     private Shell,
                     private Clock,
                     private Clipboard,
                     private HelpViewer,
                     private Libraries,
                     private Windows {
public:
    /// Puts itself in force. An error of a handler fails the test, unless it sets an error sink of its own.
    FakePlatform() {
        setPlatform(&inForce_);
        setErrorSink(failOnError);
    }
    ~FakePlatform() override {
        verifyNothingOutstanding();
        setErrorSink({});
        setPlatform(nullptr);
    }
    FakePlatform(const FakePlatform&) = delete;
    FakePlatform& operator=(const FakePlatform&) = delete;

    /// The next message box must be exactly this one, and gets this answer.
    void expectMessage(const Message& message, Answer answer = Answer::ok) {
        steps_.push_back({.kind = "message", .message = message, .title = message.title, .answer = answer});
    }
    /// The next message box must have this title and a button of that answer. For a text that is always the same: it
    /// stands in the program alone.
    void expectBox(const std::string& title, Answer answer = Answer::ok) {
        steps_.push_back({.kind = "message", .title = title, .answer = answer});
    }
    /// The next input box must have this prompt and title.
    void expectInput(const std::string& prompt, const std::string& title, const std::string& answer) {
        steps_.push_back({.kind = "input", .prompt = prompt, .title = title, .text = answer});
    }
    /// The next dialog must be the one that opens files, with this title and filter row, in the directory last used and
    /// with the filter of documents or another, or of pictures for their title; it takes several files when its title
    /// says so. No paths cancel it.
    void expectOpen(const std::string& title, const std::vector<std::string>& paths, int filterIndex = 1,
                    const std::string& filter = std::string(documentFilter)) {
        steps_.push_back(
            {.kind = "open", .title = title, .paths = paths, .filterIndex = filterIndex, .filter = filter});
    }
    /// The next dialog must be the one for a name, which asks before a file is written over and offers `offered`. No
    /// path cancels it.
    void expectSave(const std::string& path, const std::string& offered = {}) {
        steps_.push_back({.kind = "save", .title = "Save HTML file as", .text = offered, .paths = {path}});
    }
    void expectColor(std::optional<int> color) { steps_.push_back({.kind = "color", .color = color}); }
    void expectFolder(const std::string& title, const std::optional<std::string>& answer) {
        steps_.push_back({.kind = "folder", .title = title, .text = answer.value_or("")});
    }
    /// While the next modal form is shown, or the next popup is open, `steps` run.
    void expectModal(std::function<void(Form&)> steps) {
        steps_.push_back({.kind = "modal", .modal = std::move(steps)});
    }
    /// The next modal form is one of this kind; it is closed behind the user's steps in it, unless these close it.
    template <typename Dialog>
    void expectDialog(const std::function<void(Dialog&)>& steps) {
        expectModal([steps](Form& form) {
            steps(dynamic_cast<Dialog&>(form));
            if (form.isLoaded()) form.unload();
        });
    }
    void expectPopup(std::function<void(MenuItem&)> steps) {
        steps_.push_back({.kind = "popup", .popup = std::move(steps)});
    }

    /// From now on every message box gets this answer unseen; for the end of a test.
    void answerAllMessages(Answer answer) { answerAll_ = answer; }

    /// Nothing expected is outstanding; checked by the destructor too.
    void verifyNothingOutstanding();

    /// No event waits: what is done then is done, to its end.
    void beIdle() const {
        while (idleWork_ && idleWork_()) continue;
    }

    std::vector<std::string> started;        ///< programs started, their words joined by "|"
    std::vector<std::string> opened;         ///< targets given to the desktop
    std::vector<std::string> helpPages;      ///< addresses shown by the help window
    std::vector<std::string> shownModeless;  ///< names of forms, with " owned" behind those above the frame
    std::vector<std::string> fontNames = {"Arial", "Courier", "Times"};
    std::map<std::string, std::pair<int, int>> pictures;  ///< path -> width and height; other files hold none
    std::map<std::string, int> startFails;                ///< program name -> error number of starting it
    std::string clipboardText;
    DateTime moment{{2026, 11, 21}, 9, 5, 7};
    std::string focused;  ///< name of the control that got the focus last
    MousePointer pointer = MousePointer::standard;
    std::string pointersAtBoxes;  ///< "a" for each message box that came under an arrow, "h" under an hourglass
    int beeps = 0;
    std::string colorTitle;  ///< what the last colour dialog was opened with
    int colorStart = 0;
    static inline std::function<void()> whileWaiting;  ///< an act of the user when waiting events run next

private:
    struct Step {
        std::string kind;
        Message message;
        std::string prompt;
        std::string title;
        Answer answer = Answer::ok;
        std::string text;
        std::vector<std::string> paths;
        std::optional<int> color;
        int filterIndex = 1;
        std::string filter{documentFilter};
        std::function<void(Form&)> modal;
        std::function<void(MenuItem&)> popup;
    };
    std::vector<std::string> pathsFor(const std::string& kind, const FileRequest& request);
    std::optional<Step> next(const std::string& kind, const std::string& what);

    Answer message(const Message& message) override;
    std::string input(const InputRequest& request) override;
    std::vector<std::string> openFiles(const FileRequest& request) override { return pathsFor("open", request); }
    std::optional<std::string> saveFile(const FileRequest& request) override;
    std::optional<int> color(const std::string& title, int start) override;
    std::optional<std::string> folder(const std::string& title, const std::string& start) override;

    void beep() override { ++beeps; }
    void setMousePointer(MousePointer value) override { pointer = value; }
    std::vector<std::string> fonts() override { return fontNames; }
    bool showsPictures(std::string_view suffix) override { return suffix != "webp"; }
    std::shared_ptr<const Picture> loadPicture(const std::string& path) override;
    void processEvents() override {
        if (const auto act = std::exchange(whileWaiting, nullptr)) act();
    }
    void setIdleWork(std::function<bool()> work) override { idleWork_ = std::move(work); }

    bool open(const std::string& target) override {
        opened.push_back(target);
        return true;
    }
    void start(const std::vector<std::string>& words, const std::string& workingDirectory) override;
    DateTime now() override { return moment; }
    std::string shortDate(const Date& day) override { return "short " + numbersOf(day); }
    std::string mediumDate(const Date& day) override { return "medium " + numbersOf(day); }
    std::string longDate(const Date& day) override { return "long " + numbersOf(day); }
    std::string time(const DateTime& value) override { return "time " + std::to_string(value.hour); }
    std::string monthName(const Date& day) override { return "month" + std::to_string(day.month); }
    std::string dayName(const Date& day) override { return "weekday" + std::to_string(day.day % 7); }
    std::string text() override { return clipboardText; }
    void setText(const std::string& text) override { clipboardText = text; }
    std::vector<std::string> inUse() override { return {"Qt 6", "ICU 72"}; }
    void show(const std::string& address) override { helpPages.push_back(address); }

    void create(Form& form) override;
    void destroy(Form& form) override;
    void showModal(Form& form) override;
    void showModeless(Form& form, bool owned) override {
        shownModeless.push_back(form.name() + (owned ? " owned" : ""));
    }
    void hide(Form& /*form*/) override {}
    bool isBlocked(const Form& /*form*/) const override { return false; }
    void popupMenu(MenuItem& menu, const Control* below) override;
    std::unique_ptr<EditControl> createEditControl(Form& form, const std::string& name) override {
        return std::make_unique<TextBuffer>(form, name);
    }

    Platform inForce_{*this, *this, *this, *this, *this, *this, *this, *this};
    std::deque<Step> steps_;
    std::optional<Answer> answerAll_;
    std::function<bool()> idleWork_;
};

/// While it lives the first time that waiting events are let run is `act`'s: an act of the user during a long command.
class WaitingEvents {
public:
    explicit WaitingEvents(std::function<void()> act) {
        FakePlatform::whileWaiting = std::move(act);
        // Events that ran a moment ago are not let run again at once.
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    ~WaitingEvents() { FakePlatform::whileWaiting = nullptr; }
    WaitingEvents(const WaitingEvents&) = delete;
    WaitingEvents& operator=(const WaitingEvents&) = delete;

    bool haveRun() const { return !FakePlatform::whileWaiting; }
};

/// The names of the form's controls that cannot be reached, a blank behind each, in their order; tabs as "name/page".
std::string disabledIn(const Form& form);

/// What the handlers that `act` runs report, each as "number description;". Nothing of it fails the test.
std::string reportedBy(const std::function<void()>& act);

/// A private directory with the program's and the settings' directories in it, in force while it lives.
class TestDirectory : public ScratchDirectory {
public:
    TestDirectory();

    /// A path in it.
    std::string path(const std::string& name) const { return *this / name; }
    std::string program() const { return path("program"); }

private:
    ScopedDirectories inForce_{path("program"), path("settings")};
};

}  // namespace kelvor
