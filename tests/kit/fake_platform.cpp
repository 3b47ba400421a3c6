// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/kit/fake_platform.h"

#include <filesystem>

#include "base/event.h"
#include "controls/menu_item.h"
#include "controls/tab_control.h"
#include "frame/file_dialogs.h"

namespace kelvor {

void failOnError(const Error& error) {
    ADD_FAILURE() << "unexpected error " << error.number() << ": " << error.description();
}

std::string numbersOf(const Date& day) {
    return std::to_string(day.year) + "-" + std::to_string(day.month) + "-" + std::to_string(day.day);
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
    const auto step = next("message", message.text);
    if (!step) return message.buttons == MessageButtons::ok ? Answer::ok : Answer::no;
    EXPECT_EQ(message.title, step->title) << message.text;
    EXPECT_EQ(step->answer == Answer::ok, message.buttons == MessageButtons::ok) << message.text;
    if (step->message.text.empty()) return step->answer;
    EXPECT_EQ(message.text, step->message.text);
    EXPECT_EQ(message.cause, step->message.cause) << message.text;
    EXPECT_EQ(message.icon, step->message.icon) << message.text;
    EXPECT_EQ(message.buttons, step->message.buttons) << message.text;
    EXPECT_EQ(message.standard, step->message.standard) << message.text;
    return step->answer;
}

std::string FakePlatform::input(const InputRequest& request) {
    const auto step = next("input", request.prompt);
    if (!step) return {};
    EXPECT_EQ(request.prompt, step->prompt);
    EXPECT_EQ(request.title, step->title);
    return step->text;
}

std::vector<std::string> FakePlatform::pathsFor(const std::string& kind, const FileRequest& request) {
    const auto step = next(kind, request.title);
    if (!step) return {};
    EXPECT_EQ(request.title, step->title);
    EXPECT_EQ(request.directory, lastDir) << step->title;
    const std::string ofPictures = std::string(pictureFilter) + "|PNG Files (*.png)|*.png|SVG Files (*.svg)|*.svg";
    EXPECT_EQ(request.filter, step->title == "Select and image file" ? ofPictures : step->filter);
    EXPECT_EQ(request.filterIndex, step->filterIndex) << step->title;
    EXPECT_EQ(request.fileName, step->text) << step->title;
    EXPECT_EQ(request.multiple, step->title.find("(multiple selections allowed)") != std::string::npos) << step->title;
    EXPECT_EQ(request.overwritePrompt, kind == "save") << step->title;
    return step->paths;
}

std::optional<std::string> FakePlatform::saveFile(const FileRequest& request) {
    const auto paths = pathsFor("save", request);
    return paths.empty() || paths.front().empty() ? std::nullopt : std::optional(paths.front());
}

std::optional<int> FakePlatform::color(const std::string& title, int start) {
    colorTitle = title;
    colorStart = start;
    const auto step = next("color", "");
    return step ? step->color : std::nullopt;
}

std::optional<std::string> FakePlatform::folder(const std::string& title, const std::string& start) {
    const auto step = next("folder", title);
    EXPECT_EQ(start, lastDir) << title;
    EXPECT_EQ(title, step ? step->title : title);
    return step && !step->text.empty() ? std::optional(step->text) : std::nullopt;
}

std::shared_ptr<const Picture> FakePlatform::loadPicture(const std::string& path) {
    const auto size = pictures.find(path);
    if (size == pictures.end()) throw Error(error_number::invalidPicture, "Invalid picture");
    return std::make_shared<Picture>(size->second.first, size->second.second);
}

void FakePlatform::start(const std::vector<std::string>& words, const std::string& /*workingDirectory*/) {
    if (const auto failing = startFails.find(words.front()); failing != startFails.end())
        throw Error(failing->second, "cannot start " + words.front());
    std::string text = words.front();
    for (std::size_t word = 1; word < words.size(); ++word) text += "|" + words[word];
    started.push_back(text);
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
    if (const auto step = next("modal", form.name())) step->modal(form);
}

void FakePlatform::popupMenu(MenuItem& menu, const Control* /*below*/) {
    menu.clicked.raise();
    if (const auto step = next("popup", menu.name())) step->popup(menu);
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
