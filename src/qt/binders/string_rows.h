// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>
#include <QItemSelection>
#include <QStyledItemDelegate>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "controls/list_rows.h"

class QAbstractItemView;

namespace kelvor::qt {

class FormLink;

/// The rows of a list control for a widget to show, read where they are: a list of any length is
/// filled row by row without being copied at each row. To be told each change, behind it. Rows that come one by one
/// are shown several at a time, for the widget looks at all its rows again after each insert.
class FollowedRows : public QAbstractTableModel {
public:
    /// @param count  gives the control's number of rows
    FollowedRows(std::function<std::size_t()> count, QObject* parent);

    void renew();
    void note(const RowChange& change);
    /// Whether a change is being told to the widget; what it chooses by itself then is no act of the user.
    bool noting() const { return noting_; }
    /// Shows what has come at the end by now.
    void catchUp();

    int rowCount(const QModelIndex& parent = {}) const override;

private:
    std::function<std::size_t()> countNow_;
    int count_;        ///< as the widget knows it; the control may be ahead
    int waiting_ = 0;  ///< rows at the end that the widget does not know of
    bool noting_ = false;
    QTimer pause_;  ///< runs from one insert to the next that may come
};

/// Rows of one text each.
class StringRows : public FollowedRows {
public:
    /// Takes a row's new text from the user; false refuses it.
    using Editor = std::function<bool(int row, const std::string& text)>;

    /// `rows` must live as long as this. Without an editor the rows cannot be edited.
    StringRows(const std::vector<std::string>& rows, QObject* parent, Editor editor = {});

    QModelIndex indexOf(int row) const { return index(row, 0); }

    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    const std::vector<std::string>& rows_;
    Editor editor_;
};

/// Paints the rows of a list with some room between them, so that the accents of capitals are whole.
class RowCells : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

/// Shows `rows`, which end with the link, in `view`, which may outlive them.
void showRows(QAbstractItemView& view, QAbstractItemModel& rows, FormLink& link);

/// The selected ones of the rows, run by run over all columns.
QItemSelection selectedRuns(const QAbstractItemModel& rows, const std::function<bool(int row)>& isSelected);

/// Lets a list have the keys for its own selection and clipboard, which the Edit menu would take for the text
/// otherwise.
void keepListKeys(QWidget& list);

}  // namespace kelvor::qt
