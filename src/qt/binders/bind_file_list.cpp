// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/file_list.h"

#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QListView>
#include <QScopedValueRollback>
#include <memory>
#include <utility>

#include "qt/binders/binders.h"
#include "qt/binders/mouse_presses.h"
#include "qt/binders/string_rows.h"
#include "qt/key_codes.h"

namespace kelvor::qt {

namespace {

/// Tells the keys that go up on the list after they went down on it: the Enter that closed a message before is
/// none of the list's.
class KeyUps : public QObject {
public:
    KeyUps(FileList& files, FormLink& link) : QObject(&link), files_(files) {}

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::FocusOut) down_ = 0;
        if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) return false;
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (key.isAutoRepeat()) return false;
        if (event->type() == QEvent::KeyPress) {
            down_ = key.key();
        } else if (std::exchange(down_, 0) == key.key()) {
            files_.keyUp.raise({.keyCode = keyCodeOf(key), .shift = shiftBits(key.modifiers())});
        }
        return false;
    }

private:
    FileList& files_;
    int down_ = 0;
};

void setSelected(FileList& files, const QItemSelection& selection, bool selected) {
    for (const QItemSelectionRange& range : selection)
        for (int row = range.top(); row <= range.bottom(); ++row)
            files.setSelected(static_cast<std::size_t>(row), selected);
}

}  // namespace

void bindFileList(FileList& files, QListView& widget, FormLink& link) {
    auto* rows = new StringRows(files.list(), &link);
    showRows(widget, *rows, link);
    widget.setUniformItemSizes(true);
    widget.setSelectionMode(QAbstractItemView::ExtendedSelection);
    widget.installEventFilter(new KeyUps(files, link));
    keepListKeys(widget);
    // While one side follows the other its own change is no news to that other.
    const auto following = std::make_shared<bool>(false);
    link.follow(files, widget, [&files, &widget, rows, following](Aspect aspect) {
        if (*following) return;
        const QScopedValueRollback scope(*following, true);
        if (aspect == Aspect::list) {
            rows->renew();
            widget.scrollToTop();
        }
        const auto isSelected = [&files](int row) { return files.selected(static_cast<std::size_t>(row)); };
        widget.selectionModel()->select(selectedRuns(*rows, isSelected), QItemSelectionModel::ClearAndSelect);
    });
    QObject::connect(widget.selectionModel(), &QItemSelectionModel::selectionChanged, &link,
                     [&files, following](const QItemSelection& selected, const QItemSelection& deselected) {
                         if (*following) return;
                         const QScopedValueRollback scope(*following, true);
                         guarded([&] {
                             setSelected(files, deselected, false);
                             setSelected(files, selected, true);
                         });
                     });
    QObject::connect(&widget, &QListView::doubleClicked, &link, [&files](const QModelIndex& index) {
        guarded([&] { files.doubleClick(static_cast<std::size_t>(index.row())); });
    });
    tellRowPresses(widget, link, [&files](const MousePress& press) { files.mouseDown.raise(press); });
}

}  // namespace kelvor::qt
