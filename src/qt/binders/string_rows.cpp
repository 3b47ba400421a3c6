// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/binders/string_rows.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <utility>

#include "qt/convert.h"
#include "qt/form_link.h"

namespace kelvor::qt {

namespace {

/// In milliseconds; the time between two inserts of rows that come one by one.
constexpr int insertPause = 50;

}  // namespace

FollowedRows::FollowedRows(std::function<std::size_t()> count, QObject* parent)
    : QAbstractTableModel(parent), countNow_(std::move(count)), count_(static_cast<int>(countNow_())) {
    pause_.setSingleShot(true);
    connect(&pause_, &QTimer::timeout, this, &FollowedRows::catchUp);
}

void FollowedRows::renew() {
    beginResetModel();
    count_ = static_cast<int>(countNow_());
    waiting_ = 0;
    endResetModel();
}

void FollowedRows::catchUp() {
    if (waiting_ == 0) return;
    beginInsertRows({}, count_, count_ + waiting_ - 1);
    count_ += std::exchange(waiting_, 0);
    endInsertRows();
    pause_.start(insertPause);
}

void FollowedRows::note(const RowChange& change) {
    const QScopedValueRollback noting(noting_, true);
    const int rows = change.last - change.first + 1;
    if (change.kind == RowChange::Kind::inserted && change.first == count_ + waiting_) {
        waiting_ += rows;
        if (!pause_.isActive()) catchUp();
        return;
    }
    catchUp();
    switch (change.kind) {
        case RowChange::Kind::inserted:
            beginInsertRows({}, change.first, change.last);
            count_ += rows;
            return endInsertRows();
        case RowChange::Kind::removed:
            beginRemoveRows({}, change.first, change.last);
            count_ -= rows;
            return endRemoveRows();
        case RowChange::Kind::changed:
            emit dataChanged(index(change.first, 0), index(change.last, columnCount() - 1));
            return;
        case RowChange::Kind::renewed:
            return renew();
    }
}

int FollowedRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count_;
}

StringRows::StringRows(const std::vector<std::string>& rows, QObject* parent, Editor editor)
    : FollowedRows([&rows] { return rows.size(); }, parent), rows_(rows), editor_(std::move(editor)) {
}

int StringRows::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 1;
}

QVariant StringRows::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if ((role != Qt::DisplayRole && role != Qt::EditRole) || row >= rows_.size()) return {};
    return role == Qt::DisplayRole ? rowText(rows_[row]) : toQt(rows_[row]);
}

Qt::ItemFlags StringRows::flags(const QModelIndex& index) const {
    const auto flags = FollowedRows::flags(index);
    return editor_ ? flags | Qt::ItemIsEditable : flags;
}

bool StringRows::setData(const QModelIndex& index, const QVariant& value, int role) {
    return editor_ && role == Qt::EditRole && editor_(index.row(), fromQt(value.toString()));
}

QSize RowCells::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    constexpr int room = 4;  // pixels
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, room);
}

void showRows(QAbstractItemView& view, QAbstractItemModel& rows, FormLink& link) {
    view.setModel(&rows);
    QObject::connect(&link, &QObject::destroyed, &view, [&view] { view.setModel(nullptr); });
}

QItemSelection selectedRuns(const QAbstractItemModel& rows, const std::function<bool(int row)>& isSelected) {
    const int count = rows.rowCount();
    const int lastColumn = rows.columnCount() - 1;
    QItemSelection runs;
    for (int first = 0; first < count; ++first) {
        if (!isSelected(first)) continue;
        int last = first;
        while (last + 1 < count && isSelected(last + 1)) ++last;
        runs.select(rows.index(first, 0), rows.index(last, lastColumn));
        first = last;
    }
    return runs;
}

namespace {

class ListKeys : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() != QEvent::ShortcutOverride) return false;
        const auto& key = static_cast<const QKeyEvent&>(*event);
        for (const auto own : {QKeySequence::SelectAll, QKeySequence::Copy, QKeySequence::Cut, QKeySequence::Paste})
            if (key.matches(own)) event->accept();
        return false;
    }
};

}  // namespace

void keepListKeys(QWidget& list) {
    list.installEventFilter(new ListKeys(&list));
}

}  // namespace kelvor::qt
