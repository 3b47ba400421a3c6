// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/kit/fake_platform.h"

#include <filesystem>

#include "base/event.h"
#include "controls/form.h"
#include "controls/menu_item.h"
#include "controls/tab_control.h"
#include "frame/file_dialogs.h"

namespace kelvor {

namespace {

std::string describe(const Message& message) {
    return "[" + message.title + "] " + message.text;
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const auto& word : words) text += (text.empty() ? "" : "|") + word;
    return text;
}

/// Every row of a tool's popup does something. The frame's rows are known by a table.
void expectConnectedRows(const MenuItem& menu) {
    for (const Control* control : menu.form().controls()) {
        const auto* row = dynamic_cast<const MenuItem*>(control);
        if (row == nullptr || row->parent() != &menu || row->isSeparator()) continue;
        EXPECT_TRUE(row->clicked.isConnected() || menu.form().kind() == Form::Kind::frame) << row->name();
    }
}

}  // namespace

void failOnError(const Error& error) {
    ADD_FAILURE() << "unexpected error " << error.number() << ": " << error.description();
}

std::string numbersOf(const Date& day) {
    return std::to_string(day.year) + "-" + std::to_string(day.month) + "-" + std::to_string(day.day);
}

FakePlatform::FakePlatform() {
    setErrorSink(failOnError);
}

FakePlatform::~FakePlatform() {
    verifyNothingOutstanding();
    setErrorSink({});
}

void FakePlatform::expectMessage(const Message& message, Answer answer) {
    steps_.push_back({.kind = "message", .message = message, .title = message.title, .answer = answer});
}

void FakePlatform::expectInput(const std::string& prompt, const std::string& title, const std::string& answer) {
    steps_.push_back({.kind = "input", .prompt = prompt, .title = title, .text = answer});
}

void FakePlatform::expectOpen(const std::string& title, const std::vector<std::string>& paths, int filterIndex) {
    steps_.push_back({.kind = "open", .title = title, .paths = paths, .filterIndex = filterIndex});
}

void FakePlatform::expectSave(const std::string& path, const std::string& offered) {
    steps_.push_back({.kind = "save", .title = "Save HTML file as", .text = offered, .paths = {path}});
}

void FakePlatform::expectColor(std::optional<int> color) {
    steps_.push_back({.kind = "color", .color = color});
}

void FakePlatform::expectFolder(const std::string& title, const std::optional<std::string>& answer) {
    steps_.push_back({.kind = "folder", .title = title, .text = answer.value_or("")});
}

void FakePlatform::expectModal(std::function<void(Form&)> steps) {
    steps_.push_back({.kind = "modal", .modal = std::move(steps)});
}

void FakePlatform::expectPopup(std::function<void(MenuItem&)> steps) {
    steps_.push_back({.kind = "popup", .popup = std::move(steps)});
}

void FakePlatform::verifyNothingOutstanding() {
    for (const auto& step : steps_) ADD_FAILURE() << "expected " << step.kind << " never came: " << step.title;
    steps_.clear();
}

std::optional<FakePlatform::Step> FakePlatform::next(const std::string& kind, const std::string& what) {
    if (steps_.empty() || steps_.front().kind != kind) {
        ADD_FAILURE() << "unexpected " << kind << ": " << what;
        return {};
    }
    Step step = std::move(steps_.front());
    steps_.pop_front();
    return step;
}

Answer FakePlatform::message(const Message& message) {
    if (answerAll_) return *answerAll_;
    pointersAtBoxes += pointer == MousePointer::hourglass ? "h" : "a";
    const auto step = next("message", describe(message));
    if (!step) return message.buttons == MessageButtons::ok ? Answer::ok : Answer::no;
    EXPECT_EQ(message.text, step->message.text);
    EXPECT_EQ(message.cause, step->message.cause) << describe(message);
    EXPECT_EQ(message.title, step->message.title);
    EXPECT_EQ(message.icon, step->message.icon) << describe(message);
    EXPECT_EQ(message.buttons, step->message.buttons) << describe(message);
    EXPECT_EQ(message.standard, step->message.standard) << describe(message);
    return step->answer;
}

