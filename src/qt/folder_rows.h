// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <string>
#include <vector>

#include "files/filter_rows.h"
#include "files/folder_entries.h"

namespace kelvor::qt {

/// Which of a folder's entries are shown.
struct EntryFilter {
    /// What of the files; folders are shown for all of them.
    FilterRow files;
    bool foldersOnly = false;
    /// Also those whose name begins with a point.
    bool hidden = false;
};

/// The folders and files of one folder as a table of names, sizes and times, folders first whatever it is sorted by.
/// The model is reset at each change.
class FolderRows : public QAbstractTableModel {
public:
    enum Column { nameColumn, sizeColumn, timeColumn, columnsInAll };

    explicit FolderRows(QObject* parent);

    /// Shows these instead, which are sorted by their names.
    void setEntries(std::vector<FolderEntry> entries);
    void setFilter(EntryFilter filter);
    const FolderEntry& entry(int row) const { return entries_[rows_[static_cast<std::size_t>(row)]]; }
    /// The row of a name; -1 when it is not shown.
    int rowOf(const std::string& name) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

private:
    void arrange();
    bool isShown(const FolderEntry& entry) const;

    std::vector<FolderEntry> entries_;
    std::vector<std::size_t> rows_;  ///< places in entries_
    EntryFilter filter_;
    int sortedBy_ = nameColumn;
    Qt::SortOrder order_ = Qt::AscendingOrder;
    const QIcon folder_;
    const QIcon file_;
};

}  // namespace kelvor::qt
