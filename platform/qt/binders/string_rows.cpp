#include "platform/qt/binders/string_rows.h"

#include <QAbstractItemView>
#include <QKeyEvent>

#include "platform/qt/convert.h"
#include "platform/qt/form_link.h"

namespace kelvor::qt {

StringRows::StringRows(const std::vector<std::string>& rows, QObject* parent, Editor editor)
    : QAbstractListModel(parent), rows_(rows), count_(static_cast<int>(rows.size())), editor_(std::move(editor)) {
}

void StringRows::renew() {
    beginResetModel();
    count_ = static_cast<int>(rows_.size());
    endResetModel();
}

void StringRows::note(const RowChange& change) {
    const int rows = change.last - change.first + 1;
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
            emit dataChanged(index(change.first), index(change.last));
            return;
        case RowChange::Kind::renewed:
            return renew();
    }
}

int StringRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count_;
}

QVariant StringRows::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if ((role != Qt::DisplayRole && role != Qt::EditRole) || row >= rows_.size()) return {};
    return toQt(rows_[row]);
}

Qt::ItemFlags StringRows::flags(const QModelIndex& index) const {
    const auto flags = QAbstractListModel::flags(index);
    return editor_ ? flags | Qt::ItemIsEditable : flags;
}

bool StringRows::setData(const QModelIndex& index, const QVariant& value, int role) {
    return editor_ && role == Qt::EditRole && editor_(index.row(), fromQt(value.toString()));
}

void showRows(QAbstractItemView& view, QAbstractItemModel& rows, FormLink& link) {
    view.setModel(&rows);
    QObject::connect(&link, &QObject::destroyed, &view, [&view] { view.setModel(nullptr); });
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
