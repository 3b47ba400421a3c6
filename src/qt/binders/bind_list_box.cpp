// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/list_box.h"

#include <QApplication>
#include <QListView>

#include "controls/list_view.h"
#include "qt/binders/binders.h"
#include "qt/binders/string_rows.h"

namespace kelvor::qt {

namespace {

void endEdit(QListView& view) {
    if (view.viewport()->isAncestorOf(QApplication::focusWidget())) view.setFocus();
}

void bindRows(ListBox& list, QListView& widget, StringRows& rows, FormLink& link) {
    showRows(widget, rows, link);
    widget.setUniformItemSizes(true);
    widget.setItemDelegate(new RowCells(&link));
    list.followRows([&rows](const RowChange& change) { rows.note(change); });
    QObject::connect(&link, &QObject::destroyed, [&list] { list.followRows({}); });
    link.follow(list, widget, [&list, &widget, &rows](Aspect aspect) {
        if (aspect == Aspect::value) return endEdit(widget);
        rows.catchUp();
        const QModelIndex index = rows.indexOf(list.selectedRow());
        if (widget.currentIndex() != index) widget.setCurrentIndex(index);
    });
    QObject::connect(widget.selectionModel(), &QItemSelectionModel::currentChanged, &link,
                     [&list, &rows](const QModelIndex& index) {
                         // After a change of the rows the control tells its own choice.
                         if (!rows.noting()) guarded([&] { list.setSelectedRow(index.row()); });
                     });
    // A click with Ctrl takes the mark off the row, which is the selected one all the same.
    auto* selection = widget.selectionModel();
    QObject::connect(selection, &QItemSelectionModel::selectionChanged, &link, [&list, &rows, selection] {
        if (!rows.noting() && !selection->hasSelection())
            selection->select(rows.indexOf(list.selectedRow()), QItemSelectionModel::Select);
    });
    QObject::connect(&widget, &QListView::doubleClicked, &link,
                     [&list](const QModelIndex& index) { guarded([&] { list.doubleClick(index.row()); }); });
}

}  // namespace

void bindListBox(ListBox& list, QListView& widget, FormLink& link) {
    widget.setEditTriggers(QAbstractItemView::NoEditTriggers);
    bindRows(list, widget, *new StringRows(list.rows(), &link), link);
}

void bindListView(ListView& list, QListView& widget, FormLink& link) {
    auto* rows = new StringRows(list.rows(), &link, [&list](int row, const std::string& text) {
        bool taken = false;
        guarded([&] { taken = list.edit(row, text); });
        return taken;
    });
    widget.setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
    bindRows(list, widget, *rows, link);
}

}  // namespace kelvor::qt
