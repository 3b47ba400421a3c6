// SPDX-License-Identifier: GPL-3.0-or-later
#include "authoring/links.h"

#include "core/document_manager.h"
#include "editing/anchors.h"
#include "editing/insertion.h"
#include "files/paths.h"
#include "frame/file_dialogs.h"
#include "frame/main_frame.h"
#include "html/relative_path.h"
#include "platform/platform.h"
#include "support/user_settings.h"
#include "text/letter_case.h"

namespace kelvor {

void rClickLink(std::string_view prefix, std::string_view example) {
    const std::string answer = platform().dialogs.input(
        {.prompt = "Enter the link code.\r\n\r\nLink type: " + std::string(prefix) +
                   "\r\n\r\nYou need only enter the actual internet link link. Example: " + std::string(example),
         .title = "Enter Link Code"});
    if (answer.empty()) return activeText().SetFocus();
    insertAtSelection(openingAnchor(std::string(prefix) + answer), closingAnchor);
}

void linkFileSys() {
    const auto path = pickFile("Link to file on this system.");
    if (!path) return;
    insertAtSelection(openingAnchor(linkTarget(*path)), closingAnchor);
    activeText().SetFocus();
}

void nameAnchor() {
    const std::string name = askAnchorName();
    if (name.empty()) return;
    insertAtSelection(openingNameAnchor(name), closingAnchor);
    activeText().SetFocus();
}

void blankAnchor() {
    const std::string address = askAnchorUrl();
    if (address.empty()) return activeText().SetFocus();
    insertAtSelection(openingAnchor(address), closingAnchor);
}

std::string linkTarget(const std::string& path) {
    return linkTarget(mainForm().activeForm().caption(), path);
}

std::string linkTarget(std::string_view fromPath, const std::string& path) {
    const std::string target = useRelativePaths() ? makeRelativePath(fromPath, path) : path;
    return user::lowerCaseLinks.isTrue() ? toLower(target) : target;
}

bool useRelativePaths() {
    return user::relativeLinks.isTrue("True");
}

std::string makeRelativePath(std::string_view fromPath, std::string_view toPath) {
    const bool isUntitled = documentManager().currentDocument().IsUntitled();
    const bool slashes = user::slashesInLinks.isTrue("False");
    return relativePath(fromPath, toPath, isUntitled, slashes ? '/' : '\\');
}

}  // namespace kelvor
