// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/folder_rows.h"

#include <QDateTime>
#include <QLocale>
#include <algorithm>
#include <utility>

#include "qt/convert.h"
#include "qt/themed_icon.h"

namespace kelvor::qt {

FolderRows::FolderRows(QObject* parent)
    : QAbstractTableModel(parent),
      folder_(themedIcon(QStringLiteral(":/toolbar/folder.svg"))),
      file_(themedIcon(QStringLiteral(":/rows/file.svg"))) {
}

void FolderRows::setEntries(std::vector<FolderEntry> entries) {
    beginResetModel();
    entries_ = std::move(entries);
    arrange();
    endResetModel();
}

void FolderRows::setFilter(EntryFilter filter) {
    beginResetModel();
    filter_ = std::move(filter);
    arrange();
    endResetModel();
}

void FolderRows::sort(int column, Qt::SortOrder order) {
    beginResetModel();
    sortedBy_ = column;
    order_ = order;
    arrange();
    endResetModel();
}

void FolderRows::arrange() {
    rows_.clear();
    for (std::size_t place = 0; place < entries_.size(); ++place)
        if (isShown(entries_[place])) rows_.push_back(place);
    // The entries are in the order of their names.
    const auto value = [this](std::size_t place) {
        const FolderEntry& entry = entries_[place];
        if (sortedBy_ == nameColumn) return static_cast<std::int64_t>(place);
        return sortedBy_ == sizeColumn ? entry.size : static_cast<std::int64_t>(entry.modified);
    };
    std::stable_sort(rows_.begin(), rows_.end(), [&](std::size_t left, std::size_t right) {
        const bool isFolder = entries_[left].isFolder;
        if (isFolder != entries_[right].isFolder) return isFolder;
        return order_ == Qt::AscendingOrder ? value(left) < value(right) : value(right) < value(left);
    });
}

bool FolderRows::isShown(const FolderEntry& entry) const {
    if (!filter_.hidden && entry.name.starts_with('.')) return false;
    return entry.isFolder || (!filter_.foldersOnly && matches(entry.name, filter_.files));
}

int FolderRows::rowOf(const std::string& name) const {
    const auto row =
        std::find_if(rows_.begin(), rows_.end(), [&](std::size_t place) { return entries_[place].name == name; });
    return row == rows_.end() ? -1 : static_cast<int>(row - rows_.begin());
}

int FolderRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int FolderRows::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columnsInAll);
}

QVariant FolderRows::data(const QModelIndex& index, int role) const {
    const FolderEntry& shown = entry(index.row());
    if (role == Qt::DecorationRole && index.column() == nameColumn) return shown.isFolder ? folder_ : file_;
    if (role == Qt::TextAlignmentRole && index.column() == sizeColumn)
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    switch (index.column()) {
        case nameColumn:
            return rowText(shown.name);
        case sizeColumn:
            return shown.isFolder ? QString() : QLocale().formattedDataSize(shown.size);
        default:
            return QLocale().toString(QDateTime::fromSecsSinceEpoch(shown.modified), QLocale::ShortFormat);
    }
}

QVariant FolderRows::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    const char* captions[] = {"Name", "Size", "Changed"};
    return QString::fromLatin1(captions[section]);
}

}  // namespace kelvor::qt
