// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QIcon>
#include <QPalette>

#include "controls/report_view.h"
#include "qt/binders/string_rows.h"

namespace kelvor::qt {

/// A row's colour on a background of the palette's, on which its texts can be read as well; an invalid one for none.
QColor tintColor(ReportView::Tint tint, const QPalette& palette);

/// The rows of a report view in their columns.
class ReportRows : public FollowedRows {
public:
    ReportRows(const ReportView& list, QObject* parent);

    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QVariant alignmentOf(int column) const;

    const ReportView& list_;
    std::vector<QIcon> icons_;  ///< the first has number 1
};

/// Paints the cells: paths, which stand in the first column, are cut in the middle, other texts at their end. A tool
/// tip shows what is cut.
class ReportCells : public RowCells {
public:
    using RowCells::RowCells;

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace kelvor::qt
