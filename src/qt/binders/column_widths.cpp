// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/binders/column_widths.h"

#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QStyle>
#include <QTreeView>
#include <algorithm>
#include <numeric>
#include <utility>

#include "controls/report_view.h"
#include "qt/convert.h"

namespace kelvor::qt {

namespace {

constexpr int twipsPerInch = 1440;

/// Of many rows so many, evenly spread, are enough to know how wide the texts are.
constexpr int sampleSize = 200;

}  // namespace

ColumnWidths::ColumnWidths(const ReportView& list, QTreeView& view, QObject* parent)
    : QObject(parent), list_(list), view_(view), needed_(list.columns().size(), 0) {
    QHeaderView& header = *view.header();
    header.setStretchLastSection(true);
    connect(&header, &QHeaderView::sectionResized, this, [this, &header](int column) {
        // The last column follows the window by itself.
        const bool byMouse = QGuiApplication::mouseButtons() != Qt::NoButton;
        if (byMouse && !placing_ && column != header.count() - 1) drawn_ = true;
    });
    view.viewport()->installEventFilter(this);
    if (list.count() > 0) measure(0, static_cast<int>(list.count()) - 1);
    place();
}

void ColumnWidths::note(const RowChange& change) {
    const std::vector<int> before = needed_;
    if (list_.count() == 0) needed_.assign(needed_.size(), 0);
    const bool all = change.kind == RowChange::Kind::renewed;
    if (change.kind != RowChange::Kind::removed)
        measure(all ? 0 : change.first, all ? static_cast<int>(list_.count()) - 1 : change.last);
    if (needed_ != before) placeSoon();
}

void ColumnWidths::measure(int first, int last) {
    const QFontMetrics metrics = view_.fontMetrics();
    const QStyle& style = *view_.style();
    const int margins = 2 * (style.pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &view_) + 1);
    const int iconWidth = style.pixelMetric(QStyle::PM_SmallIconSize, nullptr, &view_) + margins;
    const int step = std::max(1, (last - first + 1) / sampleSize);
    for (int row = first; row <= last; row += step) {
        for (int column = 0; column < static_cast<int>(needed_.size()); ++column) {
            const bool hasIcon = column == 0 && list_.rows()[static_cast<std::size_t>(row)].icon > 0;
            const int width = metrics.horizontalAdvance(rowText(list_.cell(row, column))) + margins + 1;
            int& needed = needed_[static_cast<std::size_t>(column)];
            needed = std::max(needed, width + (hasIcon ? iconWidth : 0));
        }
    }
}

void ColumnWidths::placeSoon() {
    if (std::exchange(pending_, true)) return;
    QMetaObject::invokeMethod(
        this, [this] { place(); }, Qt::QueuedConnection);
}

/// 0 for a column that nobody has told a width for.
int ColumnWidths::toldWidth(int column) const {
    return list_.columnWidth(column) * view_.logicalDpiX() / twipsPerInch;
}

/// By the header and the contents, in pixels.
int ColumnWidths::neededWidth(int column) const {
    return std::max(needed_[static_cast<std::size_t>(column)], view_.header()->sectionSizeHint(column));
}

/// How wide a column may become so that together they take `space`.
int ColumnWidths::shareOf(int space) const {
    std::vector<int> widths;
    for (int column = 0; column < view_.header()->count(); ++column) {
        if (toldWidth(column) > 0) {
            space -= toldWidth(column);
        } else {
            widths.push_back(neededWidth(column));
        }
    }
    std::sort(widths.begin(), widths.end());
    int open = static_cast<int>(widths.size());
    for (const int width : widths) {
        if (width > space / open) return space / open;
        space -= width;
        --open;
    }
    return widths.empty() ? 0 : widths.back();
}

/// Widens columns that together are narrower than the room: those that are to take it, or the last one of texts whose
/// width nobody has told, or else all of them alike.
void ColumnWidths::fill(int room, std::vector<int>& widths) const {
    const int needed = std::accumulate(widths.begin(), widths.end(), 0);
    if (needed >= room) return;
    if (shareRoom(room - needed, widths)) return;
    for (int column = static_cast<int>(widths.size()) - 1; column >= 0; --column) {
        if (toldWidth(column) > 0 || list_.isRightAligned(column)) continue;
        widths[static_cast<std::size_t>(column)] += room - needed;
        return;
    }
    for (int& width : widths) width = width * room / needed;
}

/// Makes the columns that take room equally wide, or equally wider where one needs more than that; false for none.
bool ColumnWidths::shareRoom(int room, std::vector<int>& widths) const {
    std::vector<int*> takers;
    for (int column = 0; column < static_cast<int>(widths.size()); ++column)
        if (list_.takesRoom(column)) takers.push_back(&widths[static_cast<std::size_t>(column)]);
    if (takers.empty()) return false;
    const int count = static_cast<int>(takers.size());
    int all = room;
    int widest = 0;
    for (const int* width : takers) {
        all += *width;
        widest = std::max(widest, *width);
    }
    for (int* width : takers) *width = widest <= all / count ? all / count : *width + room / count;
    return true;
}

void ColumnWidths::placeAsTold() {
    drawn_ = false;
    place();
}

void ColumnWidths::place() {
    pending_ = false;
    if (drawn_) return;
    const QScopedValueRollback placing(placing_, true);
    QHeaderView& header = *view_.header();
    const int room = view_.viewport()->width();
    const int share = shareOf(room);
    std::vector<int> widths;
    for (int column = 0; column < header.count(); ++column) {
        const int told = toldWidth(column);
        const int fitting = std::max(std::min(neededWidth(column), share), header.minimumSectionSize());
        widths.push_back(told > 0 ? told : fitting);
    }
    fill(room, widths);
    for (int column = 0; column < header.count(); ++column)
        header.resizeSection(column, widths[static_cast<std::size_t>(column)]);
}

bool ColumnWidths::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() == QEvent::Resize) place();
    return false;
}

}  // namespace kelvor::qt
