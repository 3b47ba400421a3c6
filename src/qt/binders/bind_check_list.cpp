// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/check_list.h"

#include <QListView>

#include "qt/binders/binders.h"
#include "qt/binders/string_rows.h"
#include "qt/convert.h"

namespace kelvor::qt {

namespace {

/// The rows of a check list; a row whose box the user turns is told to the control.
class CheckRows : public FollowedRows {
public:
    CheckRows(CheckList& list, QObject* parent) : FollowedRows([&list] { return list.count(); }, parent), list_(list) {}

    int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 1; }

    QVariant data(const QModelIndex& index, int role) const override {
        const auto& row = list_.rows().at(static_cast<std::size_t>(index.row()));
        if (role == Qt::DisplayRole) return rowText(row.caption);
        if (role == Qt::CheckStateRole) return row.ticked ? Qt::Checked : Qt::Unchecked;
        return {};
    }

    Qt::ItemFlags flags(const QModelIndex& index) const override {
        return FollowedRows::flags(index) | Qt::ItemIsUserCheckable;
    }

    bool setData(const QModelIndex& index, const QVariant& /*value*/, int role) override {
        if (role != Qt::CheckStateRole) return false;
        guarded([&] { list_.click(index.row()); });
        return true;
    }

private:
    CheckList& list_;
};

}  // namespace

void bindCheckList(CheckList& list, QListView& widget, FormLink& link) {
    auto* rows = new CheckRows(list, &link);
    showRows(widget, *rows, link);
    widget.setEditTriggers(QAbstractItemView::NoEditTriggers);
    widget.setUniformItemSizes(true);
    widget.setItemDelegate(new RowCells(&link));
    list.followRows([rows](const RowChange& change) { rows->note(change); });
    QObject::connect(&link, &QObject::destroyed, [&list] { list.followRows({}); });
    link.follow(list, widget, [rows](Aspect) { rows->catchUp(); });
}

}  // namespace kelvor::qt
