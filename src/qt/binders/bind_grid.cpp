// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/grid.h"

#include <qdrawutil.h>
#include <QAbstractTableModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <QTableView>

#include "html/colors.h"
#include "qt/binders/binders.h"
#include "qt/binders/string_rows.h"
#include "qt/convert.h"

namespace kelvor::qt {

namespace {

/// The cells for the view, read where they are.
class GridCells : public QAbstractTableModel {
public:
    GridCells(const Grid& grid, QObject* parent)
        : QAbstractTableModel(parent), grid_(grid), rows_(grid.rows()), cols_(grid.cols()) {}

    void renew() {
        beginResetModel();
        rows_ = grid_.rows();
        cols_ = grid_.cols();
        endResetModel();
    }
    void renewCell(int row, int col) { emit dataChanged(index(row, col), index(row, col)); }

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : cols_; }

    QVariant data(const QModelIndex& index, int role) const override {
        if (index.row() >= grid_.rows() || index.column() >= grid_.cols()) return {};
        const Grid::Cell& cell = grid_.cell(index.row(), index.column());
        switch (role) {
            case Qt::DisplayRole:
                return rowText(cell.text);
            case Qt::AccessibleTextRole:
                return place(index) + QLatin1Char(' ') + rowText(cell.text);
            case Qt::BackgroundRole:
                return cell.backColor == 0 ? QVariant() : colorToQt(cell.backColor);
            case Qt::ForegroundRole:
                return cell.backColor == 0 ? QVariant() : colorToQt(legibleOn(cell.backColor));
            default:
                return {};
        }
    }

private:
    /// For those who do not see the headerless cells.
    static QString place(const QModelIndex& index) {
        return QStringLiteral("C%1 : R%2").arg(index.column() + 1).arg(index.row() + 1);
    }

    const Grid& grid_;
    int rows_;  ///< as the view knows them
    int cols_;
};

/// Paints the current cell in its own colour within a frame, where it has one.
class CellPainter : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const bool isFramed = option.state.testFlag(QStyle::State_Selected) && index.data(Qt::BackgroundRole).isValid();
        QStyleOptionViewItem shown(option);
        if (isFramed) shown.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus);
        QStyledItemDelegate::paint(painter, shown, index);
        if (!isFramed) return;
        constexpr int width = 3;  // pixels
        qDrawPlainRect(painter, option.rect, option.palette.highlight().color(), width);
    }
};

/// Joins the current cells of a control and its view, and gives the control the user's clicks and Enter. The view
/// itself gets no click: a press would be a move to the cell, and a drag would be many.
class GridActs : public QObject {
public:
    GridActs(Grid& grid, GridCells& cells, QTableView& view, FormLink& link)
        : QObject(&link), grid_(grid), cells_(cells), view_(view) {
        view.installEventFilter(this);
        view.viewport()->installEventFilter(this);
        connect(view.selectionModel(), &QItemSelectionModel::currentChanged, this, &GridActs::move);
    }

    void show(Aspect aspect) {
        const QScopedValueRollback showing(showing_, true);
        if (aspect == Aspect::list) cells_.renew();
        view_.setCurrentIndex(cells_.index(grid_.row(), grid_.col()));
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress && watched == &view_) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            return (key == Qt::Key_Return || key == Qt::Key_Enter) && click(view_.currentIndex());
        }
        const bool presses = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
        if (watched == &view_ || !(presses || event->type() == QEvent::MouseMove)) return false;
        const auto& mouse = static_cast<const QMouseEvent&>(*event);
        if (presses && mouse.button() == Qt::LeftButton) click(view_.indexAt(mouse.position().toPoint()));
        return presses || mouse.buttons() != Qt::NoButton;
    }

private:
    bool click(const QModelIndex& index) {
        if (index.isValid()) guarded([&] { grid_.click(index.row(), index.column()); });
        return index.isValid();
    }

    void move(const QModelIndex& index) {
        if (!showing_ && index.isValid()) guarded([&] { grid_.move(index.row(), index.column()); });
    }

    Grid& grid_;
    GridCells& cells_;
    QTableView& view_;
    bool showing_ = false;
};

/// There are no fixed rows and columns, and Tab leaves the view.
void setUpView(QTableView& view) {
    view.horizontalHeader()->hide();
    view.verticalHeader()->hide();
    view.setTabKeyNavigation(false);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setSelectionMode(QAbstractItemView::SingleSelection);
    view.setWordWrap(false);
    view.setItemDelegate(new CellPainter(&view));
}

}  // namespace

void bindGrid(Grid& grid, QTableView& widget, FormLink& link) {
    setUpView(widget);
    auto* cells = new GridCells(grid, &link);
    showRows(widget, *cells, link);
    auto* acts = new GridActs(grid, *cells, widget, link);
    grid.followCells([cells](int row, int col) { cells->renewCell(row, col); });
    QObject::connect(&link, &QObject::destroyed, [&grid] { grid.followCells({}); });
    link.follow(grid, widget, [acts](Aspect aspect) { acts->show(aspect); });
}

}  // namespace kelvor::qt
