// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/folder_view.h"

#include <QFile>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>
#include <unordered_set>
#include <utility>

#include "base/error.h"
#include "files/paths.h"
#include "qt/binders/string_rows.h"

namespace kelvor::qt {

namespace {

/// In characters.
constexpr int sizeColumnWidth = 12;
constexpr int timeColumnWidth = 24;
/// In milliseconds, between a change on the disk and the list that shows it.
constexpr int reloadDelay = 300;

}  // namespace

FolderView::FolderView(bool many, QWidget* parent) : QTreeView(parent), rows_(*new FolderRows(this)) {
    setObjectName(QStringLiteral("treeView"));
    setAccessibleName(QStringLiteral("Files"));
    setModel(&rows_);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(many ? ExtendedSelection : SingleSelection);
    setSortingEnabled(true);
    sortByColumn(FolderRows::nameColumn, Qt::AscendingOrder);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(FolderRows::nameColumn, QHeaderView::Stretch);
    const int character = fontMetrics().averageCharWidth();
    setColumnWidth(FolderRows::sizeColumn, sizeColumnWidth * character);
    setColumnWidth(FolderRows::timeColumn, timeColumnWidth * character);
    reloadPause_.setSingleShot(true);
    reloadPause_.setInterval(reloadDelay);

    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &FolderView::marksChanged);
    connect(&rows_, &QAbstractItemModel::modelAboutToBeReset, this, &FolderView::keepMarks);
    connect(&rows_, &QAbstractItemModel::modelReset, this, &FolderView::restoreMarks);
    connect(this, &QTreeView::doubleClicked, this, &FolderView::openCurrent);
    connect(&reloadPause_, &QTimer::timeout, this, &FolderView::reload);
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, [this] {
        if (!reloadPause_.isActive()) reloadPause_.start();
    });
}

void FolderView::enter(const std::string& folder) {
    auto entries = folderEntries(folder);
    const std::string left = std::exchange(folder_, folder);
    clearSelection();
    rows_.setEntries(std::move(entries));
    // The way up leads to the folder that one comes from.
    const int row = directoryPart(left) == folder ? std::max(rows_.rowOf(fileNamePart(left)), 0) : 0;
    selectionModel()->setCurrentIndex(rows_.index(row, 0), QItemSelectionModel::NoUpdate);
    scrollTo(currentIndex());
    if (!watcher_.directories().isEmpty()) watcher_.removePaths(watcher_.directories());
    watcher_.addPath(QFile::decodeName(QByteArray::fromStdString(folder)));
}

void FolderView::reload() {
    try {
        rows_.setEntries(folderEntries(folder_));
    } catch (const Error&) {
        // The folder has gone; what was in it is still told.
    }
}

std::vector<FolderEntry> FolderView::marked() const {
    std::vector<int> rows;
    for (const QItemSelectionRange& run : selectionModel()->selection())
        for (int row = run.top(); row <= run.bottom(); ++row) rows.push_back(row);
    std::sort(rows.begin(), rows.end());
    std::vector<FolderEntry> entries;
    entries.reserve(rows.size());
    for (const int row : rows) entries.push_back(rows_.entry(row));
    return entries;
}

std::string FolderView::pathOf(const FolderEntry& entry) const {
    return joinPath(folder_, entry.name);
}

void FolderView::keepMarks() {
    kept_ = {.scrolledTo = verticalScrollBar()->value()};
    for (const FolderEntry& entry : marked()) kept_.marked.push_back(entry.name);
    if (currentIndex().isValid()) kept_.current = rows_.entry(currentIndex().row()).name;
}

void FolderView::restoreMarks() {
    const std::unordered_set<std::string> names(kept_.marked.begin(), kept_.marked.end());
    const auto wasMarked = [&](int row) { return names.count(rows_.entry(row).name) > 0; };
    selectionModel()->select(selectedRuns(rows_, wasMarked), QItemSelectionModel::ClearAndSelect);
    const int current = rows_.rowOf(kept_.current);
    if (current >= 0) selectionModel()->setCurrentIndex(rows_.index(current, 0), QItemSelectionModel::NoUpdate);
    doItemsLayout();
    verticalScrollBar()->setValue(kept_.scrolledTo);
}

void FolderView::openCurrent() {
    if (!currentIndex().isValid()) return;
    if (!selectionModel()->hasSelection())
        selectionModel()->select(currentIndex(), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    const auto entries = marked();
    if (entries.size() == 1 && entries.front().isFolder) {
        emit folderOpened(pathOf(entries.front()));
    } else {
        emit marksTaken();
    }
}

void FolderView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        openCurrent();
    } else if (event->key() == Qt::Key_Backspace) {
        emit folderOpened(directoryPart(folder_));
    } else {
        QTreeView::keyPressEvent(event);
    }
}

}  // namespace kelvor::qt