std::string FakePlatform::input(const InputRequest& request) {
    const auto step = next("input", request.prompt);
    if (!step) return {};
    EXPECT_EQ(request.prompt, step->prompt);
    EXPECT_EQ(request.title, step->title);
    return step->text;
}

void FakePlatform::expectRequest(const FileRequest& request, const Step& step) {
    EXPECT_EQ(request.title, step.title);
    EXPECT_EQ(request.directory, lastDir) << step.title;
    EXPECT_EQ(request.filter, step.title == "Select and image file" ? pictureFilter : documentFilter);
    EXPECT_EQ(request.filterIndex, step.filterIndex) << step.title;
    EXPECT_EQ(request.fileName, step.text) << step.title;
    EXPECT_EQ(request.multiple, step.title.find("(multiple selections allowed)") != std::string::npos) << step.title;
    EXPECT_EQ(request.overwritePrompt, step.kind == "save") << step.title;
}

std::vector<std::string> FakePlatform::openFiles(const FileRequest& request) {
    const auto step = next("open", request.title);
    if (!step) return {};
    expectRequest(request, *step);
    return step->paths;
}

std::optional<std::string> FakePlatform::saveFile(const FileRequest& request) {
    const auto step = next("save", request.title);
    if (!step) return {};
    expectRequest(request, *step);
    return step->paths.front().empty() ? std::nullopt : std::optional(step->paths.front());
}

std::optional<int> FakePlatform::color(const std::string& title, int start) {
    colorTitle = title;
    colorStart = start;
    const auto step = next("color", "");
    return step ? step->color : std::nullopt;
}

std::optional<std::string> FakePlatform::folder(const std::string& title, const std::string& start) {
    const auto step = next("folder", title);
    if (!step) return {};
    EXPECT_EQ(title, step->title);
    EXPECT_EQ(start, lastDir) << title;
    if (step->text.empty()) return {};
    return step->text;
}

void FakePlatform::start(const std::vector<std::string>& words, const std::string& /*workingDirectory*/) {
    if (const auto failing = startFails.find(words.front()); failing != startFails.end())
        throw Error(failing->second, "cannot start " + words.front());
    started.push_back(joined(words));
}

void FakePlatform::create(Form& form) {
    for (Control* control : form.controls()) {
        control->follow([this, name = control->name()](Aspect aspect) {
            if (aspect == Aspect::focus) focused = name;
        });
    }
}

void FakePlatform::destroy(Form& form) {
    for (Control* control : form.controls()) control->follow({});
}

void FakePlatform::showModal(Form& form) {
    const auto step = next("modal", form.name());
    if (step) step->modal(form);
}

void FakePlatform::showModeless(Form& form, bool owned) {
    shownModeless.push_back(form.name() + (owned ? " owned" : ""));
}

void FakePlatform::popupMenu(MenuItem& menu, const Control* /*below*/) {
    menu.clicked.raise();
    expectConnectedRows(menu);
    const auto step = next("popup", menu.name());
    if (step) step->popup(menu);
}

std::string disabledIn(const Form& form) {
    std::string names;
    for (const Control* control : form.controls()) {
        if (!control->enabled()) names += control->name() + " ";
        const auto* tabs = dynamic_cast<const TabControl*>(control);
        for (int page = 0; tabs != nullptr && page < static_cast<int>(tabs->count()); ++page)
            if (!tabs->tabEnabled(page)) names += control->name() + "/" + std::to_string(page) + " ";
    }
    return names;
}

std::string reportedBy(const std::function<void()>& act) {
    std::string reports;
    setErrorSink(
        [&](const Error& error) { reports += std::to_string(error.number()) + " " + error.description() + ";"; });
    act();
    setErrorSink(failOnError);
    return reports;
}

TestDirectory::TestDirectory() {
    std::filesystem::create_directories(path("program/Templates"));
    std::filesystem::create_directories(path("settings"));
}

}  // namespace kelvor
