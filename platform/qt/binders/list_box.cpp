#include "platform/list_box.h"

#include <QListView>
#include <memory>

#include "platform/list_view.h"
#include "platform/qt/binders/binders.h"
#include "platform/qt/binders/string_rows.h"

namespace kelvor::qt {

namespace {

void bindRows(ListBox& list, QListView& widget, StringRows& rows, FormLink& link) {
    showRows(widget, rows, link);
    widget.setUniformItemSizes(true);
    widget.setItemDelegate(new RowCells(&link));
    // While the rows change the widget chooses for itself; the control tells its own choice after that.
    const auto following = std::make_shared<bool>(false);
    list.followRows([&rows, following](const RowChange& change) {
        *following = true;
        rows.note(change);
        *following = false;
    });
    QObject::connect(&link, &QObject::destroyed, [&list] { list.followRows({}); });
    link.follow(list, widget, [&list, &widget, &rows](Aspect) {
        rows.catchUp();
        const QModelIndex index = rows.indexOf(list.selectedRow());
        if (widget.currentIndex() != index) widget.setCurrentIndex(index);
    });
    QObject::connect(widget.selectionModel(), &QItemSelectionModel::currentChanged, &link,
                     [&list, following](const QModelIndex& index) {
                         if (!*following) guarded([&] { list.setSelectedRow(index.row()); });
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
