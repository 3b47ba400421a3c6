// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/recovered_texts.h"

#include <algorithm>
#include <utility>

#include "base/event.h"
#include "base/outcome.h"
#include "core/file_open.h"
#include "core/look.h"
#include "files/files.h"
#include "frame/tool_forms.h"
#include "platform/platform.h"
#include "support/messages.h"
#include "support/moments.h"
#include "text/counted.h"
#include "text/line_difference.h"
#include "text/shown_name.h"
#include "text/text_encoding.h"

namespace kelvor {

namespace {

/// Columns of lstTexts.
constexpr int nameColumn = 0;
constexpr int sizeColumn = 2;

/// The text of a document's file as it is on the disk; nothing for one that is not there or cannot be read.
std::optional<std::string> textOnDisk(const JournalHeader& header) {
    if (header.isUntitled) return std::nullopt;
    auto bytes = readFileIfPossible(header.name);
    return bytes ? std::optional(decode(std::move(*bytes)).text) : std::nullopt;
}

}  // namespace

std::string leftTextSize(const LeftJournal& journal) {
    if (journal.fault != JournalFault::none) return {};
    return counted(journal.textLength, "byte");
}

std::string leftTextName(const LeftJournal& journal) {
    if (journal.fault == JournalFault::unreadable) return "(cannot be read)";
    if (journal.fault == JournalFault::newer) return "(made by a newer version of Kelvor)";
    return shownName(journal.header.name);
}

std::string describeLeftText(const JournalContent& content, std::optional<std::string_view> onDisk) {
    if (content.fault != JournalFault::none) return causeOf(content.fault);
    const LineCounts lines = countDifferences(onDisk.value_or(""), content.text);
    std::string told = "Lines added: " + std::to_string(lines.added);
    if (onDisk) {
        told += ", removed: " + std::to_string(lines.removed) + ", against the file on the disk.";
    } else {
        told += content.header.isUntitled ? ". There is no file of it yet." : ". There is no file of it any more.";
    }
    if (!content.save) return told;
    if (content.save->path != content.header.name)
        told += " It was being saved as " + shownName(content.save->path) + ".";
    if (content.save->path == content.header.name && onDisk == content.text)
        return told + " It was being saved, and the file has all of it.";
    return told + " The file on the disk may be half written.";
}

RecoveredTexts::RecoveredTexts() : ToolDialog("frmRecovered", "Unsaved Texts") {
    lblTexts.setUseMnemonic(true);
    lstTexts.setMultiSelect(true);
    lstTexts.setRightAligned(sizeColumn);
    lstTexts.setTakesRoom(nameColumn);
}

void RecoveredTexts::take(LeftJournals journals) {
    journals_ = std::move(journals.newest);
    others_ = journals.others;
}

void RecoveredTexts::Form_Load() {
    std::vector<ReportView::Row> rows;
    for (const auto& journal : journals_)
        rows.push_back({{leftTextName(*journal), shownMoment(journal->written), leftTextSize(*journal)}});
    lstTexts.addRows(std::move(rows));
    lblOthers.setVisible(others_ > 0);
    lblOthers.setCaption(std::to_string(others_) + " older ones are offered at a later start, when these are gone.");
    lstTexts.setSelectedRow(0);
    lstTexts.SetFocus();
}

std::vector<int> RecoveredTexts::chosenRows() const {
    std::vector<int> rows;
    for (int row = 0; row < static_cast<int>(lstTexts.count()); ++row)
        if (lstTexts.isSelected(row)) rows.push_back(row);
    return rows;
}

std::string RecoveredTexts::about(const LeftJournal& journal) {
    if (journal.fault != JournalFault::none) return causeOf(journal.fault);
    const Hourglass hourglass;
    const JournalContent content = readLeftJournal(journal);
    return describeLeftText(content, textOnDisk(content.header));
}

void RecoveredTexts::lstTexts_Chosen() {
    const std::vector<int> rows = chosenRows();
    const auto isText = [this](int row) {
        return journals_[static_cast<std::size_t>(row)]->fault == JournalFault::none;
    };
    cmdBringBack.setEnabled(std::any_of(rows.begin(), rows.end(), isText));
    cmdLook.setEnabled(rows.size() == 1 && isText(rows.front()));
    cmdDiscard.setEnabled(!rows.empty());
    lblAbout.setCaption("");
    if (rows.size() == 1) lblAbout.setCaption(about(*journals_[static_cast<std::size_t>(rows.front())]));
    if (rows.size() > 1) lblAbout.setCaption(std::to_string(rows.size()) + " are selected.");
}

/// Does something with each selected row, from the top; those with which it is done go. The window goes with the last.
template <typename Act>
void RecoveredTexts::withChosen(Act act) {
    std::vector<int> rows = chosenRows();
    std::size_t gone = 0;
    for (const int row : rows) {
        const std::size_t index = static_cast<std::size_t>(row) - gone;
        if (!act(*journals_[index])) continue;
        journals_.erase(journals_.begin() + static_cast<std::ptrdiff_t>(index));
        lstTexts.removeRow(static_cast<int>(index));
        ++gone;
    }
    if (journals_.empty()) {
        unload();
    } else {
        lstTexts_Chosen();
    }
}

void RecoveredTexts::cmdBringBack_Click() {
    const Hourglass hourglass;
    withChosen(bringBack);
    if (isLoaded()) activate();
}

bool RecoveredTexts::bringBack(LeftJournal& journal) {
    if (journal.fault != JournalFault::none) return false;
    const Outcome opened = openLeftText(journal);
    if (!opened) reportOpenError(leftTextName(journal), opened.cause());
    return bool(opened);
}

void RecoveredTexts::cmdLook_Click() {
    const LeftJournal& journal = *journals_[static_cast<std::size_t>(lstTexts.selectedRow())];
    const JournalContent content = readLeftJournal(journal);
    if (content.fault == JournalFault::none) lookAtText({.title = leftTextName(journal), .text = content.text});
}

void RecoveredTexts::cmdDiscard_Click() {
    const std::vector<int> rows = chosenRows();
    const std::string which = rows.size() == 1 ? "the unsaved text [" + lstTexts.cell(rows.front(), 0) + "]"
                                               : "the " + std::to_string(rows.size()) + " selected texts";
    if (!confirmDeletion("Do you want to discard " + which + "?\r\nNothing will be left of what was not saved."))
        return;
    withChosen([](const LeftJournal& journal) {
        discardLeftJournal(journal);
        return true;
    });
}

void offerLeftTexts() {
    LeftJournals left = findLeftJournals();
    if (left.newest.empty()) return;
    toolForm<RecoveredTexts>().take(std::move(left));
    openToolForm(toolForm<RecoveredTexts>(), ShowMode::modal);
}

}  // namespace kelvor
