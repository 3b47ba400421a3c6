// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFileSystemWatcher>
#include <QTimer>
#include <QTreeView>
#include <string>
#include <utility>
#include <vector>

#include "qt/folder_rows.h"

namespace kelvor::qt {

/// The list of a folder's entries. It follows what happens in the folder, and what is marked stays so as long as it is
/// there and shown.
class FolderView : public QTreeView {
    Q_OBJECT
public:
    /// @param many  whether several rows can be marked
    FolderView(bool many, QWidget* parent);

    /// The folder shown, without a separator at its end; "" before the first one.
    const std::string& folder() const { return folder_; }
    /// Shows another folder with nothing marked. Throws Error when it cannot be read, and shows what it did.
    void enter(const std::string& folder);

    void setFilter(EntryFilter filter) { rows_.setFilter(std::move(filter)); }

    /// What is marked, in the order of the rows.
    std::vector<FolderEntry> marked() const;
    std::string pathOf(const FolderEntry& entry) const;

signals:
    void marksChanged();
    /// A double click on a folder, Return on it while it alone is marked, or Backspace for the one above.
    void folderOpened(const std::string& path);
    /// A double click or Return on other rows.
    void marksTaken();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// What outlives that the rows are renewed.
    struct Kept {
        std::vector<std::string> marked;
        std::string current;
        int scrolledTo = 0;
    };

    void openCurrent();
    void reload();
    void keepMarks();
    void restoreMarks();

    FolderRows& rows_;
    QFileSystemWatcher watcher_;
    QTimer reloadPause_;
    std::string folder_;
    Kept kept_;
};

}  // namespace kelvor::qt
