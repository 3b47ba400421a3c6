// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <vector>

#include "controls/list_rows.h"

class QTreeView;

namespace kelvor {
class ReportView;
}

namespace kelvor::qt {

/// Gives the columns of a report view their widths: the one told for a column, or as much as its header and its longest
/// texts need. Where these do not fit, the widest give way to the narrow ones; what is left goes to the columns that
/// are to take it, or to the last column of texts whose width nobody has told, or to all alike. Once the user has drawn
/// a column to another width, only the last one follows the window.
class ColumnWidths : public QObject {
public:
    ColumnWidths(const ReportView& list, QTreeView& view, QObject* parent);

    /// Takes rows that are new or have changed into account, soon.
    void note(const RowChange& change);
    /// Gives the columns their widths now, unless the user has drawn one.
    void place();
    /// Takes back what the user has drawn and places the columns, for a width has been told.
    void placeAsTold();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void placeSoon();
    void measure(int first, int last);
    int toldWidth(int column) const;
    int neededWidth(int column) const;
    int shareOf(int space) const;
    void fill(int room, std::vector<int>& widths) const;
    bool shareRoom(int room, std::vector<int>& widths) const;

    const ReportView& list_;
    QTreeView& view_;
    std::vector<int> needed_;  ///< by the contents, in pixels
    bool placing_ = false;
    bool pending_ = false;
    bool drawn_ = false;
};

}  // namespace kelvor::qt
