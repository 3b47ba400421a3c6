// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/dialogs.h"

namespace kelvor {

/// A box with the one button that means OK, by its icon.
inline Message critical(const std::string& text, const std::string& title, const std::string& cause = {}) {
    return {.text = text, .cause = cause, .title = title, .icon = MessageIcon::critical};
}
inline Message exclamation(const std::string& text, const std::string& title) {
    return {.text = text, .title = title, .icon = MessageIcon::exclamation};
}
inline Message information(const std::string& text, const std::string& title) {
    return {.text = text, .title = title, .icon = MessageIcon::information};
}
/// A box that asks; Enter presses its first button.
inline Message question(const std::string& text, const std::string& title,
                        MessageButtons buttons = MessageButtons::yesNo) {
    return {.text = text, .title = title, .icon = MessageIcon::question, .buttons = buttons};
}

/// The question before something of a list goes for good.
inline Message deletion(const std::string& text) {
    return {.text = text,
            .title = "Delete confirmation",
            .icon = MessageIcon::question,
            .buttons = MessageButtons::yesNo,
            .standard = Answer::no};
}

/// The title of the dialog that opens documents.
constexpr const char* openTitle = "Open HTML file (multiple selections allowed)";

/// What the user is told of a file: it is not there, cannot be opened, cannot be saved; and why.
inline Message noSuchFile(const std::string& path) {
    return exclamation("The file " + path + " does not exist.", "File Open Error");
}
inline Message openError(const std::string& path, const std::string& cause = {}) {
    return critical("An error occurred while opening " + path +
                        "\r\nMake sure that the file is not already locked by another application.",
                    "File open error", cause);
}
inline Message saveError(const std::string& path, const std::string& cause = {}) {
    return critical("An error occured while saving the file [" + path + "].", "File Save Error", cause);
}

}  // namespace kelvor
