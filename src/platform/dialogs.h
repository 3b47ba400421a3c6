// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace kelvor {

enum class MessageIcon { none, critical, question, exclamation, information };
enum class MessageButtons { ok, yesNo, yesNoCancel };
enum class Answer { ok, yes, no, cancel };

/// A message box as it is to be shown. Lines end in CR LF; any other control character comes from a name and is shown
/// as one.
struct Message {
    std::string text;
    /// Why it came to that, shown smaller under the text; "" when nobody knows.
    std::string cause = {};
    std::string title;
    MessageIcon icon = MessageIcon::none;
    MessageButtons buttons = MessageButtons::ok;
    /// The button that Enter presses; `ok` means the first one.
    Answer standard = Answer::ok;
};

struct InputRequest {
    std::string prompt;
    std::string title;
    std::string standard;
};

/// What a file dialog is opened with.
struct FileRequest {
    std::string title;
    std::string directory;
    /// "Name|patterns|Name|patterns", patterns parted by ";".
    std::string filter;
    /// The row of the filter shown first, from 1.
    int filterIndex = 1;
    /// The name offered by a save dialog.
    std::string fileName;
    bool multiple = false;
    bool overwritePrompt = false;
};

/// The dialogs that the desktop gives. All are modal and return when the user has answered.
class Dialogs {
public:
    virtual ~Dialogs() = default;
    /// Closing a box with Cancel among its buttons is Cancel; closing one with Yes and No alone is No.
    virtual Answer message(const Message& message) = 0;
    /// The text entered; "" when cancelled.
    virtual std::string input(const InputRequest& request) = 0;
    /// The chosen existing files; empty when cancelled.
    virtual std::vector<std::string> openFiles(const FileRequest& request) = 0;
    virtual std::optional<std::string> saveFile(const FileRequest& request) = 0;
    virtual std::optional<std::string> folder(const std::string& title, const std::string& start) = 0;
    /// Colours have red in the low byte.
    /// @param title  "" for the dialog's own
    /// @param start  the colour that is shown first
    virtual std::optional<int> color(const std::string& title, int start) = 0;
};

}  // namespace kelvor
