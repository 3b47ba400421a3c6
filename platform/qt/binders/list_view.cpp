#include "platform/list_view.h"

#include <QListView>
#include <memory>

#include "platform/qt/binders/binders.h"
#include "platform/qt/binders/string_rows.h"

namespace kelvor::qt {

namespace {

void tellRows(StringRows& rows, ListView::RowChange change, int row) {
    switch (change) {
        case ListView::RowChange::inserted:
            return rows.noteInserted(row);
        case ListView::RowChange::removed:
            return rows.noteRemoved(row);
        case ListView::RowChange::changed:
            return rows.noteChanged(row);
    }
}

}  // namespace

void bindListView(ListView& list, QListView& widget, FormLink& link) {
    auto* rows = new StringRows(list.rows(), &link, [&list](int row, const std::string& text) {
        bool taken = false;
        guarded([&] { taken = list.edit(row, text); });
        return taken;
    });
    showRows(widget, *rows, link);
    widget.setUniformItemSizes(true);
    widget.setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
    // While the rows change the widget chooses for itself; the control tells its own choice after that.
    const auto following = std::make_shared<bool>(false);
    list.followRows([rows, following](ListView::RowChange change, int row) {
        *following = true;
        tellRows(*rows, change, row);
        *following = false;
    });
    QObject::connect(&link, &QObject::destroyed, [&list] { list.followRows({}); });
    link.follow(list, widget, [&list, &widget, rows](Aspect) {
        const QModelIndex index = rows->index(list.selectedRow());
        if (widget.currentIndex() != index) widget.setCurrentIndex(index);
    });
    QObject::connect(widget.selectionModel(), &QItemSelectionModel::currentChanged, &link,
                     [&list, following](const QModelIndex& index) {
                         if (!*following) guarded([&] { list.setSelectedRow(index.row()); });
                     });
    QObject::connect(&widget, &QListView::doubleClicked, &link,
                     [&list](const QModelIndex& index) { guarded([&] { list.doubleClick(index.row()); }); });
}

}  // namespace kelvor::qt
