#include "platform/qt/binders/string_rows.h"

#include <QAbstractItemView>

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

void StringRows::noteInserted(int row) {
    beginInsertRows({}, row, row);
    ++count_;
    endInsertRows();
}

void StringRows::noteRemoved(int row) {
    beginRemoveRows({}, row, row);
    --count_;
    endRemoveRows();
}

void StringRows::noteChanged(int row) {
    emit dataChanged(index(row), index(row));
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

}  // namespace kelvor::qt
