// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/compare.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/event.h"
#include "frame/tool_forms.h"
#include "text/code_points.h"
#include "text/counted.h"
#include "text/shown_name.h"
#include "text/text_difference.h"

namespace kelvor {

namespace {

using LineKind = DifferenceRow::Kind;

/// Columns of lstLines.
enum Column { leftNumber, leftText, difference, rightNumber, rightText };

/// In characters; a cell has no place for more, and the chosen line is shown whole.
constexpr std::size_t longestCell = 1000;

struct KindLook {
    const char* word;
    ReportView::Tint tint;
};

KindLook lookOf(LineKind kind) {
    static constexpr KindLook looks[] = {{"", ReportView::Tint::none},
                                         {"line end", ReportView::Tint::changed},
                                         {"changed", ReportView::Tint::changed},
                                         {"added", ReportView::Tint::added},
                                         {"removed", ReportView::Tint::removed}};
    return looks[static_cast<std::size_t>(kind)];
}

std::string numberOf(const TextLine& line) {
    return line.number > 0 ? std::to_string(line.number) : "";
}

std::string cellOf(const TextLine& line) {
    return std::string(line.text.substr(0, positionBehind(line.text, longestCell)));
}

ReportView::Row listRow(const DifferenceRow& row) {
    const KindLook look = lookOf(row.kind);
    return {.cells = {numberOf(row.left), cellOf(row.left), look.word, numberOf(row.right), cellOf(row.right)},
            .tint = look.tint};
}

std::string nameOf(std::string_view lineEnd) {
    if (lineEnd.empty()) return "with no line end";
    if (lineEnd == "\r\n") return "ended by CR LF";
    return lineEnd == "\n" ? "ended by LF" : "ended by CR";
}

/// @param side  with the mark of the access key
std::string lineCaption(const std::string& side, const TextLine& line) {
    if (line.number == 0) return side + ": no line here";
    return side + ": line " + numberOf(line) + ", " + nameOf(line.end);
}

/// Runs of lines that only end differently are stretches of their own: where they fill the text, what else differs is
/// still found.
std::vector<int> stretchesOf(const std::vector<DifferenceRow>& rows) {
    const auto manner = [](LineKind kind) {
        return kind == LineKind::same || kind == LineKind::lineEnd ? kind : LineKind::changed;
    };
    std::vector<int> stretches;
    LineKind before = LineKind::same;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        const LineKind now = manner(rows[row].kind);
        if (now != LineKind::same && now != before) stretches.push_back(static_cast<int>(row));
        before = now;
    }
    return stretches;
}

void selectIn(EditControl& edit, const TextChange& change, std::string_view piece) {
    edit.setSelStart(static_cast<int>(change.position));
    edit.setSelLength(static_cast<int>(piece.size()));
}

}  // namespace

std::string differenceSummary(const std::vector<DifferenceRow>& rows) {
    const auto count = [&rows](LineKind kind) {
        return std::count_if(rows.begin(), rows.end(), [kind](const DifferenceRow& row) { return row.kind == kind; });
    };
    std::string summary;
    for (const auto& [kind, word] :
         {std::pair{LineKind::added, " added"}, {LineKind::removed, " removed"}, {LineKind::changed, " changed"}}) {
        const auto number = count(kind);
        if (number > 0) summary += (summary.empty() ? counted(number, "line") : ", " + std::to_string(number)) + word;
    }
    const auto ends = std::count_if(rows.begin(), rows.end(), [](const DifferenceRow& row) {
        return row.left.number > 0 && row.right.number > 0 && row.left.end != row.right.end;
    });
    if (ends > 0) {
        summary += summary.empty() ? "The texts are the same; " : "; ";
        summary +=
            (ends == 1 ? "the end of " : "the ends of ") + counted(ends, "line") + (ends == 1 ? " differs" : " differ");
    }
    return summary.empty() ? "The texts are the same." : summary + ".";
}

Compare::Compare() : ToolDialog("frmCompare", "Compare") {
    for (const int column : {leftNumber, rightNumber}) lstLines.setRightAligned(column);
    for (const int column : {leftText, rightText}) lstLines.setTakesRoom(column);
    for (EditControl* field : {&rtbLeft, &rtbRight}) field->setReadOnly(true);
    for (Label* label : {&lblLeft, &lblRight}) label->setUseMnemonic(true);
}

void Compare::take(const ShownText& left, const ShownText& right) {
    lstLines.clear();
    left_ = left.text;
    right_ = right.text;
    rows_ = compareLines(left_, right_);
    stretches_ = stretchesOf(rows_);
    lblCounts.setCaption(differenceSummary(rows_));
    lstLines.setColumnCaption(leftText, shownName(left.title));
    lstLines.setColumnCaption(rightText, shownName(right.title));
    std::vector<ReportView::Row> rows;
    rows.reserve(rows_.size());
    std::transform(rows_.begin(), rows_.end(), std::back_inserter(rows), listRow);
    lstLines.addRows(std::move(rows));
}

void Compare::Form_Load() {
    if (rows_.empty()) lstLines_Chosen();
    if (!rows_.empty()) lstLines.setSelectedRow(stretches_.empty() ? 0 : stretches_.front());
    lstLines.SetFocus();
}

void Compare::lstLines_Chosen() {
    const int row = lstLines.selectedRow();
    showRow(row < 0 ? DifferenceRow() : rows_[static_cast<std::size_t>(row)]);
    cmdNext.setEnabled(!stretches_.empty() && row < stretches_.back());
    cmdPrevious.setEnabled(!stretches_.empty() && row > stretches_.front());
}

void Compare::showRow(const DifferenceRow& row) {
    lblLeft.setCaption(lineCaption("&Left", row.left));
    lblRight.setCaption(lineCaption("&Right", row.right));
    rtbLeft.startText(row.left.text);
    rtbRight.startText(row.right.text);
    if (row.kind != LineKind::changed) return;
    const TextChange change = changeBetween(row.left.text, row.right.text);
    selectIn(rtbLeft, change, change.removed);
    selectIn(rtbRight, change, change.inserted);
}

void Compare::cmdNext_Click() {
    const auto next = std::upper_bound(stretches_.begin(), stretches_.end(), lstLines.selectedRow());
    if (next != stretches_.end()) lstLines.setSelectedRow(*next);
}

void Compare::cmdPrevious_Click() {
    const auto next = std::lower_bound(stretches_.begin(), stretches_.end(), lstLines.selectedRow());
    if (next != stretches_.begin()) lstLines.setSelectedRow(*std::prev(next));
}

void compareTexts(const ShownText& left, const ShownText& right) {
    const EventScope scope;
    toolForm<Compare>().take(left, right);
    openToolForm(toolForm<Compare>(), ShowMode::modal);
}

}  // namespace kelvor
