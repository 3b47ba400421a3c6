// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/report_view.h"

#include <QFontDatabase>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QTreeView>
#include <algorithm>
#include <utility>

#include "qt/binders/binders.h"
#include "qt/binders/column_widths.h"
#include "qt/binders/mouse_presses.h"
#include "qt/binders/report_rows.h"

namespace kelvor::qt {

namespace {

void setUpView(const ReportView& list, QTreeView& view) {
    view.setRootIsDecorated(false);
    view.setItemsExpandable(false);
    view.setExpandsOnDoubleClick(false);
    view.setUniformRowHeights(true);
    view.setAlternatingRowColors(false);
    view.setAllColumnsShowFocus(true);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setSortingEnabled(false);
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setSelectionMode(list.multiSelect() ? QAbstractItemView::ExtendedSelection
                                             : QAbstractItemView::SingleSelection);
    if (view.property("fixedWidth").toBool()) {
        view.header()->setFont(view.font());
        view.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    }
    view.header()->setSectionsClickable(true);
    view.header()->setSectionsMovable(false);
    view.header()->setHighlightSections(false);
}

/// When a selection changes the library compares each run of rows in it with each one of the new selection. Where there
/// are many runs the old ones go without being compared; who listens gets too little told of what is selected no more.
class RowSelection : public QItemSelectionModel {
public:
    using QItemSelectionModel::QItemSelectionModel;
    using QItemSelectionModel::select;

    void select(const QItemSelection& rows, SelectionFlags command) override {
        const bool many = std::max(selection().size(), rows.size()) > manyRuns;
        if (many && command.testFlag(Clear) && !rows.isEmpty()) {
            const QSignalBlocker blocker(this);
            QItemSelectionModel::select(QItemSelection(), Clear);
        }
        QItemSelectionModel::select(rows, command);
    }

private:
    static constexpr qsizetype manyRuns = 100;
};

/// Ascending, each once.
std::vector<int> rowsOf(const QItemSelection& selection) {
    std::vector<int> rows;
    for (const QItemSelectionRange& range : selection)
        for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

/// Keeps the selections of a control and its widget the same. The control's is shown soon and not at once: then a
/// program that selects row after row costs no more than one that does it in one step.
class Selections : public QObject {
public:
    Selections(ReportView& list, ReportRows& rows, QTreeView& view, FormLink& link)
        : QObject(&link), list_(list), rows_(rows), view_(view) {
        const QItemSelectionModel& selection = *view.selectionModel();
        connect(&selection, &QItemSelectionModel::selectionChanged, this, &Selections::take);
        connect(&selection, &QItemSelectionModel::currentChanged, this, &Selections::take);
        // The view itself paints only what it is told of, and RowSelection may leave out rows.
        connect(&selection, &QItemSelectionModel::selectionChanged, view.viewport(), qOverload<>(&QWidget::update));
    }

    void showSoon() {
        if (!std::exchange(pending_, true))
            QMetaObject::invokeMethod(
                this,
                [this] {
                    if (pending_) show();
                },
                Qt::QueuedConnection);
    }

    void show() {
        pending_ = false;
        const QScopedValueRollback showing(showing_, true);
        rows_.catchUp();
        QItemSelectionModel& selection = *view_.selectionModel();
        selection.select(selectedRuns(rows_, [this](int row) { return list_.isSelected(row); }),
                         QItemSelectionModel::ClearAndSelect);
        const int row = list_.selectedRow();
        if (row < 0) return selection.clearCurrentIndex();
        const QModelIndex current = rows_.index(row, 0);
        // One that is out of sight is shown with what stands round it.
        const bool isSeen = view_.viewport()->rect().intersects(view_.visualRect(current));
        selection.setCurrentIndex(current, QItemSelectionModel::NoUpdate);
        if (list_.isSelected(row))
            view_.scrollTo(current, isSeen ? QAbstractItemView::EnsureVisible : QAbstractItemView::PositionAtCenter);
    }

private:
    /// Gives the user's choice to the control. What the widget chooses by itself while it is told the control's rows
    /// or choice, or when it gets the focus before that, is none.
    void take() {
        if (showing_ || pending_ || rows_.noting()) return;
        guarded([this] {
            const std::vector<int> selected = rowsOf(view_.selectionModel()->selection());
            // A row that only has the focus frame is not chosen.
            list_.choose(selected.empty() ? -1 : view_.currentIndex().row(), selected);
        });
    }

    ReportView& list_;
    ReportRows& rows_;
    QTreeView& view_;
    bool showing_ = false;
    bool pending_ = false;
};

/// Gives Return over selected rows to a control that hears it; elsewhere it presses the window's default button. The
/// toolkit's own signal for it may come at a click too.
class ReturnKey : public QObject {
public:
    ReturnKey(ReportView& list, QTreeView& view, FormLink& link) : QObject(&link), list_(list), view_(view) {}

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || !list_.returnPressed.isConnected()) return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if ((key != Qt::Key_Return && key != Qt::Key_Enter) || !view_.selectionModel()->hasSelection()) return false;
        guarded([this] { list_.pressReturn(); });
        return true;
    }

private:
    ReportView& list_;
    QTreeView& view_;
};

}  // namespace

void bindReportView(ReportView& list, QTreeView& widget, FormLink& link) {
    setUpView(list, widget);
    auto* rows = new ReportRows(list, &link);
    showRows(widget, *rows, link);
    delete widget.selectionModel();
    widget.setSelectionModel(new RowSelection(rows, &link));
    widget.setItemDelegate(new ReportCells(&link));
    auto* selections = new Selections(list, *rows, widget, link);
    auto* widths = new ColumnWidths(list, widget, &link);
    list.followRows([rows, widths](const RowChange& change) {
        rows->note(change);
        widths->note(change);
    });
    QObject::connect(&link, &QObject::destroyed, [&list] { list.followRows({}); });
    link.follow(list, widget, [selections, widths](Aspect aspect) {
        if (aspect == Aspect::value) return widths->placeAsTold();
        selections->showSoon();
    });
    QObject::connect(&widget, &QTreeView::doubleClicked, &link,
                     [&list](const QModelIndex& index) { guarded([&] { list.doubleClick(index.row()); }); });
    QObject::connect(widget.header(), &QHeaderView::sectionClicked, &link, [&list, &widget, selections](int column) {
        guarded([&] { list.clickColumn(column); });
        // What is sorted is looked at from its begin, wherever the selected row has gone.
        selections->show();
        widget.scrollToTop();
    });
    widget.installEventFilter(new ReturnKey(list, widget, link));
    tellRowPresses(widget, link, [&list](const MousePress& press) { list.mouseDown.raise(press); });
}

}  // namespace kelvor::qt
