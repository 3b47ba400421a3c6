// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/messages.h"

#include "platform/platform.h"

namespace kelvor {

Answer showCritical(const std::string& title, const std::string& text, const std::string& cause) {
    return beepAndShow({.text = text, .cause = cause, .title = title, .icon = MessageIcon::critical});
}

bool confirmDeletion(const std::string& question) {
    return platform().dialogs.message({.text = question,
                                       .title = "Delete confirmation",
                                       .icon = MessageIcon::question,
                                       .buttons = MessageButtons::yesNo,
                                       .standard = Answer::no}) == Answer::yes;
}

bool validFileName(std::string_view name) {
    if (name.find_first_of("\\/:*?\"<>|") == std::string_view::npos) return true;
    showCritical("Illegal filename",
                 "A filename cannot contain any of the following characters:\r\n\\ / : * ? \" < > |");
    return false;
}

void reportOpenError(const std::string& file, const std::string& cause) {
    showCritical("File open error",
                 "An error occurred while opening " + file +
                     "\r\nMake sure that the file is not already locked by another application.",
                 cause);
}

void reportEmptyFields() {
    beepAndShow({.text = "All fields must be filled in prior to insertion.",
                 .title = "Empty fields",
                 .icon = MessageIcon::exclamation});
}

void reportFileMissing(const std::string& file) {
    beepAndShow(
        {.text = "The file " + file + " does not exist", .title = "File not found", .icon = MessageIcon::exclamation});
}

void reportSaveError(const std::string& file, const std::string& cause) {
    showCritical("File Save Error", "An error occured while saving the file [" + file + "].", cause);
}

}  // namespace kelvor
