// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCompleter>
#include <QStringListModel>
#include <optional>
#include <string>

namespace kelvor::qt {

/// Offers, below a field for file names, the names and paths that go on as its text does. A folder is read once for
/// the names in it; a text that names several files is offered nothing.
class PathCompleter : public QCompleter {
public:
    /// @param foldersOnly  whether files are left out
    PathCompleter(bool foldersOnly, QObject* parent);

    /// Prepares the offers for a text that the user has just typed.
    /// @param directory  what a name in the text is in
    void prepare(const QString& text, const std::string& directory);

private:
    /// What goes on from the head with a name in the folder read.
    QStringList offers(const std::string& directory) const;

    const bool foldersOnly_;
    QStringListModel list_;
    /// What has been read for the offers.
    struct Listing {
        std::string folder;
        bool withHidden = false;
        bool operator==(const Listing&) const = default;
    };
    std::optional<Listing> listed_;
    QString head_;  ///< what stands before the names
};

}  // namespace kelvor::qt
