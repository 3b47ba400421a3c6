#pragma once

#include <chrono>
#include <map>
#include <string>

#include "platform/dialogs.h"

namespace kelvor::bench {

/// Answers each message at once, questions with Yes, and cancels the other dialogs.
class Answers : public Dialogs {
public:
    Answer message(const Message& message) override {
        lastText = message.text;
        shown[message.title] = std::chrono::steady_clock::now();
        return message.buttons == MessageButtons::ok ? Answer::ok : Answer::yes;
    }
    std::string input(const InputRequest& /*request*/) override { return {}; }
    std::vector<std::string> openFiles(const FileRequest& /*request*/) override { return {}; }
    std::optional<std::string> saveFile(const FileRequest& /*request*/) override { return {}; }
    std::optional<int> color(const std::string& /*title*/, int /*start*/) override { return {}; }
    std::optional<std::string> folder(const std::string& /*title*/, const std::string& /*start*/) override {
        return {};
    }

    std::string lastText;
    /// When a message of that title came last.
    std::map<std::string, std::chrono::steady_clock::time_point> shown;
};

}  // namespace kelvor::bench
