// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTreeWidget>
#include <QUrl>
#include <functional>

namespace kelvor::qt {

/// The contents of the help pages as a tree: what the home page has in its lists, a group or a page a row.
class HelpContents : public QTreeWidget {
public:
    explicit HelpContents(QWidget* parent);

    /// A row of a page was chosen.
    std::function<void(const QUrl&)> onChosen;

    /// Reads the lists of the home page, which are read once more only when they lie elsewhere.
    void read(const QUrl& home);
    /// Marks the row of the page that is shown, if it has one.
    void mark(const QUrl& page);

private:
    void choose();

    QUrl home_;
};

}  // namespace kelvor::qt
