// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/directory_list.h"

#include <QApplication>
#include <QKeyEvent>
#include <QListView>
#include <QStyle>
#include <QStyledItemDelegate>

#include "qt/binders/binders.h"
#include "qt/binders/string_rows.h"
#include "qt/convert.h"
#include "qt/themed_icon.h"
#include "text/shown_name.h"

namespace kelvor::qt {

namespace {

/// In pixels of the desktop's scale: the step from a directory to those in it.
constexpr int indentation = 10;

constexpr int depthRole = Qt::UserRole;

class DirectoryRows : public QAbstractListModel {
public:
    DirectoryRows(const DirectoryList& list, QObject* parent) : QAbstractListModel(parent), list_(list) {}

    void renew() {
        beginResetModel();
        count_ = static_cast<int>(list_.rows().size());
        endResetModel();
    }

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : count_; }

    QVariant data(const QModelIndex& index, int role) const override {
        if (static_cast<std::size_t>(index.row()) >= list_.rows().size()) return {};
        const DirectoryList::Row& row = list_.rows()[static_cast<std::size_t>(index.row())];
        const bool opened = index.row() <= list_.currentRow();
        switch (role) {
            case Qt::DisplayRole:
                return rowText(row.name);
            case Qt::ToolTipRole:
                return toolTipText(shownName(row.path));
            case Qt::DecorationRole:
                return opened ? openFolder_ : folder_;
            case Qt::FontRole: {
                QFont font = QApplication::font("QListView");
                font.setBold(index.row() == list_.currentRow());
                return font;
            }
            case depthRole:
                return row.depth;
            default:
                return {};
        }
    }

private:
    const DirectoryList& list_;
    const QIcon folder_ = themedIcon(QStringLiteral(":/toolbar/folder.svg"));
    const QIcon openFolder_ = themedIcon(QStringLiteral(":/toolbar/open.svg"));
    int count_ = 0;
};

/// Shows each row behind the one that holds it.
class IndentedRows : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem moved = option;
        moved.rect.setLeft(moved.rect.left() + indentationOf(index));
        QStyledItemDelegate::paint(painter, moved, index);
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(indentationOf(index), 0);
    }

private:
    static int indentationOf(const QModelIndex& index) { return indentation * index.data(depthRole).toInt(); }
};

/// Opens the row in front by Enter. The toolkit's own signal for it may come at a single click too.
class EnterKey : public QObject {
public:
    EnterKey(DirectoryList& list, QListView& view, FormLink& link) : QObject(&link), list_(list), view_(view) {}

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return false;
        const int key = static_cast<QKeyEvent*>(event)->key();
        if ((key != Qt::Key_Return && key != Qt::Key_Enter) || !view_.currentIndex().isValid()) return false;
        guarded([this] { list_.open(view_.currentIndex().row()); });
        return true;
    }

private:
    DirectoryList& list_;
    QListView& view_;
};

}  // namespace

void bindDirectoryList(DirectoryList& list, QListView& widget, FormLink& link) {
    auto* rows = new DirectoryRows(list, &link);
    showRows(widget, *rows, link);
    const int iconSize = widget.style()->pixelMetric(QStyle::PM_SmallIconSize);
    widget.setIconSize({iconSize, iconSize});
    widget.setItemDelegate(new IndentedRows(&link));
    widget.installEventFilter(new EnterKey(list, widget, link));
    keepListKeys(widget);
    link.follow(list, widget, [&list, &widget, rows](Aspect) {
        rows->renew();
        const QModelIndex current = rows->index(list.currentRow());
        widget.setCurrentIndex(current);
        widget.scrollTo(current);
    });
    QObject::connect(&widget, &QListView::doubleClicked, &link,
                     [&list](const QModelIndex& index) { guarded([&] { list.open(index.row()); }); });
}

}  // namespace kelvor::qt
