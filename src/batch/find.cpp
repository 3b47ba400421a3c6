// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/find.h"

#include <algorithm>

#include "core/document.h"
#include "editing/insertion.h"
#include "frame/edit_window.h"
#include "frame/main_frame.h"
#include "frame/tool_forms.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "support/fields.h"
#include "support/user_settings.h"
#include "text/code_points.h"

namespace kelvor {

namespace {

constexpr std::size_t historySize = 5;
const std::string firstSearch = "&Find";
const std::string nextSearch = "Find &Next";

std::vector<Setting> storedHistory() {
    return user::searchedTexts.all().value_or(std::vector<Setting>());
}

const Message nothingFound = {
    .text = "Search string not found.", .title = "Find Results", .icon = MessageIcon::information};

const Message noTextToFind = {
    .text = "You must enter some text to find!", .title = "Find text error", .icon = MessageIcon::exclamation};

}  // namespace

Find::Find() : ToolDialog("find", "Find", AtEnd::focusDocument) {
    documentClosed_ = CDocument::closed().connectScoped([this] { docCaption_.clear(); });
    selectThemselves(cboFindText);
}

void Find::Form_Load() {
    const EditWindow& window = mainForm().activeForm();
    searchEnd_ = window.Text1.textLength();
    docCaption_ = window.caption();
    // A store that cannot be read is told, and the search works without its history.
    guarded([this] { fillFindHist(); });
    if (window.Text1.selLength() > 0) cboFindText.setText(window.Text1.selText());
}

void Find::fillFindHist() {
    for (const Setting& setting : storedHistory()) cboFindText.addItem(setting.value);
}

bool Find::IsInFindHist(const std::string& text) const {
    const auto& rows = cboFindText.list();
    return std::find(rows.begin(), rows.end(), text) != rows.end();
}

void Find::cboFindText_Change() {
    searchStart_ = 0;
    foundAt_ = 0;
    cmdFind.setCaption(firstSearch);
}

void Find::cmdFind_Click() {
    const std::string text = cboFindText.text();
    if (refuseEmptyFindText(text)) return cboFindText.SetFocus();
    followDocument();
    remember(text);
    search(activeText(), text);
    cmdFind.setCaption(foundAt_ < 0 ? firstSearch : nextSearch);
    if (foundAt_ >= 0) return;
    platform().dialogs.message(nothingFound);
}

void Find::followDocument() {
    const EditWindow& window = mainForm().activeForm();
    if (window.caption() == docCaption_) return;
    docCaption_ = window.caption();
    searchStart_ = 0;
    searchEnd_ = window.Text1.textLength();
    foundAt_ = 0;
}

void Find::remember(const std::string& text) {
    if (!IsInFindHist(text)) guarded([&] { addFindToReg(text); });
    if (cmdFind.caption() == firstSearch) cboFindText.insertItem(0, text);
}

void Find::search(EditControl& edit, const std::string& text) {
    edit.setSelLength(0);
    foundAt_ = edit.Find(text, searchStart_, searchEnd_, searchOptions(chkWord, chkCase));
    if (foundAt_ >= 0) edit.uncoverSelection();
    // A search that failed goes on one character in front of where a match at the very top would end.
    searchStart_ = foundAt_ < 0 ? static_cast<int>(positionBehind(edit.textView(), characterCount(text) - 1))
                                : foundAt_ + edit.selLength();
}

void addFindToReg(const std::string& text) {
    const auto stored = storedHistory();
    const auto save = [](std::size_t number, const std::string& value) {
        user::searchedTexts.store("FindItem" + std::to_string(number), value);
    };
    if (stored.size() < historySize) return save(stored.size() + 1, text);
    save(1, text);
    for (std::size_t number = 2; number <= stored.size(); ++number) save(number, stored[number - 2].value);
}

SearchOptions searchOptions(const CheckBox& wholeWord, const CheckBox& matchCase) {
    return {.wholeWord = wholeWord.value(), .matchCase = matchCase.value(), .anyLineEnd = true};
}

bool refuseEmptyFindText(const std::string& text) {
    if (!text.empty()) return false;
    beepAndShow(noTextToFind);
    return true;
}

void mnuEdit_Find_Click() {
    openToolForm(toolForm<Find>(), ShowMode::floating);
}

}  // namespace kelvor
